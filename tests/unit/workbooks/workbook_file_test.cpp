#include "platform/workbooks/workbook_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

#include "tests/samples/workshop_books.h"
#include "tests/support/binary_workbook.h"
#include "tests/support/hostile_workbooks.h"
#include "tests/support/packed_file.h"
#include "tests/unit/workbooks/workbook_reading.h"

namespace quorbind::testing {
namespace {

using ::testing::AnyOf;
using ::testing::HasSubstr;

std::string sampleFile(const std::string& name) {
  std::ifstream file(std::filesystem::path(QUORBIND_SAMPLES) / "workshop" / name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void expectSheet(const WorkbookReading& reading, std::size_t sheet, const SampleSheet& expected) {
  constexpr std::int32_t kColumns = 9;
  for (std::size_t row = 0; row <= expected.size(); ++row) {
    for (std::int32_t column = 1; column <= kColumns; ++column) {
      const auto index = static_cast<std::size_t>(column - 1);
      const bool isThere = row < expected.size() && index < expected[row].size();
      EXPECT_EQ(reading.texts->cellText(sheet, static_cast<std::int32_t>(row) + 1, column),
                isThere ? expected[row][index] : "")
          << "row " << row + 1 << ", column " << column;
    }
  }
}

class WorkbookFile : public ::testing::Test {
 protected:
  WorkbookReader reader_;
};

TEST_F(WorkbookFile, BothSamplesShowWhatTheyWereMadeOf) {
  for (const std::string name : {"books.xlsx", "books.xls"}) {
    SCOPED_TRACE(name);
    const WorkbookReading reading = reader_.read(sampleFile(name));
    ASSERT_TRUE(reading) << reading.reason;
    EXPECT_EQ(reading.texts->sheets.size(), 2U);
    expectSheet(reading, 0, workshopToc());
    expectSheet(reading, 1, workshopBookList());
  }
}

TEST_F(WorkbookFile, AFileOfAnotherKindIsRefused) {
  EXPECT_EQ(reader_.reasonFor("\"1\" \"Alarms\" \"a.htm\" \"\""), "The file is no workbook.");
  EXPECT_EQ(reader_.reasonFor(std::string(5000, '\0')), "The file is no workbook.");
  EXPECT_EQ(reader_.reasonFor("<html><table/></html>"), "The file is no workbook.");
  EXPECT_EQ(reader_.reasonFor(compoundFile({{"WordDocument", "letter"}})),
            "The file is no workbook.");
}

TEST_F(WorkbookFile, AnEmptyFileIsRefused) {
  EXPECT_EQ(reader_.reasonFor(""), "The file is empty.");
}

TEST_F(WorkbookFile, AnEncryptedWorkbookIsRefused) {
  EXPECT_EQ(reader_.reasonFor(encryptedWorkbook()), "The workbook is encrypted.");
}

TEST_F(WorkbookFile, AMissingFileIsRefusedWithTheErrorOfTheFileSystem) {
  TemporaryFolder disk;
  const auto adapters = makeAdapters(disk.path());
  disk.makeFolder("book.xlsx");
  EXPECT_EQ(readWorkbookFile(adapters->files(), adapters->xml(), "C:\\none.xlsx").reason,
            "File not found");
  EXPECT_EQ(readWorkbookFile(adapters->files(), adapters->xml(), "C:\\book.xlsx").reason,
            "Path/File access error");
}

TEST_F(WorkbookFile, ASampleThatIsCutOffIsRefused) {
  for (const std::string name : {"books.xlsx", "books.xls"}) {
    const std::string whole = sampleFile(name);
    for (const std::size_t part : {1U, 2U, 3U, 5U, 9U}) {
      EXPECT_THAT(reader_.reasonFor(whole.substr(0, whole.size() * part / 10)),
                  AnyOf(HasSubstr("cut off"), HasSubstr("damaged")))
          << name << ", " << part << " tenths";
    }
  }
}

/// Damage must end in a refusal or in texts, never in anything else; what it ends in, the damage
/// decides.
TEST_F(WorkbookFile, DamagedSamplesAreReadOrRefused) {
  std::mt19937 random(20260102);
  int refused = 0;
  for (const std::string name : {"books.xlsx", "books.xls"}) {
    const std::string whole = sampleFile(name);
    for (int round = 0; round < 150; ++round) {
      std::string damaged = whole;
      for (unsigned spots = 1 + random() % 8; spots > 0; --spots) {
        damaged[random() % damaged.size()] = static_cast<char>(random());
      }
      const WorkbookReading reading = reader_.read(damaged);
      EXPECT_NE(reading.texts == nullptr, reading.reason.empty());
      refused += reading ? 0 : 1;
    }
  }
  EXPECT_GT(refused, 50);
}

/// The same behind the packing, where damage is found by checksums otherwise.
TEST_F(WorkbookFile, DamagedPartsAreReadOrRefused) {
  const std::string rows =
      "<row r=\"1\" spans=\"1:3\"><c r=\"A1\" s=\"1\"><v>44197.5</v></c><c r=\"B1\" t=\"s\"><v>0"
      "</v></c><c r=\"C1\" t=\"inlineStr\"><is><t>a_x0041_</t></is></c></row>";
  const std::string texts = "<si><r><t>one</t></r><rPh><t>two</t></rPh></si>";
  const std::string styles =
      "<numFmts><numFmt numFmtId=\"164\" formatCode=\"[>1]#,##0.0E+0;# ?/?;[h]:mm:ss.00 AM/PM;@\"/>"
      "</numFmts><cellXfs><xf numFmtId=\"0\"/><xf numFmtId=\"164\"/></cellXfs>";
  std::mt19937 random(20260102);
  const auto damaged = [&random](std::string text) {
    constexpr std::string_view kMarks = "<>/=\"09AZ#?@;[]:.,%E+-h \xC3";
    text[random() % text.size()] = kMarks[random() % kMarks.size()];
    return text;
  };
  int readWell = 0;
  for (int round = 0; round < 600; ++round) {
    const int which = round % 3;
    const WorkbookReading reading =
        reader_.read(PackedWorkbook()
                         .sheet(which == 0 ? damaged(rows) : rows)
                         .sharedTexts(which == 1 ? damaged(texts) : texts)
                         .styles(which == 2 ? damaged(styles) : styles)
                         .bytes());
    EXPECT_NE(reading.texts == nullptr, reading.reason.empty());
    readWell += reading ? 1 : 0;
  }
  EXPECT_GT(readWell, 100);
}

}  // namespace
}  // namespace quorbind::testing
