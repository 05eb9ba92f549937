#include "tests/cli/workbook_test.h"
#include "tests/support/hostile_workbooks.h"

namespace quorbind::testing {
namespace {

/// Workbooks that are refused, each with its message and the place, and with nothing changed.
class WorkbookRules : public WorkbookTest {
 protected:
  /// A sheet with one book of which the second row is `row`, and a list that names it.
  void writeWithRow(const std::vector<std::string>& row) const {
    PaperSheet sheet = headingSheet({{"1", "The Lathe", "Lathe\\cover.htm"}});
    sheet.push_back(row);
    sheet.push_back({"2", "", "Turning", "", "turning.htm"});
    write({sheet, bookSheet({{"Lathe", "LTH"}})});
  }
  static std::string refusal(const std::string& message, const std::string& place) {
    return "critical: " + message + "\nat BOOKS: " + place + "\n";
  }
  static std::string refusalOfCell(const std::string& message,
                                   const std::string& cell,
                                   const std::string& place) {
    return "critical: " + message + "\noffending line: " + cell + "\nat BOOKS: " + place + "\n";
  }
  static std::string noInteger(int row, const std::string& cell) {
    const std::string number = std::to_string(row);
    return refusalOfCell("Row: " + number + " Column:1\nError:Node Level should be Integer",
                         cell,
                         "sheet 1, row " + number + ", column 1");
  }
  static constexpr const char* kCountsDiffer =
      "Number Of Entry's in Node Level/Node Name/File Name Does not Match";
};

INSTANTIATE_TEST_SUITE_P(Kinds,
                         WorkbookRules,
                         ::testing::Values(WorkbookKind::kXlsx, WorkbookKind::kXls),
                         kindName);

// The file

TEST_P(WorkbookRules, AFileThatIsNoWorkbook) {
  disk.write(name(), "a text");
  expectRefused(4, "critical: Not a valid Excel file\nThe file is no workbook.\n");
}

TEST_P(WorkbookRules, AnEmptyFile) {
  disk.write(name(), "");
  expectRefused(4, "critical: Not a valid Excel file\nThe file is empty.\n");
}

TEST_P(WorkbookRules, AnEncryptedWorkbook) {
  disk.write(name(), encryptedWorkbook());
  expectRefused(4, "critical: Not a valid Excel file\nThe workbook is encrypted.\n");
}

TEST_P(WorkbookRules, AWorkbookThatIsCutOff) {
  const std::string whole = workbookBytes(GetParam(), {headingSheet(kHeadings), bookSheet(kBooks)});
  disk.write(name(), whole.substr(0, whole.size() / 2));
  const Tree before = disk.contents();
  const Outcome outcome = addBooks();
  EXPECT_EQ(outcome.status, 4);
  EXPECT_TRUE(outcome.err.starts_with("critical: Not a valid Excel file\n")) << outcome.err;
  EXPECT_TRUE(outcome.err.ends_with("quorbind: BOOKS: nothing was added\n")) << outcome.err;
  EXPECT_EQ(disk.contents(), before);
}

/// What only a packed workbook can be.
class PackedWorkbookRules : public WorkbookRules {};

INSTANTIATE_TEST_SUITE_P(Kinds,
                         PackedWorkbookRules,
                         ::testing::Values(WorkbookKind::kXlsx),
                         kindName);

TEST_P(PackedWorkbookRules, ABombOfSpaces) {
  disk.write(name(), bombOfSpaces());
  expectRefused(
      4,
      "critical: Not a valid Excel file\n"
      "xl/worksheets/sheet1.xml is packed more tightly than a part of a workbook may be.\n");
}

TEST_P(WorkbookRules, ABombOfSharedTexts) {
  disk.write(name(), bombOfSharedTexts(GetParam()));
  expectRefused(4,
                "critical: Not a valid Excel file\n"
                "The cells display more text than those of a workbook may.\n");
}

TEST_P(WorkbookRules, AWorkbookWithoutSheets) {
  write(std::vector<PaperSheet>{});
  expectRefused(1, refusal("Unable to Locate WorkSheet1", "sheet 1"));
}

// The sheet of headings

TEST_P(WorkbookRules, AnEmptySheet) {
  write({headingSheet({}), bookSheet({})});
  expectRefused(1, refusal("Error:There is no Node Level 1 from row 3 on", "sheet 1"));
}

TEST_P(WorkbookRules, EveryHeaderThatIsMissing) {
  PaperSheet sheet = headingSheet(kHeadings);
  sheet[0] = {"Level", "", "Node Name", "", "Files"};
  write({sheet, bookSheet(kBooks)});
  expectRefused(1,
                refusal("Node Level Information is not Found", "sheet 1, row 1, column 1") +
                    refusal("FileName information not found", "sheet 1, row 1, column 5"));
}

TEST_P(WorkbookRules, HeadersAreReadInAnyLetterCase) {
  PaperSheet sheet = headingSheet(kHeadings);
  sheet[0] = {"node level", "", "NODE NAME", "", "File name", "", "anything"};
  write({sheet, bookSheet(kBooks)});
  EXPECT_EQ(run({"check", name()}).status, 0);
}

TEST_P(WorkbookRules, EveryLevelThatIsNoInteger) {
  write({{"1", "The Lathe", "Lathe\\cover.htm"},
         {"x", "Chuck", "chuck.htm"},
         {"2", "Turning", "turning.htm"},
         {"40000", "Speed", "speed.htm"}},
        {{"Lathe", "LTH"}});
  expectRefused(1, noInteger(4, "x") + noInteger(6, "40000"));
}

TEST_P(WorkbookRules, ALevelThatIsADateOrAnError) {
  write({{"1", "The Lathe", "Lathe\\cover.htm"},
         {"1/1/2021", "Chuck", "chuck.htm"},
         {"#N/A", "Turning", "turning.htm"}},
        {{"Lathe", "LTH"}});
  expectRefused(1, noInteger(4, "1/1/2021") + noInteger(5, "#N/A"));
}

TEST_P(WorkbookRules, ALevelThatIsTooLowOrJumps) {
  write({{"1", "The Lathe", "Lathe\\cover.htm"},
         {"0", "Chuck", "chuck.htm"},
         {"3", "Turning", "turning.htm"}},
        {{"Lathe", "LTH"}});
  expectRefused(
      1,
      refusalOfCell("Row: 4 Column:1\nError:Node Level should be 1 or more",
                    "0",
                    "sheet 1, row 4, column 1") +
          refusalOfCell(
              "Row: 5 Column:1\nError:Node Level is more than one deeper than all before it",
              "3",
              "sheet 1, row 5, column 1"));
}

TEST_P(WorkbookRules, ColumnsOfDifferentLengthBookByBook) {
  write({{"1", "The Lathe", "Lathe\\cover.htm"},
         {"2", "", "chuck.htm"},
         {"1", "The Saw", "Saw\\cover.htm"},
         {"2", "Blade", "blade.htm"},
         {"1", "The Drill", "Drill\\cover.htm"},
         {"2", "Bit", ""}},
        {{"Lathe", "LTH"}, {"Saw", "SAW"}, {"Drill", "DRL"}});
  expectRefused(1,
                refusal(kCountsDiffer, "sheet 1, row 4, column 3") +
                    refusal(kCountsDiffer, "sheet 1, row 8, column 5"));
}

TEST_P(WorkbookRules, NamesThatAreMergedIntoOneCell) {
  write({headingSheet({{"1", "The Lathe", "Lathe\\cover.htm"}, {"2", "", "chuck.htm"}}),
         bookSheet({{"Lathe", "LTH"}})},
        {.firstMergedRow = 3, .lastMergedRow = 4});
  expectRefused(1, refusal(kCountsDiffer, "sheet 1, row 4, column 3"));
}

TEST_P(WorkbookRules, ABlankRowInsideOfABook) {
  writeWithRow({});
  expectRefused(
      1,
      refusal("Row: 4 Column:1\nError:Node Level is missing, and what follows would not be read",
              "sheet 1, row 4, column 1"));
}

TEST_P(WorkbookRules, ALastRowWithoutALevel) {
  write({{"1", "The Lathe", "Lathe\\cover.htm"}, {"", "Chuck", "chuck.htm"}}, {{"Lathe", "LTH"}});
  expectRefused(
      1,
      refusal("Row: 4 Column:1\nError:Node Level is missing, and what follows would not be read",
              "sheet 1, row 4, column 1"));
}

TEST_P(WorkbookRules, AFirstBookOfOneRowInFrontOfAnother) {
  write({{"1", "The Lathe", "Lathe\\cover.htm"},
         {"1", "The Saw", "Saw\\cover.htm"},
         {"2", "Blade", "blade.htm"}},
        kBooks);
  expectRefused(1,
                refusal("Row: 3 Column:1\n"
                        "Error:The first book should have a heading where another book follows",
                        "sheet 1, row 3, column 1"));
}

TEST_P(WorkbookRules, ANoteInAColumnThatHasToBeEmpty) {
  writeWithRow({"2", "", "Chuck", "see page 4", "chuck.htm"});
  expectRefused(
      1,
      refusalOfCell("Row: 4 Column:4\n"
                    "Error:The cell should be empty; it would be taken for that of the next column",
                    "see page 4",
                    "sheet 1, row 4, column 4"));
}

TEST_P(WorkbookRules, TextsThatTheExportCanNotHold) {
  writeWithRow({"2", "", "a $@@$ b", "", "chuck.htm"});
  expectRefused(
      1,
      refusalOfCell("Row: 4 Column:3\nError:The cell should hold no line break, and no $@@$",
                    "a $@@$ b",
                    "sheet 1, row 4, column 3"));
}

TEST_P(WorkbookRules, AFolderThatLeadsOutOfTheLibrary) {
  write({{"1", "The Lathe", "..\\cover.htm"}, {"2", "Chuck", "chuck.htm"}}, {{"Lathe", "LTH"}});
  expectRefused(1,
                refusalOfCell("Error:Book Folder leads out of the library: ..\\cover.htm",
                              "..\\cover.htm",
                              "sheet 1, row 3, column 5"));
}

TEST_P(WorkbookRules, ARowBehindTheLastThatCanBeRead) {
  std::vector<HeadingRow> rows{{"1", "The Lathe", "Lathe\\cover.htm"}};
  rows.resize(32'764, {"2", "Chuck", "chuck.htm"});
  write(rows, {{"Lathe", "LTH"}});
  EXPECT_EQ(run({"check", name()}).status, 0);

  rows.push_back({"2", "Chuck", "chuck.htm"});
  write(rows, {{"Lathe", "LTH"}});
  expectRefused(4,
                refusal("Row: 32767 Column:1\nError:A sheet may have no more than 32766 rows",
                        "sheet 1, row 32767, column 1"));
}

// The list of books

TEST_P(WorkbookRules, ForbiddenCharactersInNames) {
  write({{"1", "The Lathe", "Lathe\\cover.htm"},
         {"2", "Chuck", "chuck.htm"},
         {"1", "The Saw", "Saw\\cover.htm"},
         {"2", "Blade", "blade.htm"}},
        {{"Lathe@quor@", "L/T"}, {"Saw &amp; Blade", "S'W"}});
  expectRefused(
      1,
      refusalOfCell("Book Name can not contain @quor@", "Lathe@quor@", "sheet 2, row 3, column 1") +
          refusalOfCell(
              "Book Acro can not contain  (/\\:*?\"<>)", "L/T", "sheet 2, row 3, column 2") +
          "information: &amp;Cannot be used in BookName\n"
          "offending line: Saw &amp; Blade\n"
          "at BOOKS: sheet 2, row 4, column 1\n" +
          refusalOfCell(
              "Book Acro can not contain ('\"&<>@quor@)", "S&apos;W", "sheet 2, row 4, column 2"));
}

TEST_P(WorkbookRules, TwoBooksOfOneName) {
  write(kHeadings, {{"Lathe", "LTH"}, {"Lathe", "LTH"}});
  expectRefused(1,
                refusal("Error:Book Name Lathe already Exists", "sheet 2, row 4, column 1") +
                    refusal("Error:Book Acro LTH already Exists", "sheet 2, row 4, column 2"));
}

TEST_P(WorkbookRules, ACategoryThatCouldNotBeLookedUp) {
  write(kHeadings, {{"Lathe", "LTH", "", "Mach'ines;Metal"}, {"Saw", "SAW"}});
  expectRefused(1,
                refusalOfCell("Row: 3 Column:4\nError:A category should hold no apostrophe",
                              "Mach'ines",
                              "sheet 2, row 3, column 4"));
}

TEST_P(WorkbookRules, EveryKeywordThatBreaksARule) {
  write(kHeadings, {{"Lathe", "LTH", "a##b;turning;two words"}, {"Saw", "SAW"}});
  expectRefused(1,
                "message: Search keyword should not contain '##' in it.\n"
                "offending line: a##b\n"
                "at BOOKS: sheet 2, row 3, column 3\n"
                "message: Search keyword should not have any spaces in between the characters\n"
                "offending line: two words\n"
                "at BOOKS: sheet 2, row 3, column 3\n");
}

TEST_P(PackedWorkbookRules, TextsThatNoXmlFileCanHold) {
  write(kHeadings, {{"La_x0001_the", "L_x0001_T", "a_x0001_b", "Mach_x0001_ines"}, {"Saw", "SAW"}});
  const auto notKept = [](const std::string& text, const std::string& column) {
    return refusalOfCell("Row: 3 Column:" + column + "\nError:the text " + text +
                             " can not be kept: it holds a character that no XML file can hold",
                         text,
                         "sheet 2, row 3, column " + column);
  };
  expectRefused(1,
                notKept("La\\x01the", "1") + notKept("L\\x01T", "2") + notKept("a\\x01b", "3") +
                    notKept("Mach\\x01ines", "4"));
}

TEST_P(WorkbookRules, LinkIdentifiersWithoutAListOfBooks) {
  write({headingSheet(kHeadings)});
  expectRefused(
      1, refusal("Error:There is no second sheet, which the link identifiers need", "sheet 2"));
}

TEST_P(WorkbookRules, AListShorterThanTheSheetWithNobodyToAsk) {
  write(kHeadings, {{"Lathe", "LTH"}});
  EXPECT_EQ(run({"check", name()}).status, 0);
  expectAdditionRefused(6,
                        "",
                        "nothing was added: give --name and --acro, or the acronym in sheet 2, "
                        "column 2: row 4");
}

TEST_P(WorkbookRules, AWorkbookOfOneSheetWithNobodyToAsk) {
  write({headingSheet({{"1", "The Lathe", "Lathe\\cover.htm"},
                       {"2", "Chuck", "chuck.htm"},
                       {"1", "The Saw", "Saw\\cover.htm"}})});
  EXPECT_EQ(run({"check", name()}).status, 0);
  expectAdditionRefused(
      6,
      "",
      "nothing was added: give --name and --acro once for each book, or the acronyms in sheet 2, "
      "column 2: row 3, row 4");
}

TEST_P(WorkbookRules, FlagsThatNameFewerOrMoreBooksThanTheListGivesNoAcronym) {
  const auto expectCountRefused = [this](const std::string& count, const Words& flags) {
    expectAdditionRefused(1, "critical: " + count + "\n", "nothing was added", flags);
  };
  write(kHeadings, {});
  const std::string both =
      ", and the list of books gives no acronym to 2 books: sheet 2, column 2: row 3, row 4";
  expectCountRefused("--acro is given 1 time" + both, {"--acro", "A"});
  expectCountRefused("--name is given 1 time" + both,
                     {"--name", "A", "--acro", "A", "--acro", "B"});
  expectCountRefused("--acro is given 3 times" + both,
                     {"--name", "A", "--name", "B", "--acro", "A", "--acro", "B", "--acro", "C"});
  write(kHeadings, {{"Lathe", "LTH"}});
  expectCountRefused(
      "--name is given 2 times, and the list of books gives no acronym to 1 book: sheet 2, column "
      "2: row 4",
      {"--name", "A", "--acro", "A", "--name", "B", "--acro", "B"});
  writeTwoBooks();
  expectCountRefused("--name is given 1 time, and the list of books gives every book an acronym",
                     {"--name", "A", "--acro", "A"});
}

TEST_P(WorkbookRules, OneFlagOfThePairForTwoBooksWithNobodyToAsk) {
  write(kHeadings, {});
  expectAdditionRefused(6,
                        "",
                        "nothing was added: give --name and --acro once for each book, or the "
                        "acronyms in sheet 2, column 2: row 3, row 4",
                        {"--acro", "A", "--acro", "B"});
}

TEST_P(WorkbookRules, ASecondPairOfFlagsThatBreaksARuleOfTheDialog) {
  write(kHeadings, {});
  const auto expectPairRefused =
      [this](const std::string& box, const std::string& name, const std::string& acronym) {
        expectAdditionRefused(1,
                              box + "\n",
                              "nothing was added",
                              {"--name", "A", "--acro", "A", "--name", name, "--acro", acronym});
      };
  expectPairRefused("critical: Book Name can not contain @quor@", "B@quor@", "B");
  expectPairRefused("critical: Book Acro can not contain  (/\\:*?\"<>)", "B", "B/");
  expectPairRefused("critical: Book Name/Book Acro can not be null", "B", "");
  expectPairRefused("critical: Book Name/Book Acro can not be null", " ", "B");
  expectPairRefused(
      "critical: --acro is too long: the name that it gives has 309 bytes, and 255 "
      "are the most that a name can have",
      "B",
      std::string(300, 'B'));
}

TEST_P(WorkbookRules, PairsOfFlagsThatNameTwoBooksAlike) {
  write(kHeadings, {});
  expectAdditionRefused(
      1,
      refusal("Error:Book Name saws already Exists", "sheet 2, row 4, column 1") +
          refusal("Error:Book Acro SWS already Exists", "sheet 2, row 4, column 2"),
      "nothing was added",
      {"--name", "Saws", "--acro", "SWS", "--name", "saws", "--acro", "SWS"});
}

TEST_P(WorkbookRules, APairOfFlagsThatNamesABookAsTheLibraryOrTheListDoes) {
  write(kHeadings, {{"Lathe", "LTH"}, {"Saw", "SAW"}});
  ASSERT_EQ(addBooks().status, 0);
  write(kHeadings, {});
  expectAdditionRefused(1,
                        refusal("Error:Book Acro SAW already Exists", "sheet 2, row 4, column 2"),
                        "nothing was added",
                        {"--name", "A", "--acro", "A", "--name", "B", "--acro", "SAW"});
  write(kHeadings, {{"New", "NEW"}});
  expectAdditionRefused(1,
                        refusal("Error:Book Name New already Exists", "sheet 2, row 4, column 1"),
                        "nothing was added",
                        {"--name", "New", "--acro", "B"});
}

TEST_P(WorkbookRules, ABookFileInThePlaceOfThatOfTheSecondPairOfFlags) {
  write(kHeadings, {});
  disk.write("Saw/Book_B.xml", "the author's own");
  expectAdditionRefused(
      1,
      "critical: DISK/Saw/Book_B.xml: the file is in the way; move it or delete it\n",
      "nothing was added",
      {"--name", "A", "--acro", "A", "--name", "B", "--acro", "B"});
}

TEST_P(WorkbookRules, ABookWithoutAFolderAndNobodyToAsk) {
  write({{"1", "The Lathe", "cover.htm"}, {"2", "Chuck", "chuck.htm"}}, {{"Lathe", "LTH"}});
  expectAdditionRefused(6, "", "nothing was added: give --folder");
}

// What stands in the way

TEST_P(WorkbookRules, NamesThatTheLibraryHas) {
  write(kHeadings, {{"Lathe", "LTH"}, {"Saw", "SAW"}});
  ASSERT_EQ(addBooks().status, 0);
  write(kHeadings, {{"New", "NEW"}, {"Saw", "LTH"}});
  expectAdditionRefused(
      1,
      refusal("Error:Book Name Saw already Exists", "sheet 2, row 4, column 1") +
          refusal("Error:Book Acro LTH already Exists", "sheet 2, row 4, column 2"),
      "nothing was added");
}

TEST_P(WorkbookRules, NamesThatTheLibraryHasInAnotherLetterCase) {
  write(kHeadings, {{"Lathe", "LTH"}, {"Saw", "SAW"}});
  ASSERT_EQ(addBooks().status, 0);
  write(kHeadings, {{"New", "NEW"}, {"saw", "lth"}});
  expectAdditionRefused(
      1,
      refusal("Error:Book Name saw already Exists", "sheet 2, row 4, column 1") +
          refusal("Error:Book Acro lth already Exists", "sheet 2, row 4, column 2"),
      "nothing was added");
}

TEST_P(WorkbookRules, NamesThatDifferInLetterCaseAlone) {
  write(kHeadings, {{"Lathe", "LTH"}, {"LATHE", "Lth"}});
  expectRefused(1,
                refusal("Error:Book Name LATHE already Exists", "sheet 2, row 4, column 1") +
                    refusal("Error:Book Acro Lth already Exists", "sheet 2, row 4, column 2"));
}

TEST_P(WorkbookRules, ABookFileOfTheAuthorsOwn) {
  writeTwoBooks();
  disk.write("Book_SAW.xml", "the author's own");
  expectAdditionRefused(
      1,
      "critical: DISK/Book_SAW.xml: the file is in the way; move it or delete it\n",
      "nothing was added");
}

TEST_P(WorkbookRules, AFileWhereTheExportGoes) {
  writeTwoBooks();
  const std::string exported = "BOOKS_Temp.txt" + std::string(name() == "books.xlsx" ? "X" : "");
  disk.write("books_temp.txt" + std::string(name() == "books.xlsx" ? "x" : ""), "mine");
  expectAdditionRefused(
      1,
      "critical: DISK/" + exported + ": the file is in the way; move it or delete it\n",
      "nothing was added");
}

TEST_P(WorkbookRules, ADamagedSideFile) {
  writeTwoBooks();
  disk.write("server/Docs/Plant/Quor_SearchKeywords.xml", "<Books>");
  const Tree before = disk.contents();
  const Outcome outcome = addBooks();
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(disk.contents(), before);
}

}  // namespace
}  // namespace quorbind::testing
