#include "platform/portable/freed_blocks.h"

#include <cstdlib>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace quorbind {

void treatFreedBlocks([[maybe_unused]] FreedBlocks how) {
#if defined(__GLIBC__)
  constexpr int kUsualLargest = 64 * sizeof(std::size_t) / 4;
  ::mallopt(M_MXFAST, how == FreedBlocks::kKeptAside ? kUsualLargest : 0);
#endif
}

}  // namespace quorbind
