#include "bench/benchmarks.h"

namespace quorbind::bench {

void registerBenchmarks(const Store& store) {
  registerAdditions(store);
  registerAdditionFloors(store);
  registerCopying(store);
  registerCopyFloors(store);
  registerLibraryOperations(store);
  registerLibraryFloors(store);
  registerSideFileOperations(store);
  registerSideFileFloors(store);
  registerWorkbooks(store);
  registerWorkbookFloors(store);
}

}  // namespace quorbind::bench
