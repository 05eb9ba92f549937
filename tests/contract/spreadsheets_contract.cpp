#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "platform/spreadsheets.h"
#include "tests/contract/adapters.h"
#include "tests/samples/workshop_books.h"
#include "tests/support/raised_error.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/workbook_source.h"

namespace quorbind::testing {
namespace {

namespace fs = std::filesystem;

/// Runs with each kind of file that the sample workbook is kept in, read from the file and through
/// a spreadsheet program.
class SpreadsheetsContract : public ::testing::TestWithParam<WorkbookSource> {
 protected:
  void SetUp() override {
    fs::copy(fs::path(QUORBIND_SAMPLES) / "workshop" / ("books." + kind()),
             disk_.path() / ("books." + kind()));
  }

  [[nodiscard]] static std::string kind() { return extensionOf(GetParam().kind).substr(1); }
  [[nodiscard]] static std::string path() { return "C:\\books." + kind(); }
  std::int32_t errorOfOpening(std::string_view path) {
    return errorRaisedBy([&] { static_cast<void>(spreadsheets_.open(path)); });
  }

  TemporaryFolder disk_;
  std::unique_ptr<Adapters> adapters_ = makeAdapters(disk_.path());
  Spreadsheets& spreadsheets_ = (adapters_.get()->*GetParam().reader)();
};

INSTANTIATE_TEST_SUITE_P(Workbooks,
                         SpreadsheetsContract,
                         ::testing::ValuesIn(workbookSources()),
                         [](const auto& source) { return nameOf(source.param); });

TEST_P(SpreadsheetsContract, EveryCellDisplaysItsText) {
  const auto book = spreadsheets_.open(path());
  const auto expectSheet = [&book](std::int32_t number, const SampleSheet& expected) {
    const auto sheet = book->worksheet(number);
    for (std::size_t row = 0; row < expected.size(); ++row) {
      for (std::size_t column = 0; column < expected[row].size(); ++column) {
        EXPECT_EQ(sheet->cellText(static_cast<std::int32_t>(row + 1),
                                  static_cast<std::int32_t>(column + 1)),
                  expected[row][column])
            << "sheet " << number << ", row " << row + 1 << ", column " << column + 1;
      }
    }
  };
  expectSheet(1, workshopToc());
  expectSheet(2, workshopBookList());
}

TEST_P(SpreadsheetsContract, ACellBeyondWhatIsFilledIsEmpty) {
  const auto sheet = spreadsheets_.open(path())->worksheet(1);
  EXPECT_EQ(sheet->cellText(2, 1), "");
  EXPECT_EQ(sheet->cellText(23, 1), "");
  EXPECT_EQ(sheet->cellText(1, 9), "");
  EXPECT_EQ(sheet->cellText(60'000, 200), "");
}

TEST_P(SpreadsheetsContract, ASheetThatTheWorkbookDoesNotHaveRaises9) {
  const auto book = spreadsheets_.open(path());
  for (const std::int32_t number : {0, 3, -1}) {
    EXPECT_EQ(errorRaisedBy([&] { static_cast<void>(book->worksheet(number)); }), 9) << number;
  }
}

TEST_P(SpreadsheetsContract, ASheetOutlivesItsWorkbook) {
  auto book = spreadsheets_.open(path());
  const auto sheet = book->worksheet(2);
  book.reset();
  EXPECT_EQ(sheet->cellText(4, 2), "DRL");
}

TEST_P(SpreadsheetsContract, AWorkbookMayBeOpenTwiceAtATime) {
  const auto first = spreadsheets_.open(path());
  const auto second = spreadsheets_.open(path());
  EXPECT_EQ(first->worksheet(1)->cellText(3, 3), "The Lathe");
  EXPECT_EQ(second->worksheet(2)->cellText(5, 2), "SAW");
}

TEST_P(SpreadsheetsContract, ItsFileIsFoundInAnyLetterCaseAndLeftAsItWas) {
  const auto before = disk_.contents();
  EXPECT_EQ(spreadsheets_.open("C:\\BOOKS." + kind())->worksheet(1)->cellText(1, 1), "Node Level");
  EXPECT_EQ(disk_.contents(), before);
}

TEST_P(SpreadsheetsContract, WhatIsNoWorkbookRaises432) {
  disk_.write("text." + kind(), "no workbook");
  disk_.write("empty." + kind(), "");
  disk_.makeFolder("folder." + kind());
  for (const std::string name : {"missing.", "text.", "empty.", "folder."}) {
    EXPECT_EQ(errorOfOpening("C:\\" + name + kind()), 432) << name;
  }
}

TEST_P(SpreadsheetsContract, AWorkbookThatIsCutOffRaises432) {
  const std::string whole = disk_.read("books." + kind());
  disk_.write("half." + kind(), whole.substr(0, whole.size() / 2));
  EXPECT_EQ(errorOfOpening("C:\\half." + kind()), 432);
}

}  // namespace
}  // namespace quorbind::testing
