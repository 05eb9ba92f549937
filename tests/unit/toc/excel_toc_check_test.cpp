#include "toc/excel_toc_check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/excel_sheets.h"
#include "tests/support/watched_xml.h"
#include "tests/support/world.h"
#include "toc/toc_check.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::string_view kPath = "C:\\in\\book.xls";
constexpr std::string_view kExport = "in/BOOK_Temp.txt";

/// Writes down which books it is to build, and what their exports hold.
class NotingBuilder final : public ExcelBookBuilder {
 public:
  explicit NotingBuilder(World& world) : world_(world) {}

  bool BuildExcelBook(const std::string& tocPath,
                      const std::string& cataloguePath,
                      std::int16_t vintType,
                      const std::string& productName,
                      const std::string& category) override {
    world_.user.note("build " + world_.state().currentBookName + " (" +
                     world_.state().currentBookAcro + ") from " + tocPath + " into " +
                     cataloguePath + ", " + std::to_string(vintType) + ", " + productName + ", [" +
                     category + "]");
    exports_.push_back(world_.text(kExport));
    return !givesUp_;
  }
  /// From now on each book is given up.
  void giveUp() { givesUp_ = true; }

  [[nodiscard]] const std::vector<std::string>& exports() const { return exports_; }

 private:
  World& world_;
  std::vector<std::string> exports_;
  bool givesUp_ = false;
};

/// A component with one workbook, and a check of it.
class ExcelCheck : public ::testing::Test {
 protected:
  ExcelCheck() {
    world_.disk.makeFolder("in");
    world_.disk.write("lib/Quor_BookCategories.xml", "<BookSet_Categories/>");
    world_.state().currentProductName = "Prod";
    world_.state().currentCataloguePath = "C:\\lib\\Quor_TOC.xml";
    world_.state().currentCategoriesPath = "C:\\lib\\Quor_BookCategories.xml";
  }

  void putWorkbook(const std::vector<HeadingRow>& headings, const std::vector<BookRow>& books) {
    world_.spreadsheets.put(kPath, {headingSheet(headings), bookSheet(books)});
  }
  bool validate() { return check_.excel().mbValidateXLToc(kPath, TocCheck::kExcel, &run_); }
  [[nodiscard]] std::vector<std::string> record() const { return world_.user.record(); }

  World world_;
  TocCheck check_{world_.module};
  NotingBuilder builder_{world_};
  ExcelRun run_{.builder = builder_,
                .keywordsPath = "C:\\lib\\Quor_SearchKeywords.xml",
                .category = "General"};
};

constexpr std::string_view kBuiltFrom =
    " from C:\\IN\\BOOK_Temp.txt into C:\\lib\\Quor_TOC.xml, 3, Prod, ";

// The workbook

TEST_F(ExcelCheck, AWorkbookThatCanNotBeOpenedIsRefused) {
  EXPECT_FALSE(validate());
  EXPECT_THAT(record(), ElementsAre("critical: Not a valid Excel file"));
}

TEST_F(ExcelCheck, AWorkbookWithoutSheetsIsRefused) {
  world_.spreadsheets.put(kPath, {});
  EXPECT_FALSE(validate());
  EXPECT_THAT(record(), ElementsAre("critical: Unable to Locate WorkSheet1"));
}

TEST_F(ExcelCheck, AnEmptySheetHasNoBooksAndPasses) {
  world_.spreadsheets.put(kPath, {{}});
  EXPECT_TRUE(validate());
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(ExcelCheck, AHeaderThatIsMissingEndsTheRun) {
  const auto refusalWith = [this](std::size_t column) {
    PaperSheet sheet = headingSheet({{"1", "One", "a.htm"}});
    sheet[0][column] = "other";
    world_.spreadsheets.put(kPath, {sheet, bookSheet({{"One", "ONE"}})});
    world_.user.forget();
    TocCheck check(world_.module);
    EXPECT_FALSE(check.excel().mbValidateXLToc(kPath, TocCheck::kExcel, &run_));
    return record();
  };
  EXPECT_THAT(refusalWith(0), ElementsAre("critical: Node Level Information is not Found"));
  EXPECT_THAT(refusalWith(2), ElementsAre("critical: Node Name Information is not Found"));
  EXPECT_THAT(refusalWith(4), ElementsAre("critical: FileName information not found"));
}

TEST_F(ExcelCheck, ACellThatCanNotBeReadIsReportedByTheProcedureThatReadsIt) {
  const auto boxesWhenFailingAt = [this](std::int32_t row, std::int32_t column) {
    World world;
    world.disk.makeFolder("in");
    world.spreadsheets.put(kPath, {headingSheet({{"1", "One", "a.htm"}}), bookSheet({})});
    world.spreadsheets.failAt(row, column);
    TocCheck check(world.module);
    check.excel().mbValidateXLToc(kPath, TocCheck::kExcel, nullptr);
    return world.user.record().at(0);
  };
  EXPECT_EQ(boxesWhenFailingAt(1, 1),
            "critical: Error(57): Device I/O error\rQuorbind: Quor_Book::mbValidateXLToc");
  EXPECT_EQ(boxesWhenFailingAt(3, 1),
            "critical: Error 57 (Device I/O error) in procedure getExcelBookCount of Class Module "
            "Quor_Book");
  EXPECT_EQ(boxesWhenFailingAt(3, 3),
            "critical: Error(57): Device I/O error\rQuorbind: Quor_Book::mbcheckXLForNodeName");
  EXPECT_EQ(boxesWhenFailingAt(3, 5),
            "critical: Error(57): Device I/O error\rQuorbind: Quor_Book::mbcheckXLForFileName");
  EXPECT_EQ(boxesWhenFailingAt(3, 2),
            "critical: Error(57): Device I/O error\rQuorbind: Quor_Book::GetBookInfofromExcel");
  EXPECT_EQ(boxesWhenFailingAt(3, 6),
            "critical: Error(57): Device I/O error\rQuorbind: Quor_Book::mXLExportToText");
}

// The columns

TEST_F(ExcelCheck, ALevelThatIsNoneIsToldWithItsCellByTheCountAndByTheCheck) {
  putWorkbook({{"1", "One", "a.htm"}, {"2", "Two", "b.htm"}, {"x", "Three", "c.htm"}},
              {{"One", "ONE"}});
  EXPECT_FALSE(validate());
  EXPECT_THAT(record(),
              ElementsAre("critical: Row: 5 Column:1\rError:Node Level should be Integer",
                          "clipboard: x",
                          "critical: Row: 5 Column:1\rError:Node Level should be Integer",
                          "clipboard: x"));
}

TEST_F(ExcelCheck, Row32768EndsInAnOverflowOfTheLevelCheck) {
  std::vector<HeadingRow> rows(32'765, {"2", "n", "f"});
  rows.front().level = "1";
  putWorkbook(rows, {{"One", "ONE"}});
  EXPECT_FALSE(validate());
  EXPECT_THAT(
      record(),
      ElementsAre("critical: Error(6): Overflow\rQuorbind: Quor_Book::mbcheckXLForNodeLevel"));
}

TEST_F(ExcelCheck, ABookMayEndInRow32766) {
  std::vector<HeadingRow> rows(32'764, {"2", "n", "f"});
  rows.front().level = "1";
  putWorkbook(rows, {{"One", "ONE"}});
  EXPECT_TRUE(validate());
  EXPECT_EQ(check_.excel().nodeLevelRow(), 32'766);
  EXPECT_EQ(builder_.exports().size(), 1U);
}

TEST_F(ExcelCheck, ANameColumnThatEndsEarlierIsRefusedAndNotExported) {
  putWorkbook({{"1", "One", "a.htm"}, {"2", "Two", "b.htm"}, {"2", "", "c.htm"}}, {{"One", "ONE"}});
  EXPECT_TRUE(validate());
  EXPECT_THAT(record(),
              ElementsAre("critical: Number Of Entry's in Node Level/Node Name/File Name Does not "
                          "Match"));
  EXPECT_FALSE(world_.disk.has(kExport));
  EXPECT_EQ(check_.excel().nodeLevelRow(), 5);
  EXPECT_EQ(check_.excel().nodeNameRow(), 4);
  EXPECT_EQ(check_.excel().fileNameRow(), 5);
}

TEST_F(ExcelCheck, ABlankRowInsideABookEndsItThere) {
  putWorkbook({{"1", "One", "a.htm"}, {"2", "Two", "b.htm"}, {"", ""}, {"2", "Four", "d.htm"}},
              {{"One", "ONE"}});
  EXPECT_TRUE(validate());
  ASSERT_EQ(builder_.exports().size(), 1U);
  EXPECT_THAT(builder_.exports()[0], ::testing::Not(::testing::HasSubstr("Four")));
}

TEST_F(ExcelCheck, ABookBehindOneWithUnequalColumnsIsRefusedToo) {
  putWorkbook(
      {{"1", "One", "a.htm"}, {"2", "", "b.htm"}, {"1", "Two", "c.htm"}, {"2", "Deep", "d.htm"}},
      {{"One", "ONE"}, {"Two", "TWO"}});
  EXPECT_TRUE(validate());
  EXPECT_THAT(record(),
              ElementsAre("critical: Number Of Entry's in Node Level/Node Name/File Name Does not "
                          "Match",
                          "critical: Number Of Entry's in Node Level/Node Name/File Name Does not "
                          "Match"));
}

TEST_F(ExcelCheck, KeepsTheFirstRowsNameAndDocumentOfTheBookBeingRead) {
  putWorkbook({{"1", "One", "One\\a.htm"},
               {"2", "Deep", "One\\b.htm"},
               {"1", "Two", "Two\\c.htm"},
               {"2", "Deep", "Two\\d.htm"}},
              {{"", "ONE"}, {"", "TWO"}});
  EXPECT_TRUE(validate());
  EXPECT_EQ(world_.state().excelBookName, "Two");
  EXPECT_EQ(check_.mstrBookFile(), "Two\\c.htm");
}

TEST_F(ExcelCheck, RemembersTheLastLevelRead) {
  putWorkbook({{"1", "One", "a.htm"}, {"4", "Deep", "b.htm"}}, {{"One", "ONE"}});
  EXPECT_TRUE(validate());
  EXPECT_EQ(check_.mintPrevLevel(), 4);
}

TEST_F(ExcelCheck, NotesDocumentsThatAreNotThereBesideTheWorkbook) {
  world_.disk.write("in/there.htm", "");
  putWorkbook({{"1", "One", "there.htm"},
               {"2", "Two", "missing.htm"},
               {"2", "Three", "..\\..\\outside.htm"},
               {"2", "Four", "\\\\server\\share\\x.htm"},
               {"2", "Five", "there.htm#mark"}},
              {{"One", "ONE"}});
  EXPECT_TRUE(validate());
  EXPECT_THAT(
      check_.marrsMissingFiles(),
      ElementsAre(
          "missing.htm", "..\\..\\outside.htm", "\\\\server\\share\\x.htm", "there.htm#mark"));
}

// The books

TEST_F(ExcelCheck, EachBookIsExportedAndBuiltInItsTurn) {
  putWorkbook({{"1", "First", "One\\a.htm", "#ignored"},
               {"2", "Start", "One\\b.htm"},
               {"1", "Second", "Two\\c.htm"},
               {"2", "Stop", "Two\\d.htm"},
               {"3", "Deep & down", "Two\\e.htm"}},
              {{"One", "ONE"}, {"Two", "TWO", "", "Own"}});
  EXPECT_TRUE(validate());
  EXPECT_THAT(record(),
              ElementsAre("build One (ONE)" + std::string(kBuiltFrom) + "[General]",
                          "build Two (TWO)" + std::string(kBuiltFrom) + "[Own]"));
  const std::string header =
      "$@@$Node Level$@@$ $@@$Node Name$@@$ $@@$File Name$@@$  $@@$\n"
      "\n";
  EXPECT_THAT(builder_.exports(),
              ElementsAre(header + "$@@$1$@@$ $@@$First$@@$ $@@$One\\a.htm$@@$  $@@$\n"
                                   "$@@$2$@@$ $@@$Start$@@$ $@@$One\\b.htm$@@$  $@@$\n",
                          header + "$@@$1$@@$ $@@$Second$@@$ $@@$Two\\c.htm$@@$  $@@$\n"
                                   "$@@$2$@@$ $@@$Stop$@@$ $@@$Two\\d.htm$@@$  $@@$\n"
                                   "$@@$3$@@$ $@@$Deep & down$@@$ $@@$Two\\e.htm$@@$  $@@$\n"));
}

TEST_F(ExcelCheck, TheExportIsUnicodeTextWithCarriageReturns) {
  putWorkbook({{"1", "Öl", "a.htm"}}, {{"One", "ONE"}});
  EXPECT_TRUE(validate());
  EXPECT_EQ(world_.disk.read(kExport),
            utf16File("$@@$Node Level$@@$ $@@$Node Name$@@$ $@@$File Name$@@$  $@@$\r\n\r\n"
                      "$@@$1$@@$ $@@$Öl$@@$ $@@$a.htm$@@$  $@@$\r\n"));
}

TEST_F(ExcelCheck, OfALongerExtensionTheLastLetterStaysBehindInTheExportsName) {
  world_.spreadsheets.put("C:\\in\\book.xlsx", {headingSheet({{"1", "One", "a.htm"}})});
  std::string path = "C:\\in\\book.xlsx";
  EXPECT_TRUE(check_.excel().mXLExportToText(path));
  EXPECT_EQ(path, "C:\\IN\\BOOK_Temp.txtX");
}

TEST_F(ExcelCheck, EveryColumnUpToTheSixthThatHasATextIsExported) {
  world_.spreadsheets.put(kPath,
                          {{{"Node Level", "", "Node Name", "", "File Name", "", "Sub Link"},
                            {},
                            {"1", "note", "One", "", "a.htm", "x", "#sub", "id"}},
                           bookSheet({{"One", "ONE"}})});
  EXPECT_TRUE(validate());
  EXPECT_THAT(
      builder_.exports().at(0),
      ::testing::HasSubstr("\n$@@$1$@@$ $@@$note$@@$ $@@$One$@@$ $@@$a.htm$@@$ $@@$x$@@$  $@@$\n"));
}

TEST_F(ExcelCheck, AFirstBookOfOneRowIsTakenAgainInThePlaceOfTheSecond) {
  putWorkbook({{"1", "First", "a.htm"}, {"1", "Second", "b.htm"}, {"2", "Deep", "c.htm"}},
              {{"One", "ONE"}, {"Two", "TWO"}});
  EXPECT_TRUE(validate());
  ASSERT_EQ(builder_.exports().size(), 2U);
  EXPECT_EQ(builder_.exports()[0], builder_.exports()[1]);
}

TEST_F(ExcelCheck, TheRowsReachedStayWithTheObject) {
  putWorkbook({{"1", "First", "a.htm"}, {"2", "Deep", "b.htm"}}, {{"One", "ONE"}});
  EXPECT_TRUE(validate());
  world_.user.forget();
  EXPECT_TRUE(validate());
  EXPECT_THAT(record(), ElementsAre("build One (ONE)" + std::string(kBuiltFrom) + "[General]"));
  // Behind the last row there is nothing left to export.
  EXPECT_EQ(builder_.exports().back(),
            "$@@$Node Level$@@$ $@@$Node Name$@@$ $@@$File Name$@@$  $@@$\n\n");
}

TEST_F(ExcelCheck, ABookWhoseExportCanNotBeWrittenIsNotBuilt) {
  world_.spreadsheets.put("C:\\none\\book.xls",
                          {headingSheet({{"1", "One", "a.htm"}}), bookSheet({{"One", "ONE"}})});
  EXPECT_TRUE(check_.excel().mbValidateXLToc("C:\\none\\book.xls", TocCheck::kExcel, &run_));
  EXPECT_THAT(record(),
              ElementsAre("critical: Error(76): Path not found\r"
                          "Quorbind: Quor_Book::mXLExportToText"));
}

TEST_F(ExcelCheck, WithoutARunBooksAreExportedAndNotBuilt) {
  putWorkbook({{"1", "First", "a.htm", "", "ID"}}, {{"One", "ONE"}});
  EXPECT_TRUE(check_.excel().mbValidateXLToc(kPath, TocCheck::kExcel, nullptr));
  EXPECT_THAT(record(), IsEmpty());
  EXPECT_TRUE(world_.disk.has(kExport));
}

TEST_F(ExcelCheck, AsksEachCellOnceAndClosesTheWorkbook) {
  putWorkbook({{"1", "First", "a.htm", "", "A1"},
               {"2", "Deep", "b.htm"},
               {"1", "Second", "c.htm"},
               {"2", "Deep", "d.htm", "#x", "A2"}},
              {{"One", "ONE"}, {"Two", "TWO"}});
  EXPECT_TRUE(validate());
  EXPECT_EQ(world_.spreadsheets.timesOpened(), 1);
  EXPECT_EQ(world_.spreadsheets.mostAsked(), 1);
  EXPECT_EQ(world_.spreadsheets.openNow(), 0);
}

// Names

TEST_F(ExcelCheck, ABookWithoutANameInTheListHasThatOfItsFirstRow) {
  putWorkbook({{"1", " Pumps & <valves> ", "a.htm"}}, {{"", "ONE"}});
  EXPECT_TRUE(validate());
  EXPECT_THAT(record(),
              ElementsAre("build Pumps &amp; &lt;valves&gt; (ONE)" + std::string(kBuiltFrom) +
                          "[General]"));
}

TEST_F(ExcelCheck, NoAcronymStaysFromTheBookBefore) {
  putWorkbook({{"1", "First", "a.htm"}, {"2", "Deep", "b.htm"}, {"1", "Second", "c.htm"}},
              {{"One", "ONE"}, {"Two", " "}});
  EXPECT_TRUE(validate());
  EXPECT_THAT(record(),
              ElementsAre("build One (ONE)" + std::string(kBuiltFrom) + "[General]",
                          "build Two ()" + std::string(kBuiltFrom) + "[General]"));
}

TEST_F(ExcelCheck, AListThatIsShorterThanTheSheetLeavesNamesToTheUser) {
  world_.spreadsheets.put(kPath, {headingSheet({{"1", "First", "a.htm"}})});
  EXPECT_TRUE(validate());
  EXPECT_THAT(record(), ElementsAre("build First ()" + std::string(kBuiltFrom) + "[General]"));
}

TEST_F(ExcelCheck, AnAcronymThatNoFileCanHaveIsRefusedBeforeAnythingIsWritten) {
  const auto boxFor = [this](const std::string& acronym) {
    putWorkbook({{"1", "First", "a.htm"}}, {{"One", acronym}});
    world_.user.forget();
    TocCheck check(world_.module);
    EXPECT_TRUE(check.excel().mbValidateXLToc(kPath, TocCheck::kExcel, &run_));
    EXPECT_FALSE(world_.disk.has(kExport));
    return record();
  };
  EXPECT_THAT(boxFor("A/B"), ElementsAre("critical: Book Acro can not contain  (/\\:*?\"<>)"));
  EXPECT_THAT(boxFor("A&B"), ElementsAre("critical: Book Acro can not contain ('\"&<>@quor@)"));
}

TEST_F(ExcelCheck, AFolderThatLeadsOutOfTheLibraryIsRefusedBeforeAnythingIsWritten) {
  for (const std::string file :
       {"..\\a.htm", "\\\\server\\share\\a.htm", "../a.htm", "CON\\a.htm"}) {
    putWorkbook({{"1", "First", file}}, {{"One", "ONE"}});
    world_.user.forget();
    TocCheck check(world_.module);
    EXPECT_TRUE(check.excel().mbValidateXLToc(kPath, TocCheck::kExcel, &run_));
    ASSERT_EQ(record().size(), 1U) << file;
    EXPECT_THAT(record()[0],
                ::testing::StartsWith("critical: Error:Book Folder leads out of the library: "));
    EXPECT_FALSE(world_.disk.has(kExport));
  }
}

// Keywords and categories

TEST_F(ExcelCheck, KeywordsAreRecordedForTheBookAndRefusedOnesLeftOut) {
  putWorkbook({{"1", "First", "a.htm"}}, {{"One", "ONE", "pump; two words;a##b;R&D; valve "}});
  EXPECT_TRUE(validate());
  EXPECT_THAT(record(),
              ElementsAre("build One (ONE)" + std::string(kBuiltFrom) + "[General]",
                          "message: Search keyword should not have any spaces in between the "
                          "characters",
                          "message: Search keyword should not contain '##' in it."));
  const std::string keywords = world_.text("lib/Quor_SearchKeywords.xml");
  EXPECT_THAT(keywords,
              ::testing::HasSubstr("\t<Book Book_Name=\"One\">\n"
                                   "\t\t<Keywords>\n"
                                   "\t\t\t<Keyword>pump</Keyword>\n"
                                   "\t\t\t<Keyword>R&amp;amp;D</Keyword>\n"
                                   "\t\t\t<Keyword>valve</Keyword>\n"
                                   "\t\t</Keywords>\n"
                                   "\t</Book>\n"));
}

TEST_F(ExcelCheck, KeywordsOfABookAreReadOnceAndWrittenOnce) {
  world_.disk.write("lib/Quor_SearchKeywords.xml", "<Books/>");
  std::string list;
  for (int i = 0; i < 100; ++i) {
    list += "w" + std::to_string(i) + ";";
  }
  putWorkbook({{"1", "First", "a.htm"}}, {{"One", "ONE", list}});
  const Platform& p = world_.platform();
  WatchedXml xml(p.xml, p.files, "C:\\scratch.xml");
  Module module({p.files, xml, p.ui, p.toolset, p.locale, p.spreadsheets});
  module.state = world_.state();
  TocCheck check(module);
  EXPECT_TRUE(check.excel().mbValidateXLToc(kPath, TocCheck::kExcel, &run_));
  EXPECT_EQ(xml.loadsOf("C:\\lib\\Quor_SearchKeywords.xml"), 1);
  EXPECT_EQ(xml.savesOf("C:\\lib\\Quor_SearchKeywords.xml"), 1);
  EXPECT_THAT(world_.disk.read("lib/Quor_SearchKeywords.xml"),
              ::testing::HasSubstr("<Keyword>w99</Keyword>"));
}

TEST_F(ExcelCheck, KeywordsInFrontOfOneThatIsToldOfAreInTheFileByThen) {
  world_.disk.write("lib/Quor_SearchKeywords.xml", "<Books/>");
  for (const char* told : {"a##b", "two words"}) {
    std::string found;
    world_.user.atEachBox([&] { found = world_.disk.read("lib/Quor_SearchKeywords.xml"); });
    putWorkbook({{"1", "First", "a.htm"}}, {{"One", "ONE", std::string("pump;") + told}});
    TocCheck check(world_.module);
    EXPECT_TRUE(check.excel().mbValidateXLToc(kPath, TocCheck::kExcel, &run_));
    EXPECT_THAT(found, ::testing::HasSubstr("<Keyword>pump</Keyword>")) << told;
  }
}

TEST_F(ExcelCheck, CategoriesAreTrimmedAndEmptyOnesLeftOut) {
  putWorkbook({{"1", "First", "a.htm"}}, {{"One", "ONE", "", "Pumps, R&D,, "}});
  EXPECT_TRUE(validate());
  EXPECT_THAT(world_.disk.read("lib/Quor_BookCategories.xml"),
              ::testing::HasSubstr("<BookSet_Categories>\r\n"
                                   "\t<Category>\r\n"
                                   "\t\t<CategoryName>Pumps</CategoryName>\r\n"
                                   "\t\t<BookAcro>ONE</BookAcro>\r\n"
                                   "\t</Category>\r\n"
                                   "\t<Category>\r\n"
                                   "\t\t<CategoryName>R&amp;D</CategoryName>\r\n"
                                   "\t\t<BookAcro>ONE</BookAcro>\r\n"
                                   "\t</Category>\r\n"
                                   "</BookSet_Categories>"));
}

TEST_F(ExcelCheck, ABookThatIsGivenUpGetsNeither) {
  builder_.giveUp();
  const std::string before = world_.disk.read("lib/Quor_BookCategories.xml");
  putWorkbook({{"1", "First", "a.htm"}}, {{"One", "ONE", "pump", "Pumps"}});
  EXPECT_TRUE(validate());
  EXPECT_FALSE(world_.disk.has("lib/Quor_SearchKeywords.xml"));
  EXPECT_EQ(world_.disk.read("lib/Quor_BookCategories.xml"), before);
}

// The list of books

TEST_F(ExcelCheck, TheListTellsABooksNameAcronymAndTwoTextsAsTheyStand) {
  putWorkbook({}, {{"One", "ONE"}, {" Pumps & valves ", " PV ", " a; b ", " c "}});
  const ExcelBookInfo info = check_.excel().GetBookInfofromExcel(kPath, 2);
  EXPECT_EQ(info.bookName, "Pumps &amp; valves");
  EXPECT_EQ(info.bookAcro, "PV");
  EXPECT_EQ(info.keywords, " a; b ");
  EXPECT_EQ(info.categories, " c ");
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(ExcelCheck, ANameThatTheTextRulesRejectComesBackEmptyAndTheAcronymIsStillRead) {
  putWorkbook({}, {{"A&amp;B", "AB"}});
  const ExcelBookInfo info = check_.excel().GetBookInfofromExcel(kPath, 1);
  EXPECT_EQ(info.bookName, "");
  EXPECT_EQ(info.bookAcro, "AB");
  EXPECT_THAT(record(), ElementsAre("information: &amp;Cannot be used in BookName"));
}

TEST_F(ExcelCheck, AnAcronymThatTheTextRulesRejectComesBackEmpty) {
  putWorkbook({}, {{"One", "&gt;"}});
  EXPECT_EQ(check_.excel().GetBookInfofromExcel(kPath, 1).bookAcro, "");
  EXPECT_THAT(record(), ElementsAre("information: &gt;Cannot be used in BookAcro"));
}

TEST_F(ExcelCheck, AWorkbookWithOneSheetTellsNothingOfItsBooks) {
  world_.spreadsheets.put(kPath, {headingSheet({})});
  EXPECT_EQ(check_.excel().GetBookInfofromExcel(kPath, 1).bookName, "");
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(ExcelCheck, AListThatCanNotBeOpenedIsToldWithItsPath) {
  EXPECT_EQ(check_.excel().GetBookInfofromExcel(kPath, 1).bookName, "");
  world_.spreadsheets.put(kPath, {});
  EXPECT_EQ(check_.excel().GetBookInfofromExcel(kPath, 1).bookName, "");
  EXPECT_THAT(record(),
              ElementsAre("critical: Not a valid xls fileC:\\in\\book.xls",
                          "critical: Unable to locate the worksheetC:\\in\\book.xls"));
}

TEST_F(ExcelCheck, WithoutTheTextRulesTheListIsNotRead) {
  putWorkbook({}, {{"One", "ONE"}});
  world_.toolset.breakDown();
  EXPECT_EQ(check_.excel().GetBookInfofromExcel(kPath, 1).bookAcro, "");
  EXPECT_THAT(record(),
              ElementsAre("critical: Error(429): ActiveX component can't create object\r"
                          "Quorbind: Quor_Book::GetBookInfofromExcel"));
}

TEST_F(ExcelCheck, AnExportOfAWorkbookThatIsGoneIsReported) {
  std::string path(kPath);
  EXPECT_FALSE(check_.excel().mXLExportToText(path));
  EXPECT_THAT(record(),
              ElementsAre("critical: Error(432): File name or class name not found during "
                          "Automation operation\rQuorbind: Quor_Book::mXLExportToText"));
}

// The dispatcher

TEST_F(ExcelCheck, TheAnswerForAWorkbookIsFalseEvenWhenEveryBookPassed) {
  world_.disk.write("in/book.xls", "");
  putWorkbook({{"1", "First", "a.htm"}}, {{"One", "ONE"}});
  std::string path(kPath);
  EXPECT_FALSE(check_.mbValidateTocFile(path, TocCheck::kExcel, &run_));
  EXPECT_EQ(path, kPath);
  EXPECT_THAT(record(), ElementsAre("build One (ONE)" + std::string(kBuiltFrom) + "[General]"));
}

}  // namespace
}  // namespace quorbind::testing
