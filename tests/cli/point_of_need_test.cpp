// What a refusal tells beside the component's boxes, as it stands between them and the closing
// line.

#include "platform/text_encoding.h"
#include "tests/cli/library_test.h"
#include "tests/support/excel_sheets.h"
#include "tests/support/workbook_bytes.h"

namespace quorbind::testing {
namespace {

class PointOfNeed : public CommandTest {
 protected:
  /// Checks a table of contents that is refused, and answers the help alone.
  [[nodiscard]] std::string helpOf(const std::string& toc) const {
    const Outcome outcome = quorbind({"check", toc});
    EXPECT_NE(outcome.status, 0);
    return outcome.help;
  }
  [[nodiscard]] std::string helpOfEntries(const std::string& entries) const {
    writeToc(entries);
    return helpOf("toc.txt");
  }
  [[nodiscard]] std::string helpOfPage(const std::string& page) const {
    disk.write("toc.htm", page);
    return helpOf("toc.htm");
  }
};

TEST_F(PointOfNeed, StandsBetweenTheBoxAndTheClosingLine) {
  writeToc(
      "\"1\" \"Book\" \"a.htm\" \"\"\n"
      "\"3\" \"Alarms\" \"a.htm\" \"\"\n");
  const std::string box =
      "critical: Line: \"3\" \"Alarms\" \"a.htm\" \"\"\n"
      "Error:Invalid Node Level Sequence \n"
      "offending line: \"3\" \"Alarms\" \"a.htm\" \"\"\n";
  const std::string help =
      "  4 | \"3\" \"Alarms\" \"a.htm\" \"\"\n"
      "    | ^^^\n"
      "accepted: 1 in the first entry and nowhere else; below that at most one deeper than the "
      "line "
      "before.\n";
  initLibrary();
  for (const auto& [words, end] : {std::pair{Words{"check", "toc.txt"}, "not accepted"},
                                   std::pair{Words{"prepare", "toc.txt"}, "nothing was written"},
                                   std::pair{addWords(asAlarms()), "nothing was added"}}) {
    const Outcome outcome = run({.words = joined({quorbindExecutable()}, words),
                                 .folder = disk.path().string(),
                                 .environment = environment});
    EXPECT_EQ(outcome.err, box + help + "quorbind: toc.txt:4:1: " + end + "\n");
  }
}

TEST_F(PointOfNeed, MarksTheLevelOfATextThatIsNoNumber) {
  EXPECT_EQ(helpOfEntries("  \"one\" \"Alarms\" \"a.htm\" \"\"\n"),
            "  3 |   \"one\" \"Alarms\" \"a.htm\" \"\"\n"
            "    |   ^^^^^\n"
            "accepted: A whole number from 1.\n");
}

TEST_F(PointOfNeed, MarksTheNameOfATextThatIsEmpty) {
  EXPECT_EQ(helpOfEntries("\"1\"\t\"\" \"a.htm\" \"\"\n"),
            "  3 | \"1\"    \"\" \"a.htm\" \"\"\n"
            "    |        ^^\n"
            "accepted: Any text that holds no quotation mark.\n");
}

TEST_F(PointOfNeed, ShowsALineWithoutItsFormUnmarked) {
  EXPECT_EQ(
      helpOfEntries("\"1\" \"警報\" \"a.htm\"\n"),
      "  3 | \"1\" \"警報\" \"a.htm\"\n"
      "accepted: Level, name, file and sub link, each in straight quotation marks: eight marks "
      "in the line.\n");
}

TEST_F(PointOfNeed, NamesTheNumberOfAnEmptyLine) {
  EXPECT_EQ(helpOfEntries("\"1\" \"Book\" \"a.htm\" \"\"\n\n"),
            "  4 |\n"
            "accepted: A heading in each line from the third on. Only the second line is empty.\n");
}

TEST_F(PointOfNeed, SaysWhatIsAcceptedInsteadOfAnEmptyFile) {
  disk.write("toc.txt", "");
  EXPECT_EQ(helpOf("toc.txt"),
            "accepted: A header line, an empty line, and a line for each heading.\n");
}

TEST_F(PointOfNeed, MarksTheFileOfATextThatLeadsOutOfTheLibrary) {
  writeToc("\"1\" \"Book\" \"..\\a.htm\" \"\"\n");
  initLibrary();
  EXPECT_EQ(
      addAlarms().help,
      "  3 | \"1\" \"Book\" \"..\\a.htm\" \"\"\n"
      "    |            ^^^^^^^^^^\n"
      "accepted: A folder directly in the library: no .., no drive, no name on the network.\n");
}

TEST_F(PointOfNeed, MarksTheFirstHeadingThatLiesTooDeep) {
  std::string entries;
  std::string page;
  for (int level = 1; level <= 256; ++level) {
    const std::string number = std::to_string(level);
    entries += " \"" + number + "\" \"Heading\" \"M\\a.htm\" \"\"\n";
    page += "<p><K" + number + "><A HREF=\"M/a.htm\">A</A></K" + number + ">\n";
  }
  const std::string accepted = "accepted: Levels up to 254 in a text, and up to 253 in a page.\n";
  EXPECT_EQ(helpOfEntries(entries),
            "  257 |  \"255\" \"Heading\" \"M\\a.htm\" \"\"\n"
            "      |  ^^^^^\n" +
                accepted);
  EXPECT_EQ(helpOfPage(page),
            "  254 | <p><K254><A HREF=\"M/a.htm\">A</A></K254>\n"
            "      |    ^^^^^^\n" +
                accepted);
  const Outcome outcome = quorbind({"check", "toc.txt", "--json"});
  EXPECT_EQ(outcome.status, 4);
  EXPECT_TRUE(outcome.out.ends_with(
      "  \"line\": 257,\n"
      "  \"column\": 2,\n"
      "  \"length\": 5,\n"
      "  \"text\": \" \\\"255\\\" \\\"Heading\\\" \\\"M\\\\a.htm\\\" \\\"\\\"\",\n"
      "  \"expected\": \"Levels up to 254 in a text, and up to 253 in a page.\",\n"
      "  \"note\": \"not accepted\"\n"
      "}\n"))
      << outcome.out;
}

TEST_F(PointOfNeed, MarksTheTagOfAHeadingWhoseLevelIsRefused) {
  EXPECT_EQ(helpOfPage("<html>\r\n  é <K2><A HREF=\"a.htm\">A</A></K2>\r\n"),
            "  2 |   é <K2><A HREF=\"a.htm\">A</A></K2>\n"
            "    |     ^^^^\n"
            "accepted: 1 for the first heading, and then at most one deeper than the heading "
            "before.\n");
}

TEST_F(PointOfNeed, MarksAHeadingAsFarAsItStandsOnItsFirstLine) {
  EXPECT_EQ(helpOfPage("<p><K1><A>Alarms\r\n</A></K1>"),
            "  1 | <p><K1><A>Alarms\n"
            "    |    ^^^^^^^^^^^^^\n"
            "accepted: A link with its address in straight quotation marks: <A "
            "HREF=\"Manual/safety.htm\">.\n");
}

TEST_F(PointOfNeed, ShowsTheLineOfABookFileThatDoesNotParse) {
  disk.write("book.xml", "<Book_Master>\n<Book>\n</Boook>");
  EXPECT_EQ(helpOf("book.xml"),
            "  3 | </Boook>\n"
            "    |         ^\n"
            "accepted: A book file as the component writes it.\n");
}

TEST_F(PointOfNeed, ShowsTheLineOfABookFileInItsOwnEncoding) {
  const std::string declaration = "<?xml version=\"1.0\" encoding=\"windows-1251\"?>\n";
  disk.write("book.xml", declaration + "<Book>\xC0\xE0</Boook>");
  EXPECT_EQ(helpOf("book.xml"),
            "  2 | <Book>Аа</Boook>\n"
            "    |                 ^\n"
            "accepted: A book file as the component writes it.\n");
  std::string wide;
  appendUtf16LittleEndian(wide,
                          "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\r\n<Book>Ää</Boook>\r\n");
  disk.write("book.xml", wide);
  EXPECT_EQ(helpOf("book.xml"),
            "  2 | <Book>Ää</Boook>\n"
            "    |                 ^\n"
            "accepted: A book file as the component writes it.\n");
}

TEST_F(PointOfNeed, ShowsTheLineOfABookFileThatStatesAFolderOutside) {
  disk.write("book.xml",
             "<Book_Master>\n<Book>\n<Book_Path>P\\..</Book_Path>\n</Book>\n"
             "<Heading><HFile>a.htm</HFile></Heading>\n</Book_Master>");
  EXPECT_EQ(
      helpOf("book.xml"),
      "  3 | <Book_Path>P\\..</Book_Path>\n"
      "accepted: A folder directly in the library: no .., no drive, no name on the network.\n");
}

TEST_F(PointOfNeed, CutsALongLineAroundTheMark) {
  EXPECT_EQ(helpOfPage(std::string(500, 'x') + "<K0></K0>" + std::string(500, 'y')),
            "  1 | ..." + std::string(32, 'x') + "<K0></K0>" + std::string(31, 'y') +
                "...\n"
                "    |    " +
                std::string(32, ' ') +
                "^^^^\n"
                "accepted: A level from 1.\n");
}

TEST_F(PointOfNeed, IsNotToldOfARunThatIsDone) {
  writeBook();
  EXPECT_EQ(quorbind({"check", "toc.txt"}).help, "");
}

TEST_F(PointOfNeed, SaysOfABookFileWithoutHeadingsWhatABookFileIs) {
  disk.write("book.xml", "<a><b/></a>");
  EXPECT_EQ(helpOf("book.xml"),
            "accepted: A book file, Book_ACRONYM.xml, with at least one HFile.\n");
}

TEST_F(PointOfNeed, SaysOfEachBoxWhatIsAcceptedAndEachSentenceOnce) {
  writeBook();
  initLibrary();
  EXPECT_EQ(addAlarms({"--keywords", "a b;c##d;e f"}).help,
            "accepted: Single words, separated by ;.\n"
            "accepted: Keywords without ##.\n");
}

TEST_F(PointOfNeed, TellsAProgramOfEachBoxWhatIsAccepted) {
  writeBook();
  initLibrary();
  EXPECT_EQ(addAlarms({"--keywords", "a b;c##d", "--json"}).out,
            "{\n"
            "  \"format\": 1,\n"
            "  \"status\": 1,\n"
            "  \"added\": false,\n"
            "  \"folder\": \"\",\n"
            "  \"files\": [],\n"
            "  \"missing\": [],\n"
            "  \"messages\": [\n"
            "    {\n"
            "      \"icon\": \"message\",\n"
            "      \"title\": \"Quorbind\",\n"
            "      \"text\": \"Search keyword should not have any spaces in between the "
            "characters\",\n"
            "      \"clipboard\": null,\n"
            "      \"expected\": \"Single words, separated by ;.\"\n"
            "    },\n"
            "    {\n"
            "      \"icon\": \"message\",\n"
            "      \"title\": \"Quorbind\",\n"
            "      \"text\": \"Search keyword should not contain '##' in it.\",\n"
            "      \"clipboard\": null,\n"
            "      \"expected\": \"Keywords without ##.\"\n"
            "    }\n"
            "  ],\n"
            "  \"expected\": \"Keywords without ##.\",\n"
            "  \"note\": \"nothing was added\"\n"
            "}\n");
}

TEST_F(PointOfNeed, SaysThatABookNeedsANameAndAnAcronym) {
  writeBook();
  initLibrary();
  EXPECT_EQ(add({"--name", "", "--acro", "ALM"}).help,
            "accepted: A name and an acronym, neither of them blank.\n");
}

TEST_F(PointOfNeed, DoesNotAdviseAnAcronymThatIsRefusedNext) {
  writeBook();
  initLibrary();
  EXPECT_EQ(
      add({"--name", "Alarms", "--acro", "A&amp;B"}).help,
      "accepted: In a name or a keyword the character itself, & < > \" or '; in an acronym or "
      "a folder none of them.\n");
  EXPECT_EQ(add({"--name", "Alarms", "--acro", "A&B"}).help,
            "accepted: Letters, digits, - and _.\n");
}

TEST_F(PointOfNeed, ShowsTheCellOfAHeaderThatIsAnother) {
  PaperSheet sheet = headingSheet({{"1", "The Lathe", "Lathe\\cover.htm"}});
  sheet[0][2] = "NodeName";
  disk.write("books.xlsx", workbookBytes(WorkbookKind::kXlsx, {sheet, bookSheet({{"L", "L"}})}));
  EXPECT_EQ(helpOf("books.xlsx"),
            "  C1 | NodeName\n"
            "     | ^^^^^^^^\n"
            "accepted: Node Name in C1, in any letter case.\n");
}

TEST_F(PointOfNeed, ShowsTheCellsOfANameAndAnAcronymThatAnotherBookHas) {
  const std::string help =
      "  A4 | R & D\n"
      "     | ^^^^^\n"
      "accepted: A name that no other book of the library has, in whatever letter case.\n"
      "  B4 | RND\n"
      "     | ^^^\n"
      "accepted: An acronym that no other book of the library has, in whatever letter case.\n";
  const std::vector<HeadingRow> headings{{"1", "The Lathe", "Lathe\\cover.htm"},
                                         {"2", "Chuck", "chuck.htm"},
                                         {"1", "The Saw", "Saw\\cover.htm"},
                                         {"2", "Blade", "blade.htm"}};
  disk.write(
      "books.xlsx",
      workbookBytes(WorkbookKind::kXlsx,
                    {headingSheet(headings), bookSheet({{"R & D", "RND"}, {"R & D", "RND"}})}));
  EXPECT_EQ(helpOf("books.xlsx"), help);

  writeBook();
  initLibrary();
  EXPECT_EQ(add({"--name", "R & D", "--acro", "RND"}).status, 0);
  disk.write(
      "books.xlsx",
      workbookBytes(WorkbookKind::kXlsx,
                    {headingSheet(headings), bookSheet({{"Lathe", "LTH"}, {"R & D", "RND"}})}));
  EXPECT_EQ(addFile("books.xlsx").help, help);
}

/// What is no table of contents.
using PointOfNeedInALibrary = LibraryTest;

TEST_F(PointOfNeedInALibrary, SaysOfAChangeWhatIsAccepted) {
  EXPECT_EQ(inPlant({"rename", "Alarms", "--name", "A@quor@", "--acro", "A", "--yes"}).help,
            "accepted: A name without @quor@.\n");
  EXPECT_EQ(inPlant({"set", "Alarms", "--folder", "a:b"}).help,
            "accepted: The name of one folder, without / and \\.\n");
  EXPECT_EQ(inPlant({"keywords", "add", "Alarms", "a##b", "c d"}).help,
            "accepted: Keywords without ##.\n"
            "accepted: Single words, separated by ;.\n");
  EXPECT_EQ(inPlant({"install",
                     "server/Docs/Plant/Manual/alarms.htm",
                     "--type",
                     "html",
                     "--name",
                     "Alarms",
                     "--acro",
                     "NEW"})
                .help,
            "accepted: A name that no other book of the library has, in whatever letter case.\n");
}

TEST_F(PointOfNeedInALibrary, SaysOfAQuestionWhatIsAccepted) {
  EXPECT_EQ(quorbind({"where", "Nowhere", "--server", "server"}).help,
            "accepted: The name of a library of the server, in its own letter case.\n");
  for (const Words& words : {Words{"books", "--in", "none.xlsx"}, Words{"prepare", "none.txt"}}) {
    EXPECT_EQ(quorbind(words).help, "accepted: The name of a file that is there.\n");
  }
}

TEST_F(PointOfNeedInALibrary, SaysOfWhatTheCommandItselfRefusesWhatIsAccepted) {
  ASSERT_EQ(inPlant({"categories", "add", "Maps"}).status, 0);
  ASSERT_EQ(inPlant({"keywords", "add", "Alarms", "lamp", "siren"}).status, 0);
  const std::string book = "accepted: A book of the library, in its own letter case.\n";
  const std::string folder =
      "accepted: The name of one folder of the library: no .., no drive, no name on the "
      "network.\n";
  const std::vector<std::pair<Words, std::string>> refusals{
      {{"delete", "Else", "--yes"}, book},
      {{"show", "ELS"}, book},
      {{"keywords", "list", "Else"}, book},
      {{"set", "Alarms", "--folder", ".."}, folder},
      {{"categories", "add", "Maps"}, "accepted: A name that no category of the library has.\n"},
      {{"categories", "add", "Map's"}, "accepted: A category without an apostrophe.\n"},
      {{"categories", "rename", "Else", "New"},
       "accepted: A category of the library, in its own letter case.\n"},
      {{"categories", "rename", "Other Category", "New"},
       "accepted: A category that is the library's own.\n"},
      {{"keywords", "rename", "Alarms", "horn", "bell"},
       "accepted: A keyword of the book, in its own letter case.\n"},
      {{"keywords", "rename", "Alarms", "lamp", "siren"},
       "accepted: A keyword that the book does not have.\n"}};
  for (const auto& [words, help] : refusals) {
    const Outcome outcome = inPlant(words);
    EXPECT_EQ(outcome.help, help) << outcome.err;
    const std::string box = outcome.err.substr(0, outcome.err.find('\n'));
    const std::string text = box.substr(std::string("critical: ").size());
    EXPECT_EQ(quorbind({"explain", "--", text}).status, 0) << box;
  }
  writeBook();
  EXPECT_EQ(addAlarms({"--folder", ".."}).help, folder);
}

TEST_F(PointOfNeedInALibrary, SaysOfAPlaceThatIsNotThereWhatIsAccepted) {
  for (const Words& words : {Words{"show"}, Words{"doctor"}, Words{"delete", "Alarms", "--yes"}}) {
    EXPECT_EQ(quorbind(joined(words, {"--server", "server", "--library", "Plnt"})).help,
              "accepted: A server, a library and a folder that are there.\n");
  }
  EXPECT_EQ(quorbind({"add", "--job", "none.toml"}).help, "accepted: A file that is there.\n");
}

TEST_F(PointOfNeedInALibrary, SaysOfAFileWithoutAnElementWhatIsAccepted) {
  disk.write(kCatalogue, "<Quor_Master/>");
  for (const Words& words : {Words{"books"}, Words{"delete", "Alarms", "--yes"}}) {
    const Outcome outcome = inPlant(words);
    EXPECT_EQ(outcome.help, "accepted: A file of its kind, with that element.\n") << outcome.err;
  }
}

TEST_F(PointOfNeedInALibrary, TellsAProgramTheLineThatDoesNotParse) {
  disk.write(kCatalogue, "<Quor_Master>\n<Quor_Books>\n</Quor_Boks>\n");
  const std::string object = inPlant({"books", "--json"}).out;
  EXPECT_TRUE(
      object.ends_with("      \"expected\": \"Well-formed XML; of a job file, TOML with the keys "
                       "and the values that it may have.\"\n"
                       "    }\n"
                       "  ],\n"
                       "  \"line\": 3,\n"
                       "  \"column\": 13,\n"
                       "  \"text\": \"</Quor_Boks>\",\n"
                       "  \"note\": \"nothing was shown\"\n"
                       "}\n"))
      << object;
}

TEST_F(PointOfNeedInALibrary, SaysOnceWhatIsAcceptedInAWorkbook) {
  PaperSheet sheet = headingSheet({{"1", "The Lathe", "Lathe\\cover.htm"}, {"x", "A", "a.htm"}});
  disk.write("books.xlsx", workbookBytes(WorkbookKind::kXlsx, {sheet, bookSheet({{"L", "L"}})}));
  const std::string help =
      "  A4 | x\n"
      "     | ^\n"
      "accepted: A whole number from 1.\n";
  EXPECT_EQ(quorbind({"books", "--in", "books.xlsx"}).help, help);
  EXPECT_EQ(quorbind({"check", "books.xlsx"}).help, help);
  EXPECT_EQ(addFile("books.xlsx").help, help);
}

TEST_F(PointOfNeedInALibrary, ShowsTheLineOfALibraryFileThatDoesNotParse) {
  const std::string damaged = "<Quor_Master>\n<Quor_Books>\n</Quor_Boks>\n";
  const std::string help =
      "  3 | </Quor_Boks>\n"
      "    |             ^\n"
      "accepted: Well-formed XML; of a job file, TOML with the keys and the values that it may "
      "have.\n";
  disk.write("other.xml", damaged);
  EXPECT_EQ(inPlant({"merge", "--from", "other.xml"}).help, help);
  disk.write(kCatalogue, damaged);
  for (const Words& words : {Words{"books"}, Words{"delete", "Alarms", "--yes"}}) {
    EXPECT_EQ(inPlant(words).help, help);
  }
  disk.write("server/Docs/Quor_Selection.xml", damaged);
  EXPECT_EQ(inPlant({"init"}).help, help);
}

}  // namespace
}  // namespace quorbind::testing
