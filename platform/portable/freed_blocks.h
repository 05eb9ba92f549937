#pragma once

namespace quorbind {

/// What becomes of small blocks of memory that are freed.
enum class FreedBlocks {
  /// Some are kept aside for the next who asks for as many bytes. Whenever a large block comes free
  /// all of them are gone through: for a large document that is every node once more, when the
  /// processor has no longer got them at hand.
  kKeptAside,
  kJoinedAtOnce,
};

/// From now on, for the whole process. Without an effect where the C library knows no such choice.
void treatFreedBlocks(FreedBlocks how);

}  // namespace quorbind
