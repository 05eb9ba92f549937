// Bringing the documents of a book into a library.

#include <array>

#include "bench/benchmarks.h"
#include "bench/store.h"

namespace quorbind::bench {

namespace {

template <typename Folder>
void registerCopies(const char* name,
                    bool (*run)(Folder& folder),
                    const std::shared_ptr<MadeOnce<Folder>>& folders) {
  registerOperations(folders,
                     std::array{Operation<Folder>{
                         .name = name,
                         .run = run,
                         .hasChanged = [](const Folder& folder) { return folder.areCopied(); }}},
                     kSizes);
}

}  // namespace

void registerCopying(const Store& store) {
  registerCopies<PlainFolder>(
      "component/copy/documents",
      [](PlainFolder& folder) { return folder.copy(); },
      store.plainFolders);
  registerCopies<PageFolder>(
      "component/copy/pages", [](PageFolder& folder) { return folder.copy(); }, store.pageFolders);
  registerCopies<PlainFolder>(
      "component/copy/taken-over",
      [](PlainFolder& folder) { return folder.takeOver(); },
      store.plainFolders);
}

}  // namespace quorbind::bench
