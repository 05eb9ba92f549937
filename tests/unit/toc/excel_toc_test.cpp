#include "toc/excel_toc.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/excel_sheets.h"
#include "tests/support/raised_error.h"
#include "tests/support/world.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A sheet with these levels from row 3 on.
std::unique_ptr<Worksheet> sheetWithLevels(const std::vector<std::string>& levels) {
  PaperSheet rows{{}, {}};
  for (const std::string& level : levels) {
    rows.push_back({level});
  }
  return looseSheet(rows);
}

// Counting books

TEST(CountExcelBooks, CountsTheLevels1ToTheFirstEmptyCell) {
  const auto sheet = sheetWithLevels({"1", "2", "2", "1", "3", "", "1"});
  const ExcelBookCount count = countExcelBooks(*sheet, 1);
  EXPECT_EQ(count.books, 2);
  EXPECT_FALSE(count.violation);
}

TEST(CountExcelBooks, AnEmptyCellInRow3GivesNone) {
  EXPECT_EQ(countExcelBooks(*sheetWithLevels({""}), 1).books, 0);
  EXPECT_EQ(countExcelBooks(*sheetWithLevels({"  ", "1"}), 1).books, 0);
}

TEST(CountExcelBooks, EndsAtACellThatIsNoLevelAndTellsItsPlace) {
  const ExcelBookCount count = countExcelBooks(*sheetWithLevels({"1", "1", " x ", "1"}), 1);
  EXPECT_EQ(count.books, 2);
  ASSERT_TRUE(count.violation);
  EXPECT_EQ(count.violation->row, 5);
  EXPECT_EQ(count.violation->column, 1);
  EXPECT_EQ(count.violation->violation.message,
            "Row: 5 Column:1\rError:Node Level should be Integer");
  EXPECT_TRUE(count.violation->violation.offersLine);
  EXPECT_EQ(count.violation->cellText, " x ");
}

TEST(CountExcelBooks, ReadsTheColumnThatItIsGiven) {
  const auto sheet = looseSheet({{}, {}, {"2", "", "", "1"}, {"2", "", "", "1"}});
  EXPECT_EQ(countExcelBooks(*sheet, 4).books, 2);
  EXPECT_EQ(countExcelBooks(*sheet, 1).books, 0);
}

TEST(CountExcelBooks, ANumberBeyond16BitsIsNoLevel) {
  EXPECT_TRUE(countExcelBooks(*sheetWithLevels({"1", "40000"}), 1).violation);
}

TEST(CountExcelBooks, ADateIsNoLevel) {
  EXPECT_TRUE(countExcelBooks(*sheetWithLevels({"1", "1/1/2021"}), 1).violation);
}

TEST(CountExcelBooks, HasRoomForMoreRowsThanABookMayHave) {
  const auto sheet = sheetWithLevels(std::vector<std::string>(40'000, "1"));
  EXPECT_EQ(countExcelBooks(*sheet, 1).books, 40'000);
}

// Row marks

TEST(ExcelRowMark, BeginsAtTheFirstRowAndGoesOnBehindAnyOther) {
  ExcelRowMark mark;
  EXPECT_EQ(mark.row(), 3);
  EXPECT_EQ(mark.next(), 3);
  mark.setRow(7);
  EXPECT_EQ(mark.next(), 8);
  mark.endAbove(7);
  EXPECT_EQ(mark.row(), 6);
}

TEST(ExcelRowMark, TheRowBehindTheLastOf16BitsOverflows) {
  ExcelRowMark mark;
  mark.setRow(32'767);
  EXPECT_EQ(errorRaisedBy([&] { static_cast<void>(mark.next()); }), 6);
  EXPECT_EQ(rowBelow(32'766), 32'767);
}

// Levels

class ReadLevels : public ::testing::Test {
 protected:
  std::optional<ExcelTocViolation> read(const std::vector<std::string>& levels) {
    return readExcelLevels(*sheetWithLevels(levels), 1, mark_, previousLevel_);
  }

  ExcelRowMark mark_;
  std::int16_t previousLevel_ = 0;
};

TEST_F(ReadLevels, EndAtABlankCell) {
  EXPECT_FALSE(read({"1", "2", "3", " ", "2"}));
  EXPECT_EQ(mark_.row(), 5);
  EXPECT_EQ(previousLevel_, 3);
}

TEST_F(ReadLevels, EndBeforeTheNextLevel1WhichIsReadAsWell) {
  EXPECT_FALSE(read({"1", "2", "1", "2"}));
  EXPECT_EQ(mark_.row(), 4);
  EXPECT_EQ(previousLevel_, 1);
}

TEST_F(ReadLevels, OfTheSecondBookBeginBehindTheFirst) {
  const std::vector<std::string> levels{"1", "2", "1", "2", "2"};
  EXPECT_FALSE(read(levels));
  EXPECT_FALSE(read(levels));
  EXPECT_EQ(mark_.row(), 7);
}

TEST_F(ReadLevels, MayFollowEachOtherInAnySequence) {
  EXPECT_FALSE(read({"1", "5", "-3", "0", "2"}));
  EXPECT_EQ(mark_.row(), 7);
  EXPECT_EQ(previousLevel_, 2);
}

TEST_F(ReadLevels, AreReadAsPeopleWriteNumbers) {
  EXPECT_FALSE(read({"1.0", " 2 ", "2.5", "1e0"}));
  EXPECT_EQ(mark_.row(), 5);
  EXPECT_EQ(previousLevel_, 1);
}

TEST_F(ReadLevels, ThatAreNoneAreRefusedAndTheMarkStays) {
  const auto violation = read({"1", "2", "x"});
  ASSERT_TRUE(violation);
  EXPECT_EQ(violation->row, 5);
  EXPECT_EQ(violation->column, 1);
  EXPECT_EQ(violation->violation.message, "Row: 5 Column:1\rError:Node Level should be Integer");
  EXPECT_EQ(violation->cellText, "x");
  EXPECT_EQ(mark_.row(), 3);
  EXPECT_EQ(previousLevel_, 2);
}

TEST_F(ReadLevels, OfASecondBookAreReadFromTheFirstRowWhenTheFirstBookHadOneRow) {
  const std::vector<std::string> levels{"1", "1", "2"};
  EXPECT_FALSE(read(levels));
  EXPECT_EQ(mark_.row(), 3);
  EXPECT_FALSE(read(levels));
  EXPECT_EQ(mark_.row(), 3);
}

TEST_F(ReadLevels, MayReachRow32766) {
  std::vector<std::string> levels(32'764, "2");
  EXPECT_FALSE(read(levels));
  EXPECT_EQ(mark_.row(), 32'766);
}

TEST_F(ReadLevels, OverflowAtRow32768) {
  const std::vector<std::string> levels(32'765, "2");
  EXPECT_EQ(errorRaisedBy([&] { static_cast<void>(read(levels)); }), 6);
}

// Other columns

class ReadColumn : public ::testing::Test {
 protected:
  void read(const std::vector<std::string>& cells, std::int16_t lastRow) {
    visited_.clear();
    readExcelColumn(*sheetWithLevels(cells),
                    1,
                    lastRow,
                    mark_,
                    [this](std::int16_t row, const std::string& text) {
                      visited_.push_back(std::to_string(row) + "=" + text);
                    });
  }

  ExcelRowMark mark_;
  std::vector<std::string> visited_;
};

TEST_F(ReadColumn, EndsAtTheLastRowOfTheBook) {
  read({"a", "b", "c"}, 4);
  EXPECT_THAT(visited_, ElementsAre("3=a", "4=b"));
  EXPECT_EQ(mark_.row(), 4);
}

TEST_F(ReadColumn, EndsAtABlankCellWhichTheVisitorSees) {
  read({"a", " ", "c"}, 5);
  EXPECT_THAT(visited_, ElementsAre("3=a", "4= "));
  EXPECT_EQ(mark_.row(), 3);
}

TEST_F(ReadColumn, GoesOnBehindTheBookBefore) {
  mark_.setRow(4);
  read({"a", "b", "c", "d"}, 6);
  EXPECT_THAT(visited_, ElementsAre("5=c", "6=d"));
  EXPECT_EQ(mark_.row(), 6);
}

TEST_F(ReadColumn, BehindTheLastRowReadsNothing) {
  mark_.setRow(6);
  read({"a"}, 5);
  EXPECT_THAT(visited_, IsEmpty());
  EXPECT_EQ(mark_.row(), 6);
}

// The walk

class Steps final : public ExcelTocListener {
 public:
  bool levels() override { return note("levels"); }
  bool names() override { return note("names"); }
  bool files() override { return note("files"); }
  void book(std::int32_t number) override { note("book " + std::to_string(number)); }
  void refused(Message message) override {
    note("refused " + std::to_string(static_cast<int>(message)));
  }
  void failAt(std::string step) { failing_ = std::move(step); }

  [[nodiscard]] const std::vector<std::string>& taken() const { return taken_; }

 private:
  bool note(const std::string& step) {
    taken_.push_back(step);
    return step != failing_;
  }

  std::vector<std::string> taken_;
  std::string failing_;
};

class WalkExcelToc : public ::testing::Test {
 protected:
  bool walk(std::vector<std::string> header, std::int32_t books = 1) {
    return walkExcelToc(*looseSheet({std::move(header)}), world_.locale, books, steps_);
  }

  World world_;
  Steps steps_;
};

TEST_F(WalkExcelToc, TakesTheStepsOfEachBookInOrder) {
  EXPECT_TRUE(walk({"NODE LEVEL", "", "NODE NAME", "", "FILE NAME", "", "SUB LINK"}, 2));
  EXPECT_THAT(
      steps_.taken(),
      ElementsAre("levels", "names", "files", "book 1", "levels", "names", "files", "book 2"));
}

TEST_F(WalkExcelToc, TakesHeadersInAnyLetterCase) {
  EXPECT_TRUE(walk({"Node level", "", "Node Name", "", "file name"}));
}

TEST_F(WalkExcelToc, DoesNotAskForTheHeaderOfTheSubLinks) {
  EXPECT_TRUE(walk({"NODE LEVEL", "", "NODE NAME", "", "FILE NAME", "", "anything"}));
}

TEST_F(WalkExcelToc, EndsAtAMissingHeaderBehindTheColumnsBefore) {
  EXPECT_FALSE(walk({"NODE LEVELS", "", "NODE NAME", "", "FILE NAME"}));
  EXPECT_FALSE(walk({"NODE LEVEL", "", " NODE NAME", "", "FILE NAME"}));
  EXPECT_FALSE(walk({"NODE LEVEL", "", "NODE NAME"}));
  EXPECT_THAT(
      steps_.taken(),
      ElementsAre("refused 143", "levels", "refused 144", "levels", "names", "refused 145"));
}

TEST_F(WalkExcelToc, EndsAtAStepThatSaysNo) {
  steps_.failAt("names");
  EXPECT_FALSE(walk({"NODE LEVEL", "", "NODE NAME", "", "FILE NAME"}, 2));
  EXPECT_THAT(steps_.taken(), ElementsAre("levels", "names"));
}

TEST_F(WalkExcelToc, WithoutBooksAsksForNothing) {
  EXPECT_TRUE(walk({}, 0));
  EXPECT_THAT(steps_.taken(), IsEmpty());
}

// Lists

TEST(ExcelList, IsSplitAtSemicolonsOrElseAtCommas) {
  EXPECT_THAT(excelListOf("a;b,c; d"), ElementsAre("a", "b,c", " d"));
  EXPECT_THAT(excelListOf("a,b"), ElementsAre("a", "b"));
  EXPECT_THAT(excelListOf("a"), ElementsAre("a"));
  EXPECT_THAT(excelListOf("a;;b"), ElementsAre("a", "", "b"));
  EXPECT_THAT(excelListOf(""), IsEmpty());
}

}  // namespace
}  // namespace quorbind::testing
