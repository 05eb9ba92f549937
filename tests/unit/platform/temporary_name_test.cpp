#include "platform/temporary_name.h"

#include <gtest/gtest.h>

namespace quorbind::testing {
namespace {

TEST(TemporaryName, HasEightDigitsWhateverTheNumber) {
  for (const std::uint32_t number : {0U, 1U, 0x10U, 0x0FFFFFFFU, 0xE9FFF1EU, 0xFFFFFFFFU}) {
    const std::string name = "page.htm" + temporaryEnding(number);
    EXPECT_EQ(name.size(), std::string("page.htm.quorbind-1c0ffee5.tmp").size()) << name;
    EXPECT_TRUE(isTemporaryName(name)) << name;
  }
}

TEST(TemporaryName, OfEveryNumberIsAnother) {
  EXPECT_NE(temporaryEnding(0x10), temporaryEnding(0x1));
  EXPECT_NE(temporaryEnding(0x10000000), temporaryEnding(0));
}

TEST(TemporaryName, IsNoOtherName) {
  EXPECT_TRUE(isTemporaryName("a.quorbind-1c0ffee5.tmp"));
  for (const char* name : {"a.tmp",
                           ".quorbind-1c0ffee5.tmp",
                           "a.quorbind-1c0ffee.tmp",
                           "a.quorbind-1c0ffee55.tmp",
                           "a.quorbind-1c0ffee5.tmp.htm",
                           "a.quorbind-a manual.tmp",
                           "a-quorbind-1c0ffee5.tmp"}) {
    EXPECT_FALSE(isTemporaryName(name)) << name;
  }
}

}  // namespace
}  // namespace quorbind::testing
