#include "sidefiles/category_sort.h"

#include <random>

#include "tests/unit/sidefiles/side_file_test.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SortNames : public SideFileTest {
 protected:
  TextArray sort() { return SortArray(platform(), names_, acronyms_); }

  TextArray names_;
  TextArray acronyms_;
};

TEST_F(SortNames, MovesTheAcronymsWithTheNamesAndLeavesThePlaceholder) {
  names_ = {{"", "b", "A", "c"}};
  acronyms_ = {{"", "2", "1", "3"}};
  const TextArray result = sort();
  EXPECT_THAT(names_.texts, ElementsAre("", "A", "b", "c"));
  EXPECT_THAT(acronyms_.texts, ElementsAre("", "1", "2", "3"));
  EXPECT_THAT(result.texts, ElementsAre("", "1", "2", "3"));
  EXPECT_EQ(result.lowerBound, 0);
}

TEST_F(SortNames, KeepsTheOrderOfEqualNamesWhateverTheirLetterCase) {
  names_ = {{"z", "b", "a", "B", "A"}};
  acronyms_ = {{"", "1", "2", "3", "4"}};
  sort();
  EXPECT_THAT(names_.texts, ElementsAre("z", "a", "A", "b", "B"));
  EXPECT_THAT(acronyms_.texts, ElementsAre("", "2", "4", "1", "3"));
}

TEST_F(SortNames, ChangesNothingInArraysWithoutEntries) {
  EXPECT_THAT(sort().texts, IsEmpty());
  names_ = {{"b"}};
  acronyms_ = {{"1"}};
  EXPECT_THAT(sort().texts, ElementsAre("1"));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(SortNames, PassesOverAcronymsThatAreNotThere) {
  names_ = {{"", "d", "c", "b", "a"}};
  acronyms_ = {{"", "1", "2"}};
  const TextArray result = sort();
  EXPECT_THAT(names_.texts, ElementsAre("", "a", "b", "c", "d"));
  // The two that are there change places each time the names in these places do.
  EXPECT_THAT(result.texts, ElementsAre("", "2", "1"));
  EXPECT_THAT(boxes(), IsEmpty());
}

// The indices of the sort count from 1 and go as far as the array is long, whatever its bounds.
TEST_F(SortNames, LeavesTheLastElementOfAnArrayFromOne) {
  names_ = {{"c", "b", "a"}, 1};
  acronyms_ = {{"3", "2", "1"}, 1};
  EXPECT_THAT(sort().texts, ElementsAre("2", "3", "1"));
  EXPECT_THAT(names_.texts, ElementsAre("b", "c", "a"));
}

TEST_F(SortNames, CountsAComparisonThatFailsAsOneThatAsksForTheExchange) {
  names_ = {{"", "a"}, -1};  // there is no element 1
  acronyms_ = {{"0", "1", "2"}};
  EXPECT_THAT(sort().texts, ElementsAre("0", "1", "2")) << "indices 1 to 1: nothing to compare";
  names_ = {{"", "a", "b"}, -1};
  EXPECT_THAT(sort().texts, ElementsAre("0", "2", "1")) << "the names 1 and 2 are not both there";
  EXPECT_THAT(names_.texts, ElementsAre("", "a", "b"));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(SortNames, ShowsNoErrorWhenNothingCanBeCompared) {
  world_.locale.breakDown();
  names_ = {{"", "a", "b", "c"}};
  acronyms_ = {{"", "1", "2", "3"}};
  EXPECT_THAT(sort().texts, ElementsAre("", "3", "2", "1")) << "every exchange takes place";
  EXPECT_THAT(boxes(), IsEmpty());
}

/// The sort as it was published.
TextArray bubbleSort(const Locale& locale, TextArray& names, TextArray& acronyms) {
  const std::int64_t upper = names.upperBound();
  for (std::int64_t i = names.lowerBound + std::int64_t{1}; i <= upper; ++i) {
    for (std::int64_t j = 1; j <= upper - i; ++j) {
      const bool inside = j >= names.lowerBound && j + 1 <= upper;
      const bool greater = !inside || locale.compareText(locale.upperCase(names.at(j)),
                                                         locale.upperCase(names.at(j + 1))) > 0;
      if (greater && inside) {
        std::swap(names.at(j), names.at(j + 1));
      }
      if (greater && j >= acronyms.lowerBound && j + 1 <= acronyms.upperBound()) {
        std::swap(acronyms.at(j), acronyms.at(j + 1));
      }
    }
  }
  return acronyms;
}

TEST_F(SortNames, LeavesWhatThePublishedSortLeavesForArraysOfEveryShape) {
  std::mt19937 random(20260102);
  const auto below = [&random](unsigned bound) { return static_cast<unsigned>(random()) % bound; };
  for (int round = 0; round < 2000; ++round) {
    const auto fill = [&](const char* letters) {
      TextArray array;
      array.texts.resize(below(9));
      array.lowerBound = static_cast<std::int32_t>(below(5)) - 2;
      array.lowerBound = below(2) == 0 ? 0 : array.lowerBound;
      for (std::string& text : array.texts) {
        text = {letters[below(4)], letters[below(4)]};
      }
      return array;
    };
    names_ = fill("aAbB");
    acronyms_ = fill("1234");
    acronyms_.texts.resize(below(4) == 0 ? acronyms_.texts.size() : names_.texts.size(), "x");
    TextArray names = names_;
    TextArray acronyms = acronyms_;
    const TextArray expected = bubbleSort(platform().locale, names, acronyms);
    EXPECT_EQ(sort().texts, expected.texts) << "round " << round;
    EXPECT_EQ(names_.texts, names.texts) << "round " << round;
    EXPECT_EQ(acronyms_.texts, acronyms.texts) << "round " << round;
  }
}

}  // namespace
}  // namespace quorbind::testing
