// Workbooks in whole runs of the driver: what must come of each, whether its cells come from a
// packed file, from a binary one, or from a spreadsheet program that has opened either.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <tuple>
#include <vector>

#include "tests/support/book_run_test.h"
#include "tests/support/excel_sheets.h"
#include "tests/support/hostile_workbooks.h"
#include "tests/support/workbook_source.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;

/// A run on a workbook with some books, read from the source that a test is given.
class WorkbookRunTest : public BookRunTest {
 protected:
  explicit WorkbookRunTest(const WorkbookSource& source)
      : BookRunTest("C:\\in\\book" + extensionOf(source.kind), 3, "Docs/Prod", source.reader),
        source_(source) {}

  void write(const std::string& bytes) {
    world_.disk.write("in/book" + extensionOf(source_.kind), bytes);
  }
  void write(const std::vector<PaperSheet>& sheets, const WorkbookTraits& traits = {}) {
    write(workbookBytes(source_.kind, sheets, traits));
  }
  [[nodiscard]] WorkbookKind kind() const { return source_.kind; }

  /// The books that came into the library, each with its headings: `Lathe (LTH): Chuck, Jaws`.
  [[nodiscard]] std::vector<std::string> books() const {
    const auto names = contentsOf(catalogue(), "Book_Name");
    const auto acronyms = contentsOf(catalogue(), "Book_Acro");
    const auto folders = contentsOf(catalogue(), "Book_Folder");
    std::vector<std::string> books;
    for (std::size_t i = 1; i < names.size(); ++i) {
      std::string book = names[i];
      book.append(" (").append(acronyms[i]).append("):");
      const std::string file = "Docs/Prod/" + folders[i] + "/Book_" + acronyms[i] + ".xml";
      std::string_view separator = " ";
      for (const std::string& heading : contentsOf(world_.text(file), "HName")) {
        book.append(separator).append(heading);
        separator = ", ";
      }
      books.push_back(book);
    }
    return books;
  }

 private:
  static std::vector<std::string> contentsOf(const std::string& document,
                                             const std::string& element) {
    std::vector<std::string> contents;
    const std::string begin = "<" + element + ">";
    for (std::size_t from = document.find(begin); from != std::string::npos;
         from = document.find(begin, from)) {
      from += begin.size();
      contents.push_back(document.substr(from, document.find('<', from) - from));
    }
    return contents;
  }

  WorkbookSource source_;
};

struct WorkbookCase {
  std::string name;
  std::vector<PaperSheet> sheets;
  /// What the user sees, and how the run ends.
  std::vector<std::string> record;
  std::vector<std::string> books;
  WorkbookTraits traits = {};
  std::vector<ScriptedUserInterface::Answer> answers = {};
};

void PrintTo(const WorkbookCase& workbook, std::ostream* out) {
  *out << workbook.name;
}

const std::string kEnd = "event []";
const std::string kForm = "form frmBookInfo";
const std::string kCountsDiffer =
    "critical: Number Of Entry's in Node Level/Node Name/File Name Does not Match";

/// Of the cell in the first column of a row.
std::vector<std::string> noLevel(int row, const std::string& cell) {
  return {"critical: Row: " + std::to_string(row) + " Column:1\rError:Node Level should be Integer",
          "clipboard: " + cell};
}
/// Told by the count and by the check.
std::vector<std::string> endAtNoLevel(int row, const std::string& cell) {
  const std::vector<std::string> told = noLevel(row, cell);
  return {told[0], told[1], told[0], told[1], kEnd};
}

const std::vector<HeadingRow> kLathe{{"1", "The Lathe", "Lathe\\cover.htm"},
                                     {"2", "Chuck", "chuck.htm"}};
const std::vector<HeadingRow> kSaw{{"1", "The Saw", "Saw\\cover.htm"}, {"2", "Blade", "blade.htm"}};
const PaperSheet kList = bookSheet({{"Lathe", "LTH"}, {"Saw", "SAW"}});

std::vector<HeadingRow> rows(std::vector<HeadingRow> first, const std::vector<HeadingRow>& more) {
  first.insert(first.end(), more.begin(), more.end());
  return first;
}

std::vector<PaperSheet> withHeaders(const std::vector<std::string>& headers) {
  PaperSheet sheet = headingSheet(kLathe);
  sheet[0] = headers;
  return {sheet, kList};
}

std::vector<PaperSheet> withList(const std::vector<BookRow>& books) {
  return {headingSheet(rows(kLathe, kSaw)), bookSheet(books)};
}

std::vector<WorkbookCase> columnsAndRows() {
  return {
      {.name = "TwoBooksInOneSheet",
       .sheets = {headingSheet(rows(kLathe, kSaw)), kList},
       .record = {kEnd},
       .books = {"Lathe (LTH): Chuck", "Saw (SAW): Blade"}},
      {.name = "HeadersInAnyLetterCase",
       .sheets = withHeaders({"node level", "", "Node NAME", "", "FILE name", "", "other"}),
       .record = {kEnd},
       .books = {"Lathe (LTH): Chuck"}},
      {.name = "NoHeaderOfLevels",
       .sheets = withHeaders({"Level", "", "Node Name", "", "File Name"}),
       .record = {"critical: Node Level Information is not Found", kEnd},
       .books = {}},
      {.name = "NoHeaderOfNames",
       .sheets = withHeaders({"Node Level", "", "", "", "File Name"}),
       .record = {"critical: Node Name Information is not Found", kEnd},
       .books = {}},
      {.name = "NoHeaderOfFiles",
       .sheets = withHeaders({"Node Level", "Node Name", "Node Name", "File Name"}),
       .record = {"critical: FileName information not found", kEnd},
       .books = {}},
      {.name = "NoRows", .sheets = {headingSheet({}), kList}, .record = {kEnd}, .books = {}},
      {.name = "NoSheets",
       .sheets = {},
       .record = {"critical: Unable to Locate WorkSheet1", kEnd},
       .books = {}},
      {.name = "ALevelThatIsAWord",
       .sheets = {headingSheet(rows(kLathe, {{"x", "Jaws", "jaws.htm"}})), kList},
       .record = endAtNoLevel(5, "x"),
       .books = {}},
      {.name = "ALevelThatIsADate",
       .sheets = {headingSheet(rows(kLathe, {{"1/1/2021", "Jaws", "jaws.htm"}})), kList},
       .record = endAtNoLevel(5, "1/1/2021"),
       .books = {}},
      {.name = "ALevelThatIsAnError",
       .sheets = {headingSheet(rows(kLathe, {{"#N/A", "Jaws", "jaws.htm"}})), kList},
       .record = endAtNoLevel(5, "#N/A"),
       .books = {}},
      {.name = "ALevelThatIsNoneInTheSecondBook",
       .sheets = {headingSheet(rows(kLathe, {kSaw[0], {"x", "Blade", "blade.htm"}})), kList},
       .record = endAtNoLevel(6, "x"),
       .books = {"Lathe (LTH): Chuck"}},
      {.name = "NamesThatEndARowEarlier",
       .sheets = {headingSheet(rows(kLathe, {{"2", "", "jaws.htm"}})), kList},
       .record = {kCountsDiffer, kEnd},
       .books = {}},
      {.name = "DocumentsThatEndARowEarlier",
       .sheets = {headingSheet(rows(kLathe, {{"2", "Jaws"}})), kList},
       .record = {kCountsDiffer, kEnd},
       .books = {}},
      {.name = "NamesThatAreMerged",
       .sheets = {headingSheet(rows(kLathe, {{"2", "", "jaws.htm"}})), kList},
       .record = {kCountsDiffer, kEnd},
       .books = {},
       .traits = {.firstMergedRow = 4, .lastMergedRow = 5}},
      {.name = "ABlankRowInsideABook",
       .sheets = {headingSheet(rows(kLathe, {{"", ""}, {"2", "Jaws", "jaws.htm"}})), kList},
       .record = {kEnd},
       .books = {"Lathe (LTH): Chuck"}},
      {.name = "ANameThatIsAnError",
       .sheets = {headingSheet(rows(kLathe, {{"2", "#N/A", "jaws.htm"}})), kList},
       .record = {kEnd},
       .books = {"Lathe (LTH): Chuck, #N/A"}},
      {.name = "NamesAndDocumentsThatAreNumbersAndDates",
       .sheets = {headingSheet(rows(kLathe, {{"2", "1/1/2021", "7"}})), kList},
       .record = {kEnd},
       .books = {"Lathe (LTH): Chuck, 1/1/2021"}},
      {.name = "AFirstBookOfOneRowIsReadAgainForTheSecond",
       .sheets = {headingSheet(rows({kLathe[0]}, kSaw)), kList},
       .record = {kEnd},
       .books = {"Lathe (LTH):", "Saw (SAW):"}},
      {.name = "AHiddenFirstSheet",
       .sheets = {headingSheet(kLathe), kList},
       .record = {kEnd},
       .books = {"Lathe (LTH): Chuck"},
       .traits = {.firstSheetIsHidden = true}},
  };
}

std::vector<WorkbookCase> listsOfBooks() {
  return {
      {.name = "OneSheet",
       .sheets = {headingSheet(kLathe)},
       .record = {kForm, kEnd},
       .books = {"Turning (TRN): Chuck"},
       .answers = {enterBook("Turning", "TRN")}},
      {.name = "AListShorterThanTheSheet",
       .sheets = withList({{"Lathe", "LTH"}}),
       .record = {kForm, kEnd},
       .books = {"Lathe (LTH): Chuck", "Sawing (SWG): Blade"},
       .answers = {enterBook("Sawing", "SWG")}},
      {.name = "ANameThatTheListLacksIsThatOfTheFirstRow",
       .sheets = withList({{"", "LTH"}, {" ", "SAW"}}),
       .record = {kEnd},
       .books = {"The Lathe (LTH): Chuck", "The Saw (SAW): Blade"}},
      {.name = "ANameThatIsRefusedAndItsAcronymTaken",
       .sheets = withList({{"A&amp;B", "LTH"}, {"Saw", "SAW"}}),
       .record = {"information: &amp;Cannot be used in BookName", kEnd},
       .books = {"The Lathe (LTH): Chuck", "Saw (SAW): Blade"}},
      {.name = "AnAcronymThatIsRefused",
       .sheets = withList({{"Lathe", "&gt;"}, {"Saw", "SAW"}}),
       .record = {"information: &gt;Cannot be used in BookAcro", kForm, kEnd},
       .books = {"Lathe (LTH): Chuck", "Saw (SAW): Blade"},
       .answers = {[](ModalForm& form) {
         form.type("txtBookAcro", "LTH");
         form.click("cmdOk");
       }}},
      {.name = "AnAcronymThatNoFileCanHave",
       .sheets = withList({{"Lathe", "L/H"}, {"Saw", "SAW"}}),
       .record = {"critical: Book Acro can not contain  (/\\:*?\"<>)", kEnd},
       .books = {"Saw (SAW): Blade"}},
      {.name = "AFolderThatLeadsOut",
       .sheets = {headingSheet(rows(
                      {{"1", "The Lathe", "..\\cover.htm"}, {"2", "Chuck", "chuck.htm"}}, kSaw)),
                  kList},
       .record = {"critical: Error:Book Folder leads out of the library: ..\\cover.htm", kEnd},
       .books = {"Saw (SAW): Blade"}},
      {.name = "ABookThatTheLibraryHasAndTheUserGivesUp",
       .sheets = withList({{"Alarms", "LTH"}, {"Saw", "SAW"}}),
       .record = {"critical: Error:Book Name Alarms already Exists", kForm, kEnd},
       .books = {},
       .answers = {pressCancel()}},
      {.name = "KeywordsThatBreakARule",
       .sheets = withList({{"Lathe", "LTH", "two words;a##b;turning"}, {"Saw", "SAW"}}),
       .record = {"message: Search keyword should not have any spaces in between the characters",
                  "message: Search keyword should not contain '##' in it.",
                  kEnd},
       .books = {"Lathe (LTH): Chuck", "Saw (SAW): Blade"}},
      {.name = "LinkIdentifiersWithoutAList",
       .sheets = {headingSheet({kLathe[0], {"2", "Chuck", "chuck.htm", "", "Jaws"}})},
       .record = {kForm,
                  "critical: Error(9):Subscript out of range\r"
                  "Quor_Developer-Quor_Book::UpdateQuorLinkIDFile",
                  kEnd},
       .books = {"Turning (TRN): Chuck"},
       .answers = {enterBook("Turning", "TRN")}},
  };
}

std::vector<WorkbookCase> workbookCases() {
  std::vector<WorkbookCase> cases = columnsAndRows();
  for (WorkbookCase& more : listsOfBooks()) {
    cases.push_back(std::move(more));
  }
  return cases;
}

class EveryWorkbook
    : public WorkbookRunTest,
      public ::testing::WithParamInterface<std::tuple<WorkbookSource, WorkbookCase>> {
 protected:
  EveryWorkbook() : WorkbookRunTest(std::get<WorkbookSource>(GetParam())) {}
};

INSTANTIATE_TEST_SUITE_P(Of,
                         EveryWorkbook,
                         ::testing::Combine(::testing::ValuesIn(workbookSources()),
                                            ::testing::ValuesIn(workbookCases())),
                         [](const auto& one) {
                           return nameOf(std::get<WorkbookSource>(one.param)) + "_" +
                                  std::get<WorkbookCase>(one.param).name;
                         });

TEST_P(EveryWorkbook, ComesOutTheSame) {
  const auto& workbook = std::get<WorkbookCase>(GetParam());
  write(workbook.sheets, workbook.traits);
  for (const auto& answer : workbook.answers) {
    world_.user.answerWith(answer);
  }
  EXPECT_TRUE(run());
  EXPECT_EQ(world_.user.recordWithoutProgress(), workbook.record);
  EXPECT_EQ(books(), workbook.books);
}

class FromEverySource : public WorkbookRunTest,
                        public ::testing::WithParamInterface<WorkbookSource> {
 protected:
  FromEverySource() : WorkbookRunTest(GetParam()) {}

  /// The workbook is refused, and no file has changed.
  void expectNoWorkbook(const std::string& bytes) {
    write(bytes);
    world_.user.forget();
    const auto before = world_.disk.contents();
    EXPECT_TRUE(run());
    EXPECT_THAT(world_.user.recordWithoutProgress(),
                ElementsAre("critical: Not a valid Excel file", kEnd));
    EXPECT_EQ(world_.disk.contents(), before);
  }
};

INSTANTIATE_TEST_SUITE_P(Of,
                         FromEverySource,
                         ::testing::ValuesIn(workbookSources()),
                         [](const auto& source) { return nameOf(source.param); });

TEST_P(FromEverySource, WhatIsNoWorkbookChangesNothing) {
  expectNoWorkbook("a text");
  expectNoWorkbook("");
  expectNoWorkbook(encryptedWorkbook());
  const std::string whole = workbookBytes(kind(), {headingSheet(kLathe), kList});
  expectNoWorkbook(whole.substr(0, whole.size() / 2));
}

TEST_P(FromEverySource, ABombChangesNothing) {
  expectNoWorkbook(bombOfSpaces());
  expectNoWorkbook(bombOfSharedTexts(kind()));
}

TEST_P(FromEverySource, KeywordsCategoriesAndLinkIdentifiersAreRecorded) {
  world_.disk.write("Docs/Prod/Quor_BookCategories.xml", "<BookSet_Categories/>");
  write({headingSheet({kLathe[0],
                       {"2", "Chuck", "chuck.htm"},
                       {"3", "Jaws", "chuck.htm", "#jaws", "Jaws"},
                       {"1", "The Saw", "Saw\\cover.htm", "", "Saw"}}),
         bookSheet({{"Lathe", "LTH", "turning, R&D", "Machines;Wood"}, {"Saw", "SAW"}})});
  EXPECT_TRUE(run());
  EXPECT_THAT(world_.user.recordWithoutProgress(), ElementsAre(kEnd));
  const auto from = [](const std::string& document, const std::string& root) {
    return document.substr(document.find("<" + root));
  };
  EXPECT_EQ(from(world_.text("Docs/Prod/Quor_SearchKeywords.xml"), "Books>"),
            "<Books>\n"
            "\t<Book Book_Name=\"Lathe\">\n"
            "\t\t<Keywords>\n"
            "\t\t\t<Keyword>turning</Keyword>\n"
            "\t\t\t<Keyword>R&amp;amp;D</Keyword>\n"
            "\t\t</Keywords>\n"
            "\t</Book>\n"
            "</Books>\n");
  EXPECT_EQ(world_.disk.read("Docs/Prod/Quor_BookCategories.xml"),
            "<BookSet_Categories>\r\n"
            "\t<Category>\r\n"
            "\t\t<CategoryName>Machines</CategoryName>\r\n"
            "\t\t<BookAcro>LTH</BookAcro>\r\n"
            "\t</Category>\r\n"
            "\t<Category>\r\n"
            "\t\t<CategoryName>Wood</CategoryName>\r\n"
            "\t\t<BookAcro>LTH</BookAcro>\r\n"
            "\t</Category>\r\n"
            "</BookSet_Categories>\r\n");
  EXPECT_EQ(from(world_.text("Docs/Prod/Quor_LinkID.xml"), "LINKS>"),
            "<LINKS>\n"
            "\t<IBD>\n"
            "\t\t<ID>\n"
            "\t\t\t<LinkID>Jaws</LinkID>\n"
            "\t\t\t<FullLink>LTH@quor@@quor@The Lathe@quor@Chuck</FullLink>\n"
            "\t\t\t<LinkIDSourceFile>Prod\\Lathe\\chuck.htm#jaws</LinkIDSourceFile>\n"
            "\t\t\t<BookAcro>LTH</BookAcro>\n"
            "\t\t</ID>\n"
            "\t\t<ID>\n"
            "\t\t\t<LinkID>Saw</LinkID>\n"
            "\t\t\t<FullLink>SAW@quor@</FullLink>\n"
            "\t\t\t<LinkIDSourceFile>Prod\\Saw\\Saw\\cover.htm</LinkIDSourceFile>\n"
            "\t\t\t<BookAcro>SAW</BookAcro>\n"
            "\t\t</ID>\n"
            "\t</IBD>\n"
            "</LINKS>\n");
}

TEST_P(FromEverySource, Row32768EndsInAnOverflow) {
  std::vector<HeadingRow> many(32'765, {"2", "n", "f"});
  many.front() = kLathe[0];
  write({headingSheet(many), kList});
  EXPECT_TRUE(run());
  EXPECT_THAT(
      world_.user.recordWithoutProgress(),
      ElementsAre("critical: Error(6): Overflow\rQuorbind: Quor_Book::mbcheckXLForNodeLevel",
                  kEnd));
  EXPECT_THAT(books(), ElementsAre());
}

TEST_P(FromEverySource, BooksOfASheetThatAHostHasOpenAreCounted) {
  const auto count = [this](const std::vector<std::string>& levels) {
    PaperSheet sheet{{}, {}};
    for (const std::string& level : levels) {
      sheet.push_back({level});
    }
    write({sheet});
    world_.user.forget();
    const auto workbook = world_.platform().spreadsheets.open(arguments_.vstrtocpath);
    return book_.getExcelBookCount(*workbook->worksheet(1), 1);
  };
  EXPECT_EQ(count({"1", "2", "2", "1", "3"}), 2);
  EXPECT_EQ(count({"", "1"}), 0);
  EXPECT_EQ(count({" 1 ", "01", "x1"}), 2);
  EXPECT_EQ(world_.user.record(), noLevel(5, "x1"));
}

TEST_P(FromEverySource, AWorkbookWithMacrosIsOneToo) {
  world_.disk.write("in/book.xlsm", workbookBytes(kind(), {headingSheet(kLathe), kList}));
  arguments_.vstrtocpath = "C:\\in\\book.xlsm";
  EXPECT_TRUE(run());
  EXPECT_THAT(world_.user.recordWithoutProgress(), ElementsAre(kEnd));
  EXPECT_THAT(books(), ElementsAre("Lathe (LTH): Chuck"));
}

}  // namespace
}  // namespace quorbind::testing
