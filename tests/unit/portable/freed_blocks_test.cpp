#include "platform/portable/freed_blocks.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace quorbind::testing {
namespace {

/// How many bytes are kept aside when many small blocks have come free.
std::size_t bytesKeptAside() {
  constexpr std::size_t kMoreThanAThreadKeeps = 64;
  constexpr std::size_t kSmall = 40;
  std::vector<std::string> blocks(kMoreThanAThreadKeeps, std::string(kSmall, 'x'));
  blocks.clear();
#if defined(__GLIBC__)
  return ::mallinfo2().fsmblks;
#else
  return 0;
#endif
}

TEST(FreedBlocks, AreKeptAsideButForAWhile) {
  const std::size_t usually = bytesKeptAside();
  if (usually == 0) {
    GTEST_SKIP() << "the C library keeps nothing aside here";
  }
  {
    const FreedBlocksJoined joined;
    EXPECT_EQ(bytesKeptAside(), 0);
  }
  EXPECT_GT(bytesKeptAside(), 0);
}

}  // namespace
}  // namespace quorbind::testing
