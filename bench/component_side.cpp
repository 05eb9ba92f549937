#include "bench/benchmarks.h"

namespace quorbind::bench {

void registerBenchmarks(const Store& store) {
  registerAdditions(store);
  registerCopying(store);
  registerLibraryOperations(store);
  registerSideFileOperations(store);
  registerWorkbooks(store);
}

}  // namespace quorbind::bench
