#include "tests/cli/workbook_test.h"

#include <algorithm>

#include "tests/cli/terminal_session.h"

namespace quorbind::testing {
namespace {

/// What adding, checking and listing make of a workbook that breaks no rule.
class Workbook : public WorkbookTest {
 protected:
  [[nodiscard]] std::string shelf() const {
    return quorbind({"show", "--server", "server", "--library", "Plant"}).out;
  }
  [[nodiscard]] std::string headings(const std::string& acronym) const {
    return quorbind({"show", acronym, "--server", "server", "--library", "Plant"}).out;
  }
  [[nodiscard]] Command command(const Words& more = {}) const {
    return {.words = joined({quorbindExecutable()}, addWordsOf(more)),
            .folder = disk.path().string(),
            .environment = environment};
  }
};

INSTANTIATE_TEST_SUITE_P(Kinds,
                         Workbook,
                         ::testing::Values(WorkbookKind::kXlsx, WorkbookKind::kXls),
                         kindName);

// Adding

// Of the row of a book itself only the name of the document goes into the book file.
TEST_P(Workbook, IsAddedBookByBookWithALineForEach) {
  writeTwoBooks();
  const Outcome outcome = addBooks();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out,
            "Added Lathe (LTH) to Plant, folder Lathe: 2 files.\n"
            "missing: cover.htm\n"
            "Added Saw (SAW) to Plant, folder Saw: 2 files.\n"
            "missing: cover.htm\n");
  EXPECT_EQ(shelf(),
            "ACRONYM  NAME   FOLDER\n"
            "LTH      Lathe  Lathe\n"
            "SAW      Saw    Saw\n");
  EXPECT_EQ(headings("LTH"),
            "Lathe (LTH), folder Lathe\n"
            "categories: Machines\n"
            "  Chuck  chuck.htm\n");
  EXPECT_EQ(headings("SAW"),
            "Saw (SAW), folder Saw\n"
            "categories: Machines; Wood\n"
            "  Blade  blade.htm\n");
  EXPECT_EQ(filesBelow("server/Docs/Plant/Lathe/"), (Words{"Book_LTH.xml", "chuck.htm"}));
}

TEST_P(Workbook, LeavesNothingBesideItself) {
  writeTwoBooks();
  const std::vector<std::string> before = filesBelow("");
  const std::string bytes = disk.read(name());
  EXPECT_EQ(addBooks().status, 0);
  for (const std::string& file : filesBelow("")) {
    EXPECT_TRUE(file.starts_with("server/") ||
                std::find(before.begin(), before.end(), file) != before.end())
        << file;
  }
  EXPECT_EQ(disk.read(name()), bytes);
}

TEST_P(Workbook, HasItsKeywordsCategoriesAndLinkIdentifiersRecorded) {
  writeTwoBooks();
  EXPECT_EQ(addBooks().status, 0);
  EXPECT_EQ(quorbind({"keywords", "list", "--server", "server", "--library", "Plant"}).out,
            "BOOK   KEYWORDS\n"
            "Lathe  turning, chuck\n");
  const std::string filed =
      quorbind({"categories", "list", "--server", "server", "--library", "Plant"}).out;
  EXPECT_NE(filed.find("\nMachines           LTH, SAW\n"), std::string::npos) << filed;
  EXPECT_NE(filed.find("\nWood               SAW\n"), std::string::npos) << filed;
  EXPECT_NE(libraryText("Quor_LinkID.xml")
                .find("\t\t\t<LinkID>Jaws</LinkID>\n"
                      "\t\t\t<FullLink>LTH@quor@@quor@The Lathe</FullLink>\n"
                      "\t\t\t<LinkIDSourceFile>Plant\\Lathe\\chuck.htm#jaws</LinkIDSourceFile>\n"
                      "\t\t\t<BookAcro>LTH</BookAcro>\n"),
            std::string::npos);
}

TEST_P(Workbook, WithMacrosIsOneToo) {
  writeTwoBooks();
  disk.write("macros.xlsm", disk.read(name()));
  const Outcome outcome = addFile("macros.xlsm");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "Added Lathe (LTH) to Plant, folder Lathe: 2 files.\n"
            "missing: cover.htm\n"
            "Added Saw (SAW) to Plant, folder Saw: 2 files.\n"
            "missing: cover.htm\n");
}

TEST_P(Workbook, NamesTheDocumentsThatAReaderWouldNotFind) {
  writeTwoBooks();
  std::filesystem::remove(disk.path() / "Saw/blade.htm");
  EXPECT_EQ(addBooks().out,
            "Added Lathe (LTH) to Plant, folder Lathe: 2 files.\n"
            "missing: cover.htm\n"
            "Added Saw (SAW) to Plant, folder Saw: 1 file.\n"
            "missing: cover.htm\n"
            "missing: blade.htm\n");
}

TEST_P(Workbook, IsReportedAsOneObjectWithItsBooks) {
  writeTwoBooks();
  const Outcome outcome = addBooks({"--json"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "{\n  \"format\": 1,\n"
            "  \"status\": 0,\n"
            "  \"added\": true,\n"
            "  \"books\": [\n"
            "    {\n"
            "      \"acronym\": \"LTH\",\n"
            "      \"name\": \"Lathe\",\n"
            "      \"folder\": \"Lathe\",\n"
            "      \"files\": [\n"
            "        \"Book_LTH.xml\",\n"
            "        \"chuck.htm\"\n"
            "      ],\n"
            "      \"missing\": [\n"
            "        \"cover.htm\"\n"
            "      ]\n"
            "    },\n"
            "    {\n"
            "      \"acronym\": \"SAW\",\n"
            "      \"name\": \"Saw\",\n"
            "      \"folder\": \"Saw\",\n"
            "      \"files\": [\n"
            "        \"Book_SAW.xml\",\n"
            "        \"blade.htm\"\n"
            "      ],\n"
            "      \"missing\": [\n"
            "        \"cover.htm\"\n"
            "      ]\n"
            "    }\n"
            "  ],\n"
            "  \"messages\": []\n"
            "}\n");
}

TEST_P(Workbook, GivesABookWithoutANameThatOfItsFirstRow) {
  write(kHeadings, {{"", "LTH"}, {"Saw", "SAW"}});
  EXPECT_EQ(addBooks().status, 0);
  EXPECT_EQ(shelf(),
            "ACRONYM  NAME       FOLDER\n"
            "LTH      The Lathe  Lathe\n"
            "SAW      Saw        Saw\n");
}

TEST_P(Workbook, KeepsMarkupCharactersInNames) {
  write(kHeadings, {{"Lathe & Chuck", "LTH"}, {"Saw < 1 m", "SAW"}});
  EXPECT_EQ(addBooks().out,
            "Added Lathe & Chuck (LTH) to Plant, folder Lathe: 1 file.\n"
            "missing: cover.htm\n"
            "missing: chuck.htm\n"
            "Added Saw < 1 m (SAW) to Plant, folder Saw: 1 file.\n"
            "missing: cover.htm\n"
            "missing: blade.htm\n");
}

TEST_P(Workbook, WithAHiddenFirstSheetIsReadLikeAnyOther) {
  write({headingSheet(kHeadings), bookSheet(kBooks)}, {.firstSheetIsHidden = true});
  EXPECT_EQ(run({"check", name()}).status, 0);
}

// Names, folders and what else flags say

TEST_P(Workbook, TakesNameAndAcronymFromTheFlagsForTheOneBookThatHasNone) {
  write(kHeadings, {{"Lathe", "LTH"}});
  const Outcome outcome = addBooks({"--name", "Saws", "--acro", "SWS"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(shelf(),
            "ACRONYM  NAME   FOLDER\n"
            "LTH      Lathe  Lathe\n"
            "SWS      Saws   Saw\n");
}

TEST_P(Workbook, TakesNamesAndAcronymsFromRepeatedFlagsInTheOrderOfItsList) {
  write({{"1", "The Lathe", "Lathe\\cover.htm"},
         {"2", "Chuck", "chuck.htm"},
         {"1", "The Saw", "Saw\\cover.htm"},
         {"2", "Blade", "blade.htm"},
         {"1", "The Drill", "Drill\\cover.htm"},
         {"2", "Bit", "bit.htm"}},
        {{"Lathe", ""}, {"Saw", "SAW"}});
  const Outcome outcome =
      addBooks({"--name", "R & D", "--acro", "RND", "--name", "Drills", "--acro", "DRL"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(shelf(),
            "ACRONYM  NAME    FOLDER\n"
            "RND      R & D   Lathe\n"
            "SAW      Saw     Saw\n"
            "DRL      Drills  Drill\n");
}

TEST_P(Workbook, OfThreeBooksWithoutAListTakesThreeOfEachFlag) {
  write({headingSheet({{"1", "The Lathe", "Lathe\\cover.htm"},
                       {"2", "Chuck", "chuck.htm"},
                       {"1", "The Saw", "Saw\\cover.htm"},
                       {"2", "Blade", "blade.htm"},
                       {"1", "The Drill", "Drill\\cover.htm"},
                       {"2", "Bit", "bit.htm"}})});
  EXPECT_EQ(addBooks({"--name",
                      "A",
                      "--name",
                      "B",
                      "--name",
                      "C",
                      "--acro",
                      "1",
                      "--acro",
                      "2",
                      "--acro",
                      "3"})
                .status,
            0);
  EXPECT_EQ(shelf(),
            "ACRONYM  NAME  FOLDER\n"
            "1        A     Lathe\n"
            "2        B     Saw\n"
            "3        C     Drill\n");
}

TEST_P(Workbook, TakesNamesAndAcronymsFromTheListsOfAJobFile) {
  write(kHeadings, {});
  disk.write("job.toml",
             "server = \"server\"\nlibrary = \"Plant\"\n[[book]]\ntoc = \"" + name() +
                 "\"\nname = [\"Lathes\", \"Saws\"]\nacro = [\"LTS\", \"SWS\"]\n");
  const Outcome outcome = quorbind({"add", "--job", "job.toml"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(shelf(),
            "ACRONYM  NAME    FOLDER\n"
            "LTS      Lathes  Lathe\n"
            "SWS      Saws    Saw\n");
}

TEST_P(Workbook, TakesOneFolderForAllBooksThatNameNone) {
  write({{"1", "The Lathe", "cover.htm"},
         {"2", "Chuck", "chuck.htm"},
         {"1", "The Saw", "Saw\\cover.htm"},
         {"2", "Blade", "blade.htm"},
         {"1", "The Drill", "cover.htm"},
         {"2", "Bit", "bit.htm"}},
        {{"Lathe", "LTH"}, {"Saw", "SAW"}, {"Drill", "DRL"}});
  const Outcome outcome = addBooks({"--folder", "Shop"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(shelf(),
            "ACRONYM  NAME   FOLDER\n"
            "LTH      Lathe  Shop\n"
            "SAW      Saw    Saw\n"
            "DRL      Drill  Shop\n");
}

TEST_P(Workbook, TellsOfTheFlagsThatItHasNoUseFor) {
  writeTwoBooks();
  const Outcome outcome = addBooks(
      {"--folder", "Shop", "--keywords", "a;b", "--categories", "C", "--create-categories"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err,
            "information: --folder Shop is not used: every book of the workbook names its own\n"
            "information: --keywords is not used: the list of books says it for each book\n"
            "information: --categories is not used: the list of books says it for each book\n"
            "information: --create-categories is not used for a workbook\n");
}

TEST_P(Workbook, GivesBooksWithoutCategoriesThoseOfTheFlagInTheirEntries) {
  write(kHeadings, {{"Lathe", "LTH", "", "Machines"}, {"Saw", "SAW"}});
  EXPECT_EQ(addBooks({"--category", "General"}).status, 0);
  EXPECT_NE(headings("LTH").find("categories: Machines\n"), std::string::npos);
  EXPECT_NE(headings("SAW").find("categories: General\n"), std::string::npos);
}

TEST_P(Workbook, TellsThatALibraryWithoutCategoriesFilesNone) {
  writeTwoBooks();
  std::filesystem::remove(disk.path() / "server/Docs/Plant/Quor_BookCategories.xml");
  const Outcome outcome = addBooks();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err,
            "information: the books are not filed: the library has no categories file\n");
}

TEST_P(Workbook, AsksForTheNamesThatItsListLacks) {
  write(kHeadings, {{"Lathe", ""}, {"", ""}});
  TerminalSession session(command());
  session.waitFor("Book Name: [Lathe] ");
  session.typeLine("");
  session.waitFor("Book Acro: ");
  session.typeLine("LTH");
  session.waitFor("Book Name: [The Saw] ");
  session.typeLine("");
  session.waitFor("Book Acro: ");
  session.typeLine("SAW");
  session.waitFor("Added The Saw (SAW)");
  EXPECT_EQ(session.finish().status, 0);
}

// A flag that is used up by a question about another book would name the wrong one.
TEST_P(Workbook, AsksAgainForATakenNameWithoutTheFlagsOfTheBooksBehind) {
  writeTwoBooks();
  ASSERT_EQ(addBooks().status, 0);
  write(kHeadings, {});
  TerminalSession session(
      command({"--name", "Lathe", "--acro", "L2", "--name", "Saws", "--acro", "SAW"}));
  session.waitFor("Error:Book Name Lathe already Exists\n");
  session.waitFor("Book Name: [Lathe] ");
  session.typeLine("Lathes");
  session.waitFor("Book Acro: [L2] ");
  session.typeLine("");
  session.waitFor("Error:Book Acro SAW already Exists\n");
  session.waitFor("Book Name: ");
  session.typeLine("Saws");
  session.waitFor("Book Acro: ");
  session.typeLine("SWS");
  session.waitFor("Added Saws (SWS)");
  EXPECT_EQ(session.finish().status, 0);
  EXPECT_EQ(shelf(),
            "ACRONYM  NAME    FOLDER\n"
            "LTH      Lathe   Lathe\n"
            "SAW      Saw     Saw\n"
            "L2       Lathes  Lathe\n"
            "SWS      Saws    Saw\n");
}

TEST_P(Workbook, KeepsTheFlagsForItsBookWhenOneInFrontIsAskedFor) {
  writeTwoBooks();
  ASSERT_EQ(addBooks().status, 0);
  write(kHeadings, {{"Lathe", "L2"}});
  TerminalSession session(command({"--name", "Saws", "--acro", "SWS"}));
  session.waitFor("Book Name: [Lathe] ");
  session.typeLine("Lathes");
  session.waitFor("Book Acro: [L2] ");
  session.typeLine("");
  session.waitFor("Added Saws (SWS)");
  EXPECT_EQ(session.finish().status, 0);
}

TEST_P(Workbook, AsksForTheNamesAloneWhereTheFlagsGiveTheAcronyms) {
  write(kHeadings, {});
  TerminalSession session(command({"--acro", "LTS", "--acro", "SWS"}));
  session.waitFor("Book Name: [The Lathe] ");
  session.typeLine("");
  session.waitFor("Book Name: [The Saw] ");
  session.typeLine("");
  session.waitFor("Added The Lathe (LTS)");
  session.waitFor("Added The Saw (SWS)");
  EXPECT_EQ(session.finish().status, 0);
}

TEST_P(Workbook, CancelGivesUpTheBooksFromThereOn) {
  write({{"1", "The Lathe", "Lathe\\cover.htm"},
         {"2", "Chuck", "chuck.htm"},
         {"1", "The Saw", "Saw\\cover.htm"},
         {"2", "Blade", "blade.htm"},
         {"1", "The Drill", "Drill\\cover.htm"},
         {"2", "Bit", "bit.htm"}},
        {{"Lathe", "LTH"}, {"Saw", ""}, {"Drill", "DRL"}});
  TerminalSession session(command());
  session.waitFor("Book Name: [Saw] ");
  session.endInput();
  session.waitFor("1 of 3 books added\n");
  EXPECT_EQ(session.finish().status, 1);
  EXPECT_EQ(shelf(),
            "ACRONYM  NAME   FOLDER\n"
            "LTH      Lathe  Lathe\n");
}

// Checking and listing

TEST_P(Workbook, IsCheckedWithoutLeavingAnything) {
  writeTwoBooks();
  const Tree before = disk.contents();
  const Outcome outcome = run({"check", name()});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "BOOKS: accepted, 2 books, 4 entries.\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(disk.contents(), before);
}

TEST_P(Workbook, IsCheckedForDocumentsInTheFolderOfTheirBookAndBesideIt) {
  writeTwoBooks();
  std::filesystem::rename(disk.path() / "Lathe/chuck.htm", disk.path() / "chuck.htm");
  std::filesystem::remove(disk.path() / "Saw/blade.htm");
  const Outcome outcome = run({"check", name()});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "BOOKS: sheet 1, row 6, column 5: missing: blade.htm\n"
            "BOOKS: accepted, 2 books, 4 entries.\n");
}

TEST_P(Workbook, IsCheckedWithTheWholeRunAsOneObject) {
  write({{"1", "The Lathe", "Lathe\\cover.htm"}, {"x", "Chuck", "chuck.htm"}}, {{"Lathe", "LTH"}});
  const Outcome outcome = run({"check", name(), "--json"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out,
            "{\n  \"format\": 1,\n"
            "  \"status\": 1,\n"
            "  \"accepted\": false,\n"
            "  \"books\": 1,\n"
            "  \"entries\": 2,\n"
            "  \"missing\": [\n"
            "    {\n"
            "      \"sheet\": 1,\n"
            "      \"row\": 3,\n"
            "      \"column\": 5,\n"
            "      \"file\": \"Lathe\\\\cover.htm\"\n"
            "    },\n"
            "    {\n"
            "      \"sheet\": 1,\n"
            "      \"row\": 4,\n"
            "      \"column\": 5,\n"
            "      \"file\": \"chuck.htm\"\n"
            "    }\n"
            "  ],\n"
            "  \"messages\": [\n"
            "    {\n"
            "      \"icon\": \"critical\",\n"
            "      \"title\": \"Quorbind\",\n"
            "      \"text\": \"Row: 4 Column:1\\rError:Node Level should be Integer\",\n"
            "      \"clipboard\": \"x\",\n"
            "      \"expected\": \"A whole number from 1.\"\n"
            "    }\n"
            "  ],\n"
            "  \"violations\": [\n"
            "    {\n"
            "      \"sheet\": 1,\n"
            "      \"row\": 4,\n"
            "      \"column\": 1,\n"
            "      \"text\": \"Row: 4 Column:1\\rError:Node Level should be Integer\",\n"
            "      \"cell\": \"x\",\n"
            "      \"expected\": \"A whole number from 1.\"\n"
            "    }\n"
            "  ],\n"
            "  \"note\": \"not accepted\"\n"
            "}\n");
}

TEST_P(Workbook, HasItsBooksListed) {
  write(kHeadings, {{"Lathe", "LTH", "turning;chuck", "Machines"}});
  const Outcome outcome = run({"books", "--in", name()});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out,
            "ACRONYM  NAME     FOLDER  ROWS\n"
            "LTH      Lathe    Lathe   3-4\n"
            "         The Saw  Saw     5-6\n");
  EXPECT_EQ(run({"books", "--in", name(), "--json"}).out,
            "{\n  \"format\": 1,\n"
            "  \"books\": [\n"
            "    {\n"
            "      \"acronym\": \"LTH\",\n"
            "      \"name\": \"Lathe\",\n"
            "      \"folder\": \"Lathe\",\n"
            "      \"keywords\": [\n"
            "        \"turning\",\n"
            "        \"chuck\"\n"
            "      ],\n"
            "      \"categories\": [\n"
            "        \"Machines\"\n"
            "      ],\n"
            "      \"firstRow\": 3,\n"
            "      \"lastRow\": 4\n"
            "    },\n"
            "    {\n"
            "      \"acronym\": \"\",\n"
            "      \"name\": \"The Saw\",\n"
            "      \"folder\": \"Saw\",\n"
            "      \"keywords\": [],\n"
            "      \"categories\": [],\n"
            "      \"firstRow\": 5,\n"
            "      \"lastRow\": 6\n"
            "    }\n"
            "  ]\n"
            "}\n");
}

TEST_P(Workbook, ThatBreaksARuleHasNoBooksToList) {
  write({{"x", "The Lathe", "Lathe\\cover.htm"}}, {{"Lathe", "LTH"}});
  const Outcome outcome = run({"books", "--in", name()});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err,
            "critical: Row: 3 Column:1\n"
            "Error:Node Level should be Integer\n"
            "offending line: x\n"
            "at BOOKS: sheet 1, row 3, column 1\n");
}

TEST_P(Workbook, ThatIsNotThereHasNoBooksToList) {
  EXPECT_EQ(run({"books", "--in", name()}).status, 3);
}

TEST_P(Workbook, AndALibraryAreNotListedTogether) {
  EXPECT_EQ(run({"books", "--in", name(), "--library", "Plant"}).status, 2);
  EXPECT_EQ(run({"books"}).status, 2);
  EXPECT_EQ(run({"books", "--server", "server"}).err.substr(0, 21), "--library is required");
}

// Failures on the way

TEST_P(Workbook, WhoseSecondBookCanNotBePutInPlaceSaysHowManyWereAdded) {
  writeTwoBooks();
  disk.makeFolder("server/Docs/Plant/Saw/Book_SAW.xml");
  const Outcome outcome = addBooks();
  EXPECT_EQ(outcome.status, 5);
  EXPECT_EQ(outcome.out,
            "Added Lathe (LTH) to Plant, folder Lathe: 2 files.\n"
            "missing: cover.htm\n");
  EXPECT_NE(outcome.err.find("/Saw/Book_SAW.xml could not be written; 1 of 2 books added\n"),
            std::string::npos)
      << outcome.err;
  EXPECT_EQ(shelf(),
            "ACRONYM  NAME   FOLDER\n"
            "LTH      Lathe  Lathe\n");
}

}  // namespace
}  // namespace quorbind::testing
