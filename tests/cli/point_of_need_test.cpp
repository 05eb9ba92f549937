// What a refusal of a table of contents tells beside the component's boxes, as it stands between
// them and the closing line.

#include "platform/text_encoding.h"
#include "tests/cli/command_test.h"

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

}  // namespace
}  // namespace quorbind::testing
