#include "tests/cli/command_test.h"

namespace quorbind::testing {
namespace {

/// Books that are refused although their tables of contents break no rule, or before those are
/// looked at. Nothing changes on the disk.
class AddRefusal : public CommandTest {
 protected:
  void SetUp() override {
    initLibrary();
    writeBook();
  }

  /// Runs the addition, and expects it to be refused so, with nothing changed anywhere.
  void expectRefusal(const Words& more, int status, const std::string& errors) const {
    const Tree before = disk.contents();
    const Outcome outcome = add(more);
    EXPECT_EQ(outcome.status, status);
    EXPECT_EQ(outcome.err, errors);
    EXPECT_EQ(disk.contents(), before);
  }
};

TEST_F(AddRefusal, ReportsARefusalAsOneObjectWithTheOffendingLine) {
  writeToc(
      "\"1\" \"Alarm Handling\" \"Manual\\cover.htm\" \"\"\n"
      "\"x\" \"Alarms\" \"a.htm\" \"\"\n");
  const Outcome outcome = addAlarms({"--json"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out,
            "{\n  \"format\": 1,\n"
            "  \"status\": 1,\n"
            "  \"added\": false,\n"
            "  \"folder\": \"\",\n"
            "  \"files\": [],\n"
            "  \"missing\": [],\n"
            "  \"messages\": [\n"
            "    {\n"
            "      \"icon\": \"critical\",\n"
            "      \"title\": \"Quorbind\",\n"
            "      \"text\": \"Line: \\\"x\\\" \\\"Alarms\\\" \\\"a.htm\\\" \\\"\\\"\\rError:Node "
            "Level value can not be String\",\n"
            "      \"clipboard\": \"\\\"x\\\" \\\"Alarms\\\" \\\"a.htm\\\" \\\"\\\"\",\n"
            "      \"expected\": \"A whole number from 1.\"\n"
            "    }\n"
            "  ],\n"
            "  \"line\": 4,\n"
            "  \"column\": 1,\n"
            "  \"length\": 3,\n"
            "  \"text\": \"\\\"x\\\" \\\"Alarms\\\" \\\"a.htm\\\" \\\"\\\"\",\n"
            "  \"expected\": \"A whole number from 1.\",\n"
            "  \"note\": \"nothing was added\"\n"
            "}\n");
  EXPECT_NE(outcome.err.find("critical: Line: \"x\""), std::string::npos);
}

TEST_F(AddRefusal, OneOfNameAndAcronymIsNotEnoughWithoutATerminal) {
  expectRefusal({"--name", "Alarms"}, 6, "quorbind: toc.txt: nothing was added: give --acro\n");
  expectRefusal({"--acro", "ALM"}, 6, "quorbind: toc.txt: nothing was added: give --name\n");
  expectRefusal({}, 6, "quorbind: toc.txt: nothing was added: give --name and --acro\n");
}

TEST_F(AddRefusal, AFolderThatNobodyNamesIsNotGuessed) {
  writeToc("\"1\" \"Alarm Handling\" \"cover.htm\" \"\"\n");
  expectRefusal(asAlarms(), 6, "quorbind: toc.txt: nothing was added: give --folder\n");
}

TEST_F(AddRefusal, ANameThatTheCatalogueHasIsRefused) {
  EXPECT_EQ(addAlarms().status, 0);
  expectRefusal({"--name", "Alarms", "--acro", "NEW"},
                1,
                "critical: Error:Book Name Alarms already Exists\n"
                "quorbind: toc.txt: nothing was added: other values are needed for --name and "
                "--acro\n");
}

TEST_F(AddRefusal, AnAcronymThatTheCatalogueHasIsRefused) {
  EXPECT_EQ(addAlarms().status, 0);
  expectRefusal({"--name", "New", "--acro", "ALM"},
                1,
                "critical: Error:Book Acro ALM already Exists\n"
                "quorbind: toc.txt: nothing was added: other values are needed for --name and "
                "--acro\n");
}

TEST_F(AddRefusal, ANameOrAnAcronymThatTheCatalogueHasInAnotherLetterCaseIsRefused) {
  EXPECT_EQ(addAlarms().status, 0);
  const std::string note =
      "quorbind: toc.txt: nothing was added: other values are needed for --name and --acro\n";
  expectRefusal({"--name", "alarms", "--acro", "NEW"},
                1,
                "critical: Error:Book Name alarms already Exists\n" + note);
  expectRefusal({"--name", "New", "--acro", "alm"},
                1,
                "critical: Error:Book Acro alm already Exists\n" + note);
}

TEST_F(AddRefusal, AnAcronymInAnotherLetterCaseIsRefusedAlsoBesideANameThatTheCatalogueHas) {
  EXPECT_EQ(addAlarms().status, 0);
  expectRefusal({"--name", "Alarms", "--acro", "alm"},
                1,
                "critical: Error:Book Acro alm already Exists\n"
                "quorbind: toc.txt: nothing was added: other values are needed for --name and "
                "--acro\n");
}

TEST_F(AddRefusal, ANameWithMarkupThatTheCatalogueHasInAnotherLetterCaseIsToldAsItWasTyped) {
  EXPECT_EQ(add({"--name", "R & D", "--acro", "RD"}).status, 0);
  expectRefusal({"--name", "r & d", "--acro", "NEW"},
                1,
                "critical: Error:Book Name r & d already Exists\n"
                "quorbind: toc.txt: nothing was added: other values are needed for --name and "
                "--acro\n");
}

TEST_F(AddRefusal, NameAndAcronymPassTheRulesOfTheBookDialog) {
  expectRefusal({"--name", "Alarms", "--acro", "A/B"},
                1,
                "critical: Book Acro can not contain  (/\\:*?\"<>)\n"
                "quorbind: toc.txt: nothing was added\n");
  expectRefusal({"--acro", "A&B"},
                1,
                "critical: Book Acro can not contain ('\"&<>@quor@)\n"
                "quorbind: toc.txt: nothing was added\n");
  expectRefusal({"--name", "a@quor@b", "--acro", "AB"},
                1,
                "critical: Book Name can not contain @quor@\n"
                "quorbind: toc.txt: nothing was added\n");
  expectRefusal({"--name", "a&amp;b", "--acro", "AB"},
                1,
                "information: &amp;Cannot be used in BookName\n"
                "quorbind: toc.txt: nothing was added\n");
}

TEST_F(AddRefusal, AnEmptyNameIsRefusedAsInTheDialog) {
  expectRefusal({"--name", " ", "--acro", "ALM"},
                1,
                "critical: Book Name/Book Acro can not be null\n"
                "quorbind: toc.txt: nothing was added\n");
}

TEST_F(AddRefusal, TheFolderPassesTheRulesOfTheFolderDialog) {
  expectRefusal(asAlarms({"--folder", "A:B"}),
                1,
                "critical: Book Folder can not contain (/\\:*?\"<>)\n"
                "quorbind: toc.txt: nothing was added\n");
  expectRefusal(asAlarms({"--folder", ""}),
                1,
                "critical: Enter a Non-empty string for folder name\n"
                "quorbind: toc.txt: nothing was added\n");
  expectRefusal(asAlarms({"--folder", ".."}),
                1,
                "critical: --folder .. leads out of the library\n"
                "quorbind: toc.txt: nothing was added\n");
}

TEST_F(AddRefusal, AFolderOfTheTableThatLeadsOutIsRefused) {
  writeToc("\"1\" \"Alarm Handling\" \"..\\cover.htm\" \"\"\n");
  expectRefusal(asAlarms(),
                1,
                "critical: Error:Book Folder leads out of the library: ..\\cover.htm\n"
                "quorbind: toc.txt:3:22: nothing was added\n");
}

TEST_F(AddRefusal, NoLineIsNamedWhenSomethingElseIsRefusedBeforeTheFolderOfTheTable) {
  EXPECT_EQ(addAlarms().status, 0);
  writeToc("\"1\" \"Alarm Handling\" \"..\\cover.htm\" \"\"\n");
  const Outcome outcome = add({"--name", "Alarms", "--acro", "NEW"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err,
            "critical: Error:Book Name Alarms already Exists\n"
            "quorbind: toc.txt: nothing was added: other values are needed for --name and "
            "--acro\n");
}

TEST_F(AddRefusal, AnAcronymThatIsTooLongForAFileIsRefused) {
  expectRefusal(
      {"--name", "Alarms", "--acro", std::string(300, 'A')},
      1,
      "critical: --acro is too long: the name that it gives has 309 bytes, and 255 are the "
      "most that a name can have\n"
      "quorbind: toc.txt: nothing was added\n");
}

TEST_F(AddRefusal, AFolderThatIsTooLongForOneIsRefused) {
  writeToc("\"1\" \"Alarm Handling\" \"cover.htm\" \"\"\n");
  expectRefusal(
      asAlarms({"--folder", std::string(300, 'M')}),
      1,
      "critical: --folder is too long: the name that it gives has 300 bytes, and 255 are the "
      "most that a name can have\n"
      "quorbind: toc.txt: nothing was added\n");
}

TEST_F(AddRefusal, TheLongestNamesOfAFileAndAFolderAreTaken) {
  writeToc("\"1\" \"Alarm Handling\" \"cover.htm\" \"\"\n");
  const std::string acronym(246, 'A');
  const std::string folder(255, 'M');
  EXPECT_EQ(add({"--name", "Alarms", "--acro", acronym, "--folder", folder}).status, 0);
  EXPECT_TRUE(disk.has("server/Docs/Plant/" + folder + "/Book_" + acronym + ".xml"));
}

TEST_F(AddRefusal, AFileInThePlaceOfTheBookFileIsNeverTouched) {
  for (const auto& [inTheWay, path] :
       {std::pair{"Book_ALM.xml", "DISK/Book_ALM.xml"},
        std::pair{"Manual/book_alm.XML", "DISK/Manual/Book_ALM.xml"}}) {
    disk.write(inTheWay, "the author's own");
    const Tree before = disk.contents();
    const Outcome outcome = addAlarms();
    EXPECT_EQ(outcome.status, 1) << inTheWay;
    EXPECT_EQ(outcome.err,
              "critical: " + std::string(path) +
                  ": the file is in the way; move it or delete it\n"
                  "quorbind: toc.txt: nothing was added\n");
    EXPECT_EQ(disk.contents(), before) << inTheWay;
    std::filesystem::remove(disk.path() / inTheWay);
  }
  EXPECT_EQ(addAlarms().status, 0);
}

TEST_F(AddRefusal, ABrokenRuleIsToldBeforeAFileInTheWay) {
  writeToc("\"2\" \"Alarms\" \"a.htm\" \"\"\n");
  disk.write("Book_ALM.xml", "the author's own");
  const Outcome outcome = addAlarms();
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err,
            "critical: Line: \"2\" \"Alarms\" \"a.htm\" \"\"\n"
            "Error:Invalid Node Level Sequence \n"
            "offending line: \"2\" \"Alarms\" \"a.htm\" \"\"\n"
            "quorbind: toc.txt:3:1: nothing was added\n");
}

TEST_F(AddRefusal, ControlCharactersOfATableDoNotReachTheTerminal) {
  writeToc("\"1\" \"Alarm \x1B[31m\" \"\x07\"\n");
  const Outcome outcome = addAlarms();
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err,
            "critical: Line: \"1\" \"Alarm \\x1B[31m\" \"\\x07\"\n"
            "Error: Does not adhere to Quor TOC Content Spec\n"
            "offending line: \"1\" \"Alarm \\x1B[31m\" \"\\x07\"\n"
            "quorbind: toc.txt:3: nothing was added\n");
}

}  // namespace
}  // namespace quorbind::testing
