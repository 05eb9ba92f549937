#include "platform/workbooks/xls_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <string>

#include "tests/support/binary_workbook.h"
#include "tests/support/little_endian.h"
#include "tests/unit/workbooks/workbook_reading.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using namespace std::string_literals;

constexpr std::uint16_t kFormula = 0x0006;
constexpr std::uint16_t kFormulaText = 0x0207;
constexpr std::uint16_t kContinue = 0x003C;
constexpr std::uint16_t kStyle = 0x00E0;
constexpr std::uint16_t kFormat = 0x041E;
constexpr std::uint16_t kDateMode = 0x0022;
constexpr std::uint16_t kEncrypted = 0x002F;
constexpr std::uint16_t kSharedTexts = 0x00FC;

std::string style(std::uint16_t format) {
  return littleEndian<2>(0) + littleEndian<2>(format) + std::string(16, '\0');
}

/// A formula's record whose value is the eight bytes given.
std::string formula(std::uint16_t row, const std::string& value) {
  return xlsRecord(kFormula, xlsCell(row, 0) + value + std::string(6, '\0'));
}

class XlsReader : public ::testing::Test {
 protected:
  std::vector<std::string> column(const BinaryWorkbook& book, std::int32_t rows) {
    return reader_.columnOf(book.bytes(), rows);
  }

  WorkbookReader reader_;
};

TEST_F(XlsReader, ReadsEachKindOfValue) {
  const std::string rich = xlsRecord(
      0x00D6, xlsCell(3, 0) + xlsNarrowText("rich") + littleEndian<2>(1) + littleEndian<4>(2));
  const std::string packed = xlsRecord(0x027E, xlsCell(4, 0) + littleEndian<4>((7U << 2U) | 2U));
  const std::string hundredth =
      xlsRecord(0x027E, xlsCell(5, 0) + littleEndian<4>((725U << 2U) | 3U));
  const std::string half =
      xlsRecord(0x027E, xlsCell(6, 0) + littleEndian<4>(std::bit_cast<std::uint64_t>(1.5) >> 32U));
  const std::string truth = xlsRecord(0x0205, xlsCell(7, 0) + "\1\0"s);
  const std::string error = xlsRecord(0x0205, xlsCell(8, 0) + "\x2A\1"s);
  const std::string negative = xlsRecord(0x027E, xlsCell(9, 0) + littleEndian<4>(0xFFFFFFFCU | 2U));
  const BinaryWorkbook book =
      BinaryWorkbook()
          .sharedTexts({xlsNarrowText("zero"), xlsNarrowText("one")})
          .sheet(xlsNumber(0, 0, 12.5) + xlsText(1, 0, "label") + xlsSharedText(2, 0, 1) + rich +
                 packed + hundredth + half + truth + error + negative);
  EXPECT_THAT(
      column(book, 10),
      ElementsAre("12.5", "label", "one", "rich", "7", "7.25", "1.5", "TRUE", "#N/A", "-1"));
}

TEST_F(XlsReader, ARowOfPackedNumbersIsReadCellByCell) {
  const std::string number1 = littleEndian<2>(0) + littleEndian<4>((1U << 2U) | 2U);
  const std::string number2 = littleEndian<2>(0) + littleEndian<4>((2U << 2U) | 2U);
  const BinaryWorkbook book = BinaryWorkbook().sheet(xlsRecord(
      0x00BD, littleEndian<2>(0) + littleEndian<2>(4) + number1 + number2 + littleEndian<2>(5)));
  const WorkbookReading reading = reader_.read(book.bytes());
  ASSERT_TRUE(reading) << reading.reason;
  EXPECT_EQ(reading.texts->cellText(0, 1, 5), "1");
  EXPECT_EQ(reading.texts->cellText(0, 1, 6), "2");
  EXPECT_EQ(reading.texts->cellText(0, 1, 7), "");
}

TEST_F(XlsReader, AFormulaShowsTheValueThatItHadWhenTheWorkbookWasSaved) {
  const std::string none = "\xFF\xFF"s;
  const BinaryWorkbook book = BinaryWorkbook().sheet(
      formula(0, littleEndian<8>(std::bit_cast<std::uint64_t>(0.25))) +
      formula(1, std::string(6, '\0') + none) + xlsRecord(kFormulaText, xlsNarrowText("ab")) +
      formula(2, "\1\0\1\0\0\0"s + none) + formula(3, "\2\0\7\0\0\0"s + none) +
      formula(4, "\3\0\0\0\0\0"s + none));
  EXPECT_THAT(column(book, 5), ElementsAre("0.25", "ab", "TRUE", "#DIV/0!", ""));
}

TEST_F(XlsReader, EveryErrorHasItsName) {
  std::string records;
  std::uint16_t row = 0;
  for (const char code : {'\x00', '\x07', '\x0F', '\x17', '\x1D', '\x24', '\x2A'}) {
    records += xlsRecord(0x0205, xlsCell(row++, 0) + std::string(1, code) + "\1");
  }
  EXPECT_THAT(column(BinaryWorkbook().sheet(records), 7),
              ElementsAre("#NULL!", "#DIV/0!", "#VALUE!", "#REF!", "#NAME?", "#NUM!", "#N/A"));
}

TEST_F(XlsReader, NumbersAreShownInTheirStyle) {
  const BinaryWorkbook book =
      BinaryWorkbook()
          .global(kFormat, littleEndian<2>(164) + xlsNarrowText("\"L\"0"))
          .global(kStyle, style(0))
          .global(kStyle, style(164))
          .global(kStyle, style(14))
          .sheet(xlsNumber(0, 0, 2) + xlsNumber(1, 0, 2, 1) + xlsNumber(2, 0, 44197, 2));
  EXPECT_THAT(column(book, 3), ElementsAre("2", "L2", "1/1/2021"));
}

TEST_F(XlsReader, DatesOfAWorkbookFrom1904CountFromThere) {
  const BinaryWorkbook book = BinaryWorkbook()
                                  .global(kDateMode, littleEndian<2>(1))
                                  .global(kStyle, style(14))
                                  .sheet(xlsNumber(0, 0, 0));
  EXPECT_THAT(column(book, 1), ElementsAre("1/1/1904"));
}

TEST_F(XlsReader, TextsAreReadInBothWidthsAndWithoutWhatDecoratesThem) {
  const std::string decorated = littleEndian<2>(4) + "\x0C" + littleEndian<2>(1) +
                                littleEndian<4>(3) + "both" + "runs" + "aid";
  const BinaryWorkbook book =
      BinaryWorkbook()
          .sharedTexts({xlsWideText("\xE9\0\x3D\xD8\x00\xDE"s), decorated, xlsNarrowText("\xE9")})
          .sheet(xlsSharedText(0, 0, 0) + xlsSharedText(1, 0, 1) + xlsSharedText(2, 0, 2));
  EXPECT_THAT(column(book, 3), ElementsAre("é😀", "both", "é"));
}

TEST_F(XlsReader, ATextThatIsCutBetweenRecordsSaysAnewHowItIsWritten) {
  const std::string first =
      littleEndian<4>(2) + littleEndian<4>(2) + littleEndian<2>(6) + "\0"s + "abc";
  const std::string rest = "\1d\0e\0f\0"s + xlsNarrowText("next");
  const BinaryWorkbook book = BinaryWorkbook()
                                  .global(kSharedTexts, first)
                                  .global(kContinue, rest)
                                  .sheet(xlsSharedText(0, 0, 0) + xlsSharedText(1, 0, 1));
  EXPECT_THAT(column(book, 2), ElementsAre("abcdef", "next"));
}

TEST_F(XlsReader, ATextMayBeCutBehindItsLength) {
  const std::string first = littleEndian<4>(2) + littleEndian<4>(2) + littleEndian<2>(3) + "\1"s;
  const BinaryWorkbook book = BinaryWorkbook()
                                  .global(kSharedTexts, first)
                                  .global(kContinue, "\0abc"s + xlsNarrowText("next"))
                                  .sheet(xlsSharedText(0, 0, 0) + xlsSharedText(1, 0, 1));
  EXPECT_THAT(column(book, 2), ElementsAre("abc", "next"));
}

TEST_F(XlsReader, ChartsCountNeitherAsSheetsNorAsCells) {
  const std::string chart =
      xlsRecord(0x0809, std::string(16, '\0')) + xlsNumber(0, 0, 99) + xlsRecord(0x000A, "");
  const BinaryWorkbook book =
      BinaryWorkbook().sheet("", 2).sheet(xlsNumber(0, 0, 1) + chart + xlsNumber(1, 0, 2));
  EXPECT_THAT(column(book, 2), ElementsAre("1", "2"));
}

TEST_F(XlsReader, ALongWorkbookIsReadThroughEverySector) {
  std::string records;
  for (std::uint16_t row = 0; row < 20'000; ++row) {
    records += xlsNumber(row, 0, row);
  }
  const WorkbookReading reading = reader_.read(BinaryWorkbook().sheet(records).bytes());
  ASSERT_TRUE(reading) << reading.reason;
  for (std::int32_t row = 1; row <= 20'000; ++row) {
    ASSERT_EQ(reading.texts->cellText(0, row, 1), std::to_string(row - 1));
  }
}

// What is refused

TEST_F(XlsReader, AnEncryptedWorkbookIsRefused) {
  const BinaryWorkbook book =
      BinaryWorkbook().global(kEncrypted, littleEndian<2>(1)).sheet(xlsNumber(0, 0, 1));
  EXPECT_EQ(reader_.reasonFor(book.bytes()), "The workbook is encrypted.");
}

TEST_F(XlsReader, AnOlderWorkbookIsRefused) {
  constexpr const char* kReason = "The workbook was saved by a program older than Excel 97.";
  EXPECT_EQ(reader_.reasonFor(compoundFile({{"Book", "records"}})), kReason);
  const std::string older = xlsRecord(0x0809, littleEndian<2>(0x0500) + littleEndian<2>(5));
  EXPECT_EQ(reader_.reasonFor(compoundFile({{"Workbook", older}})), kReason);
}

TEST_F(XlsReader, ASheetThatIsNotWhereItShouldBeIsRefused) {
  const std::string stream = BinaryWorkbook().sheet(xlsNumber(0, 0, 1)).stream();
  const std::size_t record = stream.find("\x85\0"s);
  ASSERT_NE(record, std::string::npos);
  const auto reasonWith = [&](std::size_t position) {
    std::string moved = stream;
    moved.replace(record + 4, 4, littleEndian<4>(position));
    return reader_.reasonFor(compoundFile({{"Workbook", moved}}));
  };
  EXPECT_EQ(reasonWith(record), "A sheet is not where the workbook says that it is.");
  EXPECT_EQ(reasonWith(0xFFFFFF), "The file is damaged or cut off.");
}

TEST_F(XlsReader, SheetsThatShareTheirRecordsAreRefused) {
  std::string stream = BinaryWorkbook().sheet(xlsNumber(0, 0, 1)).sheet("").stream();
  const std::size_t first = stream.find("\x85\0"s);
  const std::size_t second = stream.find("\x85\0"s, first + 1);
  stream.replace(second + 4, 4, stream, first + 4, 4);
  EXPECT_EQ(reader_.reasonFor(compoundFile({{"Workbook", stream}})),
            "Two sheets of the workbook stand in the same place.");
}

TEST_F(XlsReader, ASharedTextThatIsNotThereIsRefused) {
  const BinaryWorkbook book = BinaryWorkbook().sheet(xlsSharedText(0, 0, 0));
  EXPECT_EQ(reader_.reasonFor(book.bytes()),
            "A cell names a text that the workbook does not have.");
}

TEST_F(XlsReader, AWorkbookThatIsCutOffAnywhereIsRefused) {
  const std::string stream = BinaryWorkbook()
                                 .sharedTexts({xlsNarrowText("one"), xlsWideText("\xE9\0"s)})
                                 .sheet(xlsNumber(0, 0, 1) + xlsSharedText(1, 0, 1))
                                 .stream();
  for (std::size_t size = 0; size < stream.size(); ++size) {
    EXPECT_NE(reader_.reasonFor(compoundFile({{"Workbook", stream.substr(0, size)}})), "") << size;
  }
}

}  // namespace
}  // namespace quorbind::testing
