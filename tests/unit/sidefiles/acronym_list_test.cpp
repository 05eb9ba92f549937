#include "sidefiles/acronym_list.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

namespace quorbind::testing {
namespace {

AcronymList listOf(std::initializer_list<const char*> acronyms) {
  AcronymList list;
  for (const char* acronym : acronyms) {
    list.add(acronym);
  }
  return list;
}

TEST(AcronymList, HasWhatStandsInItInWhateverOrderItIsAsked) {
  AcronymList list = listOf({"A", "B", "C"});
  for (const char* acronym : {"A", "B", "C", "A", "C", "B"}) {
    EXPECT_TRUE(list.has(acronym)) << acronym;
  }
  EXPECT_FALSE(list.has("D"));
  EXPECT_FALSE(list.has(""));
}

TEST(AcronymList, HasWhatIsAddedLater) {
  AcronymList list = listOf({"A"});
  EXPECT_FALSE(list.has("B"));
  list.add("B");
  EXPECT_TRUE(list.has("B"));
}

TEST(AcronymList, AnswersAsASetDoes) {
  constexpr int kLists = 200;
  constexpr int kSteps = 50;
  std::mt19937 random(1);
  for (int i = 0; i < kLists; ++i) {
    AcronymList list;
    std::set<std::string> plain;
    for (int step = 0; step < kSteps; ++step) {
      const std::string acronym = std::to_string(random() % 20);
      if (random() % 3 == 0) {
        list.add(acronym);
        plain.insert(acronym);
      }
      const std::string asked = std::to_string(random() % 20);
      ASSERT_EQ(list.has(asked), plain.contains(asked));
      ASSERT_EQ(list.empty(), plain.empty());
    }
  }
}

}  // namespace
}  // namespace quorbind::testing
