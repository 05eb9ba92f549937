#include "platform/text_array.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/raised_error.h"

namespace quorbind::testing {
namespace {

TEST(TextArrays, CountTheirElementsFromTheLowerBound) {
  const TextArray array{{"a", "b"}, -1};
  EXPECT_EQ(array.upperBound(), 0);
  EXPECT_EQ(array.at(-1), "a");
  EXPECT_EQ(array.at(0), "b");
}

TEST(TextArrays, EndOneBelowTheirLowerBoundWithoutElements) {
  EXPECT_EQ(TextArray{}.upperBound(), -1);
  EXPECT_EQ((TextArray{{}, 3}.upperBound()), 2);
}

TEST(TextArrays, RaiseNineOutsideTheirBounds) {
  const TextArray array{{"a", "b"}, 3};
  for (const std::int64_t index : {2, 5, 0, -1}) {
    EXPECT_EQ(errorRaisedBy([&] { static_cast<void>(array.at(index)); }), 9) << index;
  }
}

TEST(TextArrays, AreSetUntilTheyAreSaidNotToBe) {
  EXPECT_EQ(errorRaisedBy([] { TextArray{}.requireSet(); }), 0);
  EXPECT_EQ(errorRaisedBy([] { TextArray::unset().requireSet(); }), 9);
  EXPECT_TRUE(TextArray::unset().texts.empty());
}

TEST(TextArrays, ReachToTheEndOfTheIndices) {
  const TextArray array{{"a", "b"}, std::numeric_limits<std::int32_t>::max()};
  EXPECT_EQ(array.at(array.upperBound()), "b");
}

}  // namespace
}  // namespace quorbind::testing
