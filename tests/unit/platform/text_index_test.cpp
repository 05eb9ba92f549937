#include "platform/text_index.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>

namespace quorbind::testing {
namespace {

TEST(TextIndex, NumbersTextsInTheOrderInWhichTheyComeFirst) {
  TextIndex index;
  EXPECT_EQ(index.add("b"), std::pair(std::size_t{0}, true));
  EXPECT_EQ(index.add(""), std::pair(std::size_t{1}, true));
  EXPECT_EQ(index.add("b"), std::pair(std::size_t{0}, false));
  EXPECT_EQ(index.find(""), 1U);
  EXPECT_EQ(index.at(0), "b");
  EXPECT_EQ(index.at(1), "");
  EXPECT_FALSE(index.contains("a"));
}

TEST(TextIndex, IsEmptyAtFirstAndOnceItWasCleared) {
  TextIndex index;
  EXPECT_TRUE(index.empty());
  EXPECT_FALSE(index.contains(""));
  index.add("a");
  index.clear();
  EXPECT_TRUE(index.empty());
  EXPECT_FALSE(index.contains("a"));
  EXPECT_EQ(index.add("c"), std::pair(std::size_t{0}, true));
}

TEST(TextIndex, FindsWhatAMapFinds) {
  TextIndex index;
  std::map<std::string, std::size_t> map;
  std::mt19937 random(1);
  for (int i = 0; i < 50'000; ++i) {
    const std::string text = std::string(random() % 3, '\0') + std::to_string(random() % 20'000);
    const auto known = map.find(text);
    ASSERT_EQ(index.find(text).has_value(), known != map.end());
    const auto [number, isNew] = index.add(text);
    ASSERT_EQ(number, map.try_emplace(text, map.size()).first->second);
    ASSERT_EQ(isNew, known == map.end());
    ASSERT_EQ(index.at(number), text);
  }
  EXPECT_EQ(index.size(), map.size());
}

}  // namespace
}  // namespace quorbind::testing
