// Bringing the documents of a book into a library.

#include <array>

#include "bench/benchmarks.h"
#include "bench/store.h"

namespace quorbind::bench {

namespace {

template <typename Folder>
void registerCopies(const char* name, const std::shared_ptr<MadeOnce<Folder>>& folders) {
  registerOperations(folders,
                     std::array{Operation<Folder>{
                         .name = name,
                         .run = [](Folder& folder) { return folder.copy(); },
                         .check = [](const Folder& folder) { return folder.areCopied(); }}},
                     kFolderSizes);
}

}  // namespace

void registerCopying(const Store& store) {
  registerCopies("component/copy/documents", store.plainFolders);
  registerCopies("component/copy/pages", store.pageFolders);
}

}  // namespace quorbind::bench
