#pragma once

#include <cstddef>

namespace quorbind::bench {

/// While this lives, the system has memory at hand that was used a moment ago.
///
/// A virtual machine gives back what is free, and to get a page again can take as long as to copy a
/// small file: of two works that are compared, one would pay for it and the other not.
class MemoryAtHand {
 public:
  explicit MemoryAtHand(std::size_t bytes);
  ~MemoryAtHand();
  MemoryAtHand(const MemoryAtHand&) = delete;
  MemoryAtHand& operator=(const MemoryAtHand&) = delete;

 private:
  std::size_t bytes_;
  void* memory_;
};

}  // namespace quorbind::bench
