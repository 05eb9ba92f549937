#include "platform/windows/excel_automation.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "platform/windows/automation.h"
#include "platform/windows/msxml_library.h"
#include "platform/windows/windows_file_system.h"
#include "platform/windows/windows_spreadsheets.h"
#include "tests/support/raised_error.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/windows/workbook_server.h"
#include "toc/read_once_spreadsheets.h"

namespace quorbind::testing {
namespace {

namespace fs = std::filesystem;

class ExcelAutomation : public ::testing::Test {
 protected:
  ExcelAutomation() {
    for (const std::string kind : {"xlsx", "xls"}) {
      fs::copy(fs::path(QUORBIND_SAMPLES) / "workshop" / ("books." + kind),
               disk_.path() / ("books." + kind));
    }
  }

  [[nodiscard]] std::string path(const std::string& name) const {
    return toUtf8((fs::absolute(disk_.path()) / name).make_preferred().wstring());
  }

 private:
  ComApartment apartment_;

 protected:
  TemporaryFolder disk_;
  WorkbookServer server_;
  ExcelSpreadsheets excel_;
};

TEST_F(ExcelAutomation, OpensTheObjectOfAFileForReading) {
  for (const std::string name : {"books.xlsx", "books.xls"}) {
    const auto book = excel_.open(path(name));
    EXPECT_EQ(server_.lastMode(), static_cast<std::uint32_t>(STGM_READ));
    EXPECT_EQ(book->worksheet(1)->cellText(3, 3), "The Lathe");
    EXPECT_EQ(book->worksheet(2)->cellText(5, 2), "SAW");
  }
}

TEST_F(ExcelAutomation, LetsGoOfEverythingItHasUsed) {
  {
    const auto book = excel_.open(path("books.xlsx"));
    EXPECT_GT(server_.objectsInUse(), 0);
    book->worksheet(1)->cellText(1, 1);
    EXPECT_EQ(errorRaisedBy([&] { static_cast<void>(book->worksheet(9)); }), 9);
  }
  EXPECT_EQ(server_.objectsInUse(), 0);
}

TEST_F(ExcelAutomation, LetsGoOfAFileThatCanNotBeOpened) {
  disk_.write("text.xlsx", "no workbook");
  EXPECT_EQ(errorRaisedBy([&] { static_cast<void>(excel_.open(path("text.xlsx"))); }), 432);
  EXPECT_EQ(server_.objectsInUse(), 0);
}

TEST_F(ExcelAutomation, NamesThatNoFileCanHaveRaise432) {
  for (const std::string name : {"", "NUL", "no:such|file.xlsx"}) {
    EXPECT_EQ(errorRaisedBy([&] { static_cast<void>(excel_.open(name)); }), 432) << name;
  }
}

TEST_F(ExcelAutomation, ReadOnceAsksTheProgramForEachCellOnce) {
  ReadOnceSpreadsheets once(excel_);
  for (int round = 0; round < 3; ++round) {
    const auto sheet = once.open(path("books.xlsx"))->worksheet(1);
    for (std::int32_t row = 1; row < 25; ++row) {
      sheet->cellText(row, 1);
    }
  }
  EXPECT_EQ(server_.mostAsked(), 1);
}

TEST_F(ExcelAutomation, AWorksheetThatAHostHandsInIsWrapped) {
  {
    const auto sheet = wrapWorksheet(server_.sheetOf(path("books.xls"), 2));
    EXPECT_EQ(sheet->cellText(4, 2), "DRL");
  }
  EXPECT_EQ(server_.objectsInUse(), 0);
}

TEST_F(ExcelAutomation, NoWorksheetRaises91) {
  EXPECT_EQ(errorRaisedBy([] { static_cast<void>(wrapWorksheet({})); }), 91);
}

TEST_F(ExcelAutomation, WhatIsNoWorksheetRaises438) {
  const auto dictionary = AutomationObject::create("Scripting.Dictionary");
  const auto sheet = wrapWorksheet(dictionary.object());
  EXPECT_EQ(errorRaisedBy([&] { sheet->cellText(1, 1); }), 438);
}

TEST_F(ExcelAutomation, TheProgramComesFirstWhereItIsInstalled) {
  WindowsFileSystem files;
  MsxmlLibrary xml(files);
  WindowsSpreadsheets spreadsheets(files, xml);
  EXPECT_TRUE(isExcelInstalled());
  const auto book = spreadsheets.open(path("books.xlsx"));
  EXPECT_GT(server_.objectsInUse(), 0);
  EXPECT_EQ(book->worksheet(1)->cellText(1, 1), "Node Level");
}

TEST(WindowsSpreadsheets, ReadsTheFileWhereNoProgramIsInstalled) {
  const ComApartment apartment;
  TemporaryFolder disk;
  fs::copy(fs::path(QUORBIND_SAMPLES) / "workshop" / "books.xls", disk.path() / "books.xls");
  WindowsFileSystem files;
  MsxmlLibrary xml(files);
  WindowsSpreadsheets spreadsheets(files, xml);
  ASSERT_FALSE(isExcelInstalled());
  const std::string path =
      toUtf8((fs::absolute(disk.path()) / "books.xls").make_preferred().wstring());
  EXPECT_EQ(spreadsheets.open(path)->worksheet(2)->cellText(3, 2), "LTH");
}

}  // namespace
}  // namespace quorbind::testing
