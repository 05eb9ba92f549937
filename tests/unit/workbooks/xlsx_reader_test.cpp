#include "platform/workbooks/xlsx_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/support/hostile_workbooks.h"
#include "tests/support/packed_file.h"
#include "tests/unit/workbooks/workbook_reading.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class XlsxReader : public ::testing::Test {
 protected:
  /// What cell A1 displays when `cell` stands there.
  std::string shown(const std::string& cell, const std::string& styles = "") {
    return reader_.columnOf(
        PackedWorkbook().sheet("<row r=\"1\">" + cell + "</row>").styles(styles).bytes(), 1)[0];
  }

  WorkbookReader reader_;
};

TEST_F(XlsxReader, ReadsEachKindOfValue) {
  EXPECT_EQ(shown("<c r=\"A1\"><v>1.5</v></c>"), "1.5");
  EXPECT_EQ(shown("<c r=\"A1\" t=\"n\"><v> 2 </v></c>"), "2");
  EXPECT_EQ(shown("<c r=\"A1\"><v>1E3</v></c>"), "1000");
  EXPECT_EQ(shown("<c r=\"A1\" t=\"str\"><v>Alarms</v></c>"), "Alarms");
  EXPECT_EQ(shown("<c r=\"A1\" t=\"inlineStr\"><is><t>Alarms</t></is></c>"), "Alarms");
  EXPECT_EQ(shown("<c r=\"A1\" t=\"b\"><v>1</v></c>"), "TRUE");
  EXPECT_EQ(shown("<c r=\"A1\" t=\"b\"><v>0</v></c>"), "FALSE");
  EXPECT_EQ(shown("<c r=\"A1\" t=\"e\"><v>#N/A</v></c>"), "#N/A");
  EXPECT_EQ(shown("<c r=\"A1\" t=\"d\"><v>2021-01-01</v></c>"), "2021-01-01");
}

TEST_F(XlsxReader, AFormulaShowsTheValueThatItHadWhenTheWorkbookWasSaved) {
  EXPECT_EQ(shown("<c r=\"A1\"><f>1/4</f><v>0.25</v></c>"), "0.25");
  EXPECT_EQ(shown("<c r=\"A1\" t=\"str\"><f>\"a\"&amp;\"b\"</f><v>ab</v></c>"), "ab");
  EXPECT_EQ(shown("<c r=\"A1\" t=\"e\"><f>1/0</f><v>#DIV/0!</v></c>"), "#DIV/0!");
  EXPECT_EQ(shown("<c r=\"A1\"><f>NOW()</f></c>"), "");
}

TEST_F(XlsxReader, ACellWithoutAValueShowsNothing) {
  EXPECT_EQ(shown("<c r=\"A1\"/>"), "");
  EXPECT_EQ(shown("<c r=\"A1\" t=\"s\"><v></v></c>"), "");
  EXPECT_EQ(shown("<c r=\"A1\" t=\"str\"><v></v></c>"), "");
}

TEST_F(XlsxReader, ANumberThatIsNoneIsShownAsItStands) {
  EXPECT_EQ(shown("<c r=\"A1\"><v>1,5</v></c>"), "1,5");
  EXPECT_EQ(shown("<c r=\"A1\"><v>nan</v></c>"), "#NUM!");
}

TEST_F(XlsxReader, TextsKeepTheirBlanksAndEscapesAreResolved) {
  EXPECT_EQ(shown("<c r=\"A1\" t=\"str\"><v xml:space=\"preserve\"> a  b </v></c>"), " a  b ");
  EXPECT_EQ(shown("<c r=\"A1\" t=\"str\"><v>a_x000D_b_x0041_</v></c>"), "a\rbA");
  EXPECT_EQ(shown("<c r=\"A1\" t=\"str\"><v>a_x00_b_xZZZZ__x</v></c>"), "a_x00_b_xZZZZ__x");
  EXPECT_EQ(shown("<c r=\"A1\" t=\"str\"><v>_xD800_</v></c>"), "\xEF\xBF\xBD");
}

TEST_F(XlsxReader, NumbersAreShownInTheirStyle) {
  const std::string styles =
      "<numFmts><numFmt numFmtId=\"164\" formatCode=\"&quot;L&quot;0\"/></numFmts>"
      "<cellStyleXfs><xf numFmtId=\"9\"/></cellStyleXfs>"
      "<cellXfs><xf numFmtId=\"0\"/><xf numFmtId=\"2\"/><xf numFmtId=\"164\"/>"
      "<xf numFmtId=\"14\"/></cellXfs>"
      "<dxfs><dxf><numFmt numFmtId=\"164\" formatCode=\"0%\"/></dxf></dxfs>";
  EXPECT_EQ(shown("<c r=\"A1\"><v>2</v></c>", styles), "2");
  EXPECT_EQ(shown("<c r=\"A1\" s=\"1\"><v>2</v></c>", styles), "2.00");
  EXPECT_EQ(shown("<c r=\"A1\" s=\"2\"><v>2</v></c>", styles), "L2");
  EXPECT_EQ(shown("<c r=\"A1\" s=\"3\"><v>44197</v></c>", styles), "1/1/2021");
  EXPECT_EQ(shown("<c r=\"A1\" s=\"99\"><v>2</v></c>", styles), "2");
}

TEST_F(XlsxReader, DatesOfAWorkbookFrom1904CountFromThere) {
  const PackedWorkbook book = PackedWorkbook()
                                  .sheet("<row r=\"1\"><c r=\"A1\" s=\"0\"><v>0</v></c></row>")
                                  .styles("<cellXfs><xf numFmtId=\"14\"/></cellXfs>")
                                  .properties("date1904=\"1\"");
  EXPECT_THAT(reader_.columnOf(book.bytes(), 1), ElementsAre("1/1/1904"));
}

TEST_F(XlsxReader, SharedTextsAreTheirRunsWithoutReadingAids) {
  const PackedWorkbook book = PackedWorkbook()
                                  .sheet(
                                      "<row r=\"1\"><c r=\"A1\" t=\"s\"><v>1</v></c></row>"
                                      "<row r=\"2\"><c r=\"A2\" t=\"s\"><v>0</v></c></row>"
                                      "<row r=\"3\"><c r=\"A3\" t=\"s\"><v>1</v></c></row>")
                                  .sharedTexts(
                                      "<si><t xml:space=\"preserve\">plain </t></si>"
                                      "<si><r><rPr><b/></rPr><t>bold</t></r><r><t> and not</t></r>"
                                      "<rPh sb=\"0\" eb=\"1\"><t>aid</t></rPh></si>");
  EXPECT_THAT(reader_.columnOf(book.bytes(), 3),
              ElementsAre("bold and not", "plain ", "bold and not"));
}

TEST_F(XlsxReader, ASharedTextThatIsNotThereIsRefused) {
  EXPECT_EQ(shown("<c r=\"A1\" t=\"s\"><v>0</v></c>"),
            "A cell names a text that the workbook does not have.");
  EXPECT_EQ(shown("<c r=\"A1\" t=\"s\"><v>-1</v></c>"),
            "A cell names a text that the workbook does not have.");
}

TEST_F(XlsxReader, RowsAndCellsThatDoNotSayWhereTheyStandFollowTheOneBefore) {
  const PackedWorkbook book = PackedWorkbook().sheet(
      "<row><c><v>1</v></c><c><v>2</v></c></row>"
      "<row r=\"5\"><c r=\"C5\"><v>3</v></c><c><v>4</v></c></row>"
      "<row><c><v>5</v></c></row>");
  const WorkbookReading reading = reader_.read(book.bytes());
  ASSERT_TRUE(reading) << reading.reason;
  EXPECT_EQ(reading.texts->cellText(0, 1, 2), "2");
  EXPECT_EQ(reading.texts->cellText(0, 5, 3), "3");
  EXPECT_EQ(reading.texts->cellText(0, 5, 4), "4");
  EXPECT_EQ(reading.texts->cellText(0, 6, 1), "5");
}

TEST_F(XlsxReader, CellsMayStandInAnyOrderAndTheLastOfTwoCounts) {
  const PackedWorkbook book = PackedWorkbook().sheet(
      "<row r=\"3\"><c r=\"A3\"><v>3</v></c></row>"
      "<row r=\"1\"><c r=\"A1\"><v>1</v></c></row>"
      "<row r=\"3\"><c r=\"A3\"><v>4</v></c></row>");
  EXPECT_THAT(reader_.columnOf(book.bytes(), 4), ElementsAre("1", "", "4", ""));
}

TEST_F(XlsxReader, OfMergedCellsTheFirstHasTheText) {
  const PackedWorkbook book = PackedWorkbook().sheet(
      "<row r=\"1\"><c r=\"A1\" t=\"str\"><v>both</v></c><c r=\"B1\"/></row>"
      "<row r=\"2\"><c r=\"A2\"/></row></sheetData><mergeCells><mergeCell ref=\"A1:B2\"/>"
      "</mergeCells><sheetData>");
  EXPECT_THAT(reader_.columnOf(book.bytes(), 2), ElementsAre("both", ""));
}

TEST_F(XlsxReader, ACellOutsideOfEverySheetIsRefused) {
  for (const std::string place : {"<row r=\"0\"><c><v>1</v></c></row>",
                                  "<row r=\"-1\"><c><v>1</v></c></row>",
                                  "<row r=\"1048577\"><c><v>1</v></c></row>",
                                  "<row r=\"2147483647\"/><row><c><v>1</v></c></row>",
                                  "<row r=\"1\"><c r=\"XFE1\"><v>1</v></c></row>",
                                  "<row r=\"1\"><c r=\"ZZZZZZZZ1\"><v>1</v></c></row>"}) {
    EXPECT_EQ(reader_.reasonFor(PackedWorkbook().sheet(place).bytes()),
              "A cell stands outside of its sheet.")
        << place;
  }
}

TEST_F(XlsxReader, HiddenSheetsCountAndChartsDoNot) {
  const PackedWorkbook book = PackedWorkbook()
                                  .sheet("<row r=\"1\"><c r=\"A1\"><v>1</v></c></row>")
                                  .lastSheetIs("state=\"veryHidden\"")
                                  .sheet("", "chartsheet")
                                  .sheet("<row r=\"1\"><c r=\"A1\"><v>3</v></c></row>");
  EXPECT_THAT(reader_.columnOf(book.bytes(), 1, 0), ElementsAre("1"));
  EXPECT_THAT(reader_.columnOf(book.bytes(), 1, 1), ElementsAre("3"));
  EXPECT_EQ(reader_.read(book.bytes()).texts->sheets.size(), 2U);
}

TEST_F(XlsxReader, ElementsMayHaveAPrefix) {
  PackedFile file;
  file.add("_rels/.rels",
           "<p:Relationships xmlns:p=\"r\"><p:Relationship Id=\"a\" Type=\"x/officeDocument\" "
           "Target=\"/book.xml\"/></p:Relationships>");
  file.add("_rels/book.xml.rels",
           "<Relationships xmlns=\"r\"><Relationship Id=\"s\" Type=\"x/worksheet\" "
           "Target=\"./deep/../sheet.xml\"/></Relationships>");
  file.add("book.xml",
           "<x:workbook xmlns:x=\"m\" xmlns:r=\"o\"><x:sheets><x:sheet r:id=\"s\"/></x:sheets>"
           "</x:workbook>");
  file.add("sheet.xml",
           "<x:worksheet xmlns:x=\"m\"><x:sheetData><x:row><x:c><x:v>7</x:v></x:c></x:row>"
           "</x:sheetData></x:worksheet>");
  EXPECT_THAT(reader_.columnOf(file.bytes(), 1), ElementsAre("7"));
}

TEST_F(XlsxReader, APackedFileThatIsNoWorkbookIsRefused) {
  PackedFile file;
  file.add("letter.txt", "Dear reader");
  EXPECT_EQ(reader_.reasonFor(file.bytes()), "The file is packed, but it is no workbook.");
}

TEST_F(XlsxReader, ASheetThatIsNotThereIsRefused) {
  PackedFile file;
  file.add("_rels/.rels",
           "<Relationships xmlns=\"r\"><Relationship Id=\"a\" Type=\"x/officeDocument\" "
           "Target=\"book.xml\"/></Relationships>");
  file.add("book.xml",
           "<workbook xmlns=\"m\" xmlns:r=\"o\"><sheets><sheet r:id=\"s\"/></sheets></workbook>");
  EXPECT_EQ(reader_.reasonFor(file.bytes()),
            "The workbook does not tell where one of its sheets is.");

  file.add("_rels/book.xml.rels",
           "<Relationships xmlns=\"r\"><Relationship Id=\"s\" Type=\"x/worksheet\" "
           "Target=\"sheet.xml\"/></Relationships>");
  EXPECT_EQ(reader_.reasonFor(file.bytes()), "sheet.xml is missing.");
}

TEST_F(XlsxReader, APartThatDoesNotParseIsRefusedWithItsLine) {
  const std::string reason = reader_.reasonFor(PackedWorkbook().sheet("<row>\n</c>").bytes());
  EXPECT_THAT(reason, HasSubstr("xl/worksheets/sheet1.xml, line 3: "));
}

TEST_F(XlsxReader, ADocumentTypeInAPartIsRefused) {
  PackedFile file;
  file.add("_rels/.rels",
           "<!DOCTYPE r [<!ENTITY a \"aaaaaaaaaa\">]><Relationships>&a;</Relationships>");
  EXPECT_THAT(reader_.reasonFor(file.bytes()), HasSubstr("document type declaration"));
}

TEST_F(XlsxReader, ATextThatIsLongerThanACellIsRefused) {
  const auto cellWith = [](std::size_t length) {
    return "<row r=\"1\"><c r=\"A1\" t=\"str\"><v>" + std::string(length, 'x') + "</v></c></row>";
  };
  EXPECT_EQ(reader_.reasonFor(PackedWorkbook().sheet(cellWith(98'301)).bytes()), "");
  EXPECT_EQ(reader_.reasonFor(PackedWorkbook().sheet(cellWith(98'302)).bytes()),
            "A text is longer than a cell can hold.");
  EXPECT_EQ(reader_.reasonFor(PackedWorkbook()
                                  .sheet("")
                                  .sharedTexts("<si><t>" + std::string(98'302, 'x') + "</t></si>")
                                  .bytes()),
            "A text is longer than a cell can hold.");
}

TEST_F(XlsxReader, ASharedTextThatManyCellsShowIsRefusedWhenItGetsTooMuch) {
  EXPECT_EQ(reader_.reasonFor(bombOfSharedTexts(WorkbookKind::kXlsx)),
            "The cells display more text than those of a workbook may.");
}

TEST_F(XlsxReader, APartThatUnpacksWithoutEndIsRefused) {
  EXPECT_EQ(reader_.reasonFor(bombOfSpaces()),
            "xl/worksheets/sheet1.xml is packed more tightly than a part of a workbook may be.");
}

}  // namespace
}  // namespace quorbind::testing
