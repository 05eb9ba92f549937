#include "platform/portable/freed_blocks.h"

#include <gtest/gtest.h>
#include <malloc.h>

#include <string>
#include <vector>

namespace quorbind::testing {
namespace {

/// How many bytes are kept aside when many small blocks have come free.
std::size_t bytesKeptAside() {
  constexpr std::size_t kMoreThanAThreadKeeps = 64;
  constexpr std::size_t kSmall = 40;
  std::vector<std::string> blocks(kMoreThanAThreadKeeps, std::string(kSmall, 'x'));
  blocks.clear();
  return ::mallinfo2().fsmblks;
}

TEST(FreedBlocks, AreKeptAsideOrNot) {
  treatFreedBlocks(FreedBlocks::kKeptAside);
  if (bytesKeptAside() == 0) {
    GTEST_SKIP() << "the C library keeps nothing aside here";
  }
  treatFreedBlocks(FreedBlocks::kJoinedAtOnce);
  EXPECT_EQ(bytesKeptAside(), 0);
  treatFreedBlocks(FreedBlocks::kKeptAside);
  EXPECT_GT(bytesKeptAside(), 0);
}

}  // namespace
}  // namespace quorbind::testing
