#include "tests/support/short_memory.h"

#include <cstdlib>

namespace quorbind::testing {

namespace {

/// Negative: none fails.
thread_local long successesLeft = -1;

bool mayHaveMemory() {
  return successesLeft < 0 || successesLeft-- > 0;
}

}  // namespace

ShortMemory::ShortMemory(std::size_t successes) {
  successesLeft = static_cast<long>(successes);
}

ShortMemory::~ShortMemory() {
  successesLeft = -1;
}

}  // namespace quorbind::testing

void* operator new(std::size_t size) {
  void* memory = quorbind::testing::mayHaveMemory() ? std::malloc(size > 0 ? size : 1) : nullptr;
  if (memory == nullptr) {
    throw std::bad_alloc();
  }
  return memory;
}

void operator delete(void* memory) noexcept {
  std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}
