#include "bookxml/c_sort.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>

#include "tests/support/world.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Sort : public ::testing::Test {
 protected:
  std::vector<std::string> sort(std::vector<std::string> names) {
    const auto high = static_cast<std::int32_t>(names.size()) - 1;
    return sort(std::move(names), 0, high);
  }
  std::vector<std::string> sort(std::vector<std::string> names,
                                std::int32_t low,
                                std::int32_t high) {
    const std::vector<std::string> result = cSort(world_.platform()).mQuickSort(names, low, high);
    EXPECT_EQ(result, names) << "the array is sorted in place as well";
    return result;
  }
  /// `count` random names of few letters, so that many are equal but for their case.
  std::vector<std::string> randomNames(std::size_t count) {
    std::vector<std::string> names(count);
    for (std::string& name : names) {
      name = {"abAB"[random_() % 4], "abAB"[random_() % 4], "xyXY"[random_() % 4]};
    }
    return names;
  }
  [[nodiscard]] bool isSorted(const std::vector<std::string>& names) const {
    return std::is_sorted(names.begin(), names.end(), [this](const auto& a, const auto& b) {
      return world_.platform().locale.compareText(a, b) < 0;
    });
  }

  World world_;
  std::mt19937 random_{20260102};
};

TEST_F(Sort, IgnoresLetterCaseAndKeepsEqualNamesInOrderInAShortRange) {
  EXPECT_THAT(sort({"apple", "Banana", "APPLE", "cherry"}),
              ElementsAre("apple", "APPLE", "Banana", "cherry"));
}

TEST_F(Sort, ChangesNothingWhenTheLowerBoundIsNotBelowTheUpper) {
  EXPECT_THAT(sort({"b", "a"}, 0, 0), ElementsAre("b", "a"));
  EXPECT_THAT(sort({"b", "a"}, 1, 0), ElementsAre("b", "a"));
  EXPECT_THAT(sort({}, 0, -1), IsEmpty());
}

TEST_F(Sort, LeavesTheElementsOutsideTheRangeInPlace) {
  EXPECT_THAT(sort({"z", "c", "b", "a", "0"}, 1, 3), ElementsAre("z", "a", "b", "c", "0"));
}

TEST_F(Sort, IsStableForThirteenElements) {
  std::vector<std::string> names = randomNames(13);
  std::vector<std::string> expected = names;
  std::stable_sort(expected.begin(), expected.end(), [this](const auto& a, const auto& b) {
    return world_.platform().locale.compareText(a, b) < 0;
  });
  EXPECT_EQ(sort(names), expected);
}

// The partition copies the first element to the middle and exchanges from both ends, which the
// order of equal names in the result gives away; a bubble sort would have kept it.
TEST_F(Sort, PartitionsARangeOfFourteenElementsFirst) {
  std::vector<std::string> names(14, "a");
  names.front() = "A";
  std::vector<std::string> sorted = sort(names);
  EXPECT_NE(sorted.front(), "A");
  names.pop_back();
  EXPECT_EQ(sort(names).front(), "A");
}

TEST_F(Sort, SortsLongRandomArraysAndLosesNoName) {
  for (std::size_t count = 1; count < 400; count += 7) {
    std::vector<std::string> names = randomNames(count);
    std::vector<std::string> sorted = sort(names);
    EXPECT_TRUE(isSorted(sorted));
    std::sort(names.begin(), names.end());
    std::sort(sorted.begin(), sorted.end());
    EXPECT_EQ(sorted, names);
  }
  EXPECT_THAT(world_.user.record(), IsEmpty());
}

TEST_F(Sort, SortsArraysThatAreSortedReversedOrAllEqual) {
  std::vector<std::string> names;
  for (int i = 0; i < 5000; ++i) {
    names.push_back(std::to_string(10000 + i));
  }
  EXPECT_EQ(sort(names), names);
  EXPECT_EQ(sort(std::vector<std::string>(names.rbegin(), names.rend())), names);
  EXPECT_EQ(sort(std::vector<std::string>(5000, "same")), std::vector<std::string>(5000, "same"));
}

TEST_F(Sort, ReportsBoundsOutsideTheArrayOnceAndLosesNoName) {
  const std::vector<std::string> names{"b", "a", "c"};
  std::vector<std::string> sorted = sort(names, 0, 50);
  EXPECT_THAT(world_.user.record(),
              ElementsAre("critical: Error(9): Subscript out of range\r"
                          "Quor_Developer-frmSelPrjTypetoAdd::mlPartition"));
  EXPECT_EQ(sorted, names);

  world_.user.forget();
  sorted = sort(names, 0, 5);
  EXPECT_THAT(world_.user.record(),
              ElementsAre("critical: Error(9): Subscript out of range\r"
                          "Quor_Developer-frmSelPrjTypetoAdd::bubbleSort"));
  std::sort(sorted.begin(), sorted.end());
  EXPECT_THAT(sorted, ElementsAre("a", "b", "c"));
}

TEST_F(Sort, ReportsBoundsThatAreTooFarApartToReckonWith) {
  sort({"b", "a"}, -2, std::numeric_limits<std::int32_t>::max());
  EXPECT_THAT(world_.user.record(),
              ElementsAre("critical: Error(6): Overflow\r"
                          "Quorbind:Quor_Developer-frmSelPrjTypetoAdd::mQuickSort"));
}

}  // namespace
}  // namespace quorbind::testing
