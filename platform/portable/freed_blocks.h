#pragma once

namespace quorbind {

/// Small blocks of memory that come free while this lives are joined at once.
///
/// The C library keeps some of them aside for the next who asks for as many bytes, and goes through
/// all of them whenever a large block comes free: where a large document is freed that is every
/// node once more, when the processor has no longer got them at hand. Without an effect where the C
/// library knows no such choice. It is one of the whole process.
class FreedBlocksJoined {
 public:
  FreedBlocksJoined();
  ~FreedBlocksJoined();
  FreedBlocksJoined(const FreedBlocksJoined&) = delete;
  FreedBlocksJoined& operator=(const FreedBlocksJoined&) = delete;
};

}  // namespace quorbind
