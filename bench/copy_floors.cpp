// The floors under the copying of documents.

#include <array>

#include "bench/benchmarks.h"
#include "bench/floor.h"
#include "bench/store.h"

namespace quorbind::bench {

namespace {

bool copyOnFloor(const CopiedFolder& folder) {
  return counted(floorCopyFolder(folder.source().c_str(), folder.target().c_str()), folder.files());
}

template <typename Folder>
void registerCopies(const char* name, const std::shared_ptr<MadeOnce<Folder>>& folders) {
  registerOperations(folders,
                     std::array{Operation<Folder>{
                         .name = name,
                         .run = [](Folder& folder) { return copyOnFloor(folder); },
                         .hasChanged = [](const Folder& folder) { return folder.areCopied(); }}},
                     kSizes);
}

}  // namespace

void registerCopyFloors(const Store& store) {
  registerCopies("floor/copy/documents", store.plainFolders);
  registerCopies("floor/copy/pages", store.pageFolders);
}

}  // namespace quorbind::bench
