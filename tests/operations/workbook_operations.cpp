// The books of a worksheet that a host has open, as hosts have them counted.

#include "tests/operations/operations_test.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A worksheet whose levels begin in row 3.
PaperSheet sheetWithLevels(std::initializer_list<std::string> levels) {
  PaperSheet sheet{{"Node Level"}, {}};
  for (const std::string& level : levels) {
    sheet.push_back({level});
  }
  return sheet;
}

using WorkbookOperations = OperationsTest;

TEST_P(WorkbookOperations, CountTheBooksOfASheet) {
  EXPECT_EQ(call("getExcelBookCount", {sheetWithLevels({"1", "2", "2", "1", "3"}), 1}), "2");
  EXPECT_THAT(shown(), IsEmpty());
}

TEST_P(WorkbookOperations, CountNoBooksWhereTheThirdRowIsEmpty) {
  EXPECT_EQ(call("getExcelBookCount", {sheetWithLevels({"", "1"}), 1}), "0");
  EXPECT_EQ(call("getExcelBookCount", {PaperSheet(), 1}), "0");
  EXPECT_THAT(shown(), IsEmpty());
}

TEST_P(WorkbookOperations, EndACountAtABlankCellAndTrimTheOthers) {
  EXPECT_EQ(call("getExcelBookCount", {sheetWithLevels({" 1 ", "2", "1", " ", "1"}), 1}), "2");
  EXPECT_THAT(shown(), IsEmpty());
}

TEST_P(WorkbookOperations, CountInTheColumnThatTheHostNames) {
  const PaperSheet sheet{{}, {}, {"", "1"}, {"", "1"}, {"x", "1"}};
  EXPECT_EQ(call("getExcelBookCount", {sheet, 2}), "3");
  EXPECT_EQ(call("getExcelBookCount", {sheet, 1}), "0");
  EXPECT_THAT(shown(), IsEmpty());
}

TEST_P(WorkbookOperations, TellOfALevelThatIsNoneAndAnswerTheCountUpToIt) {
  expectRefused("getExcelBookCount",
                {sheetWithLevels({"1", "1", "x", "1"}), 1},
                "2",
                "critical: Row: 5 Column:1\nError:Node Level should be Integer");
}

TEST_P(WorkbookOperations, TellOfALevelBeyond16Bits) {
  expectRefused("getExcelBookCount",
                {sheetWithLevels({"1", "32768"}), 1},
                "1",
                "critical: Row: 4 Column:1\nError:Node Level should be Integer");
}

QUOR_IN_EVERY_WAY(WorkbookOperations);

}  // namespace
}  // namespace quorbind::testing
