#include "platform/text_store.h"

#include <gmock/gmock.h>

#include <string>
#include <string_view>
#include <vector>

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;

TEST(TextStore, KeepsTextsAsTheyAreInTheirOrder) {
  TextStore store;
  EXPECT_TRUE(store.empty());
  store.add("b");
  store.add("");
  store.add(std::string_view("a\0c", 3));
  store.add("b");
  EXPECT_THAT(store.texts(), ElementsAre("b", "", std::string("a\0c", 3), "b"));
}

TEST(TextStore, DoesNotMoveATextWhenOthersCome) {
  TextStore store;
  store.add("first");
  const std::string_view first = store.at(0);
  for (int i = 0; i < 100'000; ++i) {
    store.add("another text " + std::to_string(i));
  }
  EXPECT_EQ(store.at(0).data(), first.data());
  EXPECT_EQ(store.at(0), "first");
  EXPECT_EQ(store.at(100'000), "another text 99999");
}

TEST(TextStore, KeepsTextsOfAnySize) {
  TextStore store;
  std::vector<std::string> texts;
  for (std::size_t size = 1; size < 1'000'000; size *= 3) {
    texts.emplace_back(size, static_cast<char>('a' + texts.size()));
    store.add(texts.back());
  }
  EXPECT_EQ(store.texts(), texts);
}

TEST(TextStore, IsEmptyOnceItWasCleared) {
  TextStore store;
  store.add("a");
  store.clear();
  EXPECT_TRUE(store.empty());
  store.add("b");
  EXPECT_THAT(store.texts(), ElementsAre("b"));
}

}  // namespace
}  // namespace quorbind::testing
