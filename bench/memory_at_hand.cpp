#include "bench/memory_at_hand.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstring>
#include <new>

namespace quorbind::bench {

namespace {

/// One page of so many is kept, so that nothing comes free in pieces of 2 MB, and only those are
/// given back.
constexpr std::size_t kPagesInPiece = 64;

}  // namespace

MemoryAtHand::MemoryAtHand(std::size_t bytes)
    : bytes_(bytes),
      memory_(::mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0)) {
  if (memory_ == MAP_FAILED) {
    throw std::bad_alloc();
  }
  // Of a huge page no part would come free.
  ::madvise(memory_, bytes, MADV_NOHUGEPAGE);
  std::memset(memory_, 1, bytes);
  const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
  const std::size_t piece = kPagesInPiece * page;
  for (std::size_t at = 0; at + piece <= bytes; at += piece) {
    ::madvise(static_cast<char*>(memory_) + at + page, piece - page, MADV_DONTNEED);
  }
}

MemoryAtHand::~MemoryAtHand() {
  ::munmap(memory_, bytes_);
}

}  // namespace quorbind::bench
