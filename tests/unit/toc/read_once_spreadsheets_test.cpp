#include "toc/read_once_spreadsheets.h"

#include <gtest/gtest.h>

#include "tests/support/excel_sheets.h"
#include "tests/support/raised_error.h"

namespace quorbind::testing {
namespace {

class ReadOnce : public ::testing::Test {
 protected:
  ReadOnce() { paper_.put("C:\\book.xls", {{{"a", "b"}}, {{"c"}}}); }

  PaperSpreadsheets paper_;
};

TEST_F(ReadOnce, OpensAWorkbookOnceAndAsksEachCellOnce) {
  ReadOnceSpreadsheets once(paper_);
  for (int round = 0; round < 3; ++round) {
    const auto book = once.open("C:\\book.xls");
    EXPECT_EQ(book->worksheet(1)->cellText(1, 1), "a");
    EXPECT_EQ(book->worksheet(1)->cellText(1, 2), "b");
    EXPECT_EQ(book->worksheet(2)->cellText(1, 1), "c");
    EXPECT_EQ(book->worksheet(2)->cellText(9, 9), "");
  }
  EXPECT_EQ(paper_.timesOpened(), 1);
  EXPECT_EQ(paper_.mostAsked(), 1);
}

TEST_F(ReadOnce, ClosesWhatItOpenedAtItsEnd) {
  {
    ReadOnceSpreadsheets once(paper_);
    static_cast<void>(once.open("C:\\book.xls"));
    EXPECT_EQ(paper_.openNow(), 1);
  }
  EXPECT_EQ(paper_.openNow(), 0);
}

TEST_F(ReadOnce, ASheetOutlivesItAndItsWorkbook) {
  std::unique_ptr<Worksheet> sheet;
  {
    ReadOnceSpreadsheets once(paper_);
    sheet = once.open("C:\\book.xls")->worksheet(2);
  }
  EXPECT_EQ(sheet->cellText(1, 1), "c");
}

TEST_F(ReadOnce, RaisesWhatItsSpreadsheetsRaise) {
  ReadOnceSpreadsheets once(paper_);
  EXPECT_EQ(errorRaisedBy([&] { static_cast<void>(once.open("C:\\none.xls")); }), 432);
  const auto book = once.open("C:\\book.xls");
  EXPECT_EQ(errorRaisedBy([&] { static_cast<void>(book->worksheet(3)); }), 9);
  paper_.failAt(1, 1);
  EXPECT_EQ(errorRaisedBy([&] { book->worksheet(1)->cellText(1, 1); }), 57);
}

TEST_F(ReadOnce, AWorkbookThatCouldNotBeOpenedIsTriedAgain) {
  ReadOnceSpreadsheets once(paper_);
  EXPECT_EQ(errorRaisedBy([&] { static_cast<void>(once.open("C:\\late.xls")); }), 432);
  paper_.put("C:\\late.xls", {{{"late"}}});
  EXPECT_EQ(once.open("C:\\late.xls")->worksheet(1)->cellText(1, 1), "late");
}

}  // namespace
}  // namespace quorbind::testing
