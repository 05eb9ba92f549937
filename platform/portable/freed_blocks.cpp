#include "platform/portable/freed_blocks.h"

#include <cstddef>
#include <cstdlib>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace quorbind {

namespace {

/// Blocks of up to so many bytes are kept aside.
void keepAside([[maybe_unused]] std::size_t largest) {
#if defined(__GLIBC__)
  ::mallopt(M_MXFAST, static_cast<int>(largest));
#endif
}

/// What the C library does by itself. It doesn't tell, so another choice made before is lost.
constexpr std::size_t kUsualLargest = 64 * sizeof(std::size_t) / 4;

}  // namespace

FreedBlocksJoined::FreedBlocksJoined() {
  keepAside(0);
}

FreedBlocksJoined::~FreedBlocksJoined() {
  keepAside(kUsualLargest);
}

}  // namespace quorbind
