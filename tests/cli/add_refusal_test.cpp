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
};

TEST_F(AddRefusal, ReportsARefusalAsOneObjectWithTheOffendingLine) {
  writeToc(
      "\"1\" \"Alarm Handling\" \"Manual\\cover.htm\" \"\"\n"
      "\"x\" \"Alarms\" \"a.htm\" \"\"\n");
  const Outcome outcome = addAlarms({"--json"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out,
            "{\n"
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
            "      \"clipboard\": \"\\\"x\\\" \\\"Alarms\\\" \\\"a.htm\\\" \\\"\\\"\"\n"
            "    }\n"
            "  ],\n"
            "  \"line\": 4,\n"
            "  \"note\": \"nothing was added\"\n"
            "}\n");
  EXPECT_NE(outcome.err.find("critical: Line: \"x\""), std::string::npos);
}

TEST_F(AddRefusal, OneOfNameAndAcronymIsNotEnoughWithoutATerminal) {
  const Tree before = disk.contents();
  const Outcome withoutAcronym = add({"--name", "Alarms"});
  EXPECT_EQ(withoutAcronym.status, 6);
  EXPECT_EQ(withoutAcronym.err, "quorbind: toc.txt: nothing was added: give --acro\n");
  const Outcome withoutName = add({"--acro", "ALM"});
  EXPECT_EQ(withoutName.status, 6);
  EXPECT_EQ(withoutName.err, "quorbind: toc.txt: nothing was added: give --name\n");
  const Outcome withoutBoth = add();
  EXPECT_EQ(withoutBoth.status, 6);
  EXPECT_EQ(withoutBoth.err, "quorbind: toc.txt: nothing was added: give --name and --acro\n");
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(AddRefusal, AFolderThatNobodyNamesIsNotGuessed) {
  writeToc("\"1\" \"Alarm Handling\" \"cover.htm\" \"\"\n");
  const Tree before = disk.contents();
  const Outcome outcome = addAlarms();
  EXPECT_EQ(outcome.status, 6);
  EXPECT_EQ(outcome.err, "quorbind: toc.txt: nothing was added: give --folder\n");
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(AddRefusal, ANameThatTheCatalogueHasIsRefused) {
  EXPECT_EQ(addAlarms().status, 0);
  const Tree before = disk.contents();
  const Outcome outcome = add({"--name", "Alarms", "--acro", "NEW"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err,
            "critical: Error:Book Name Alarms already Exists\n"
            "quorbind: toc.txt: nothing was added: other values are needed for --name and "
            "--acro\n");
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(AddRefusal, AnAcronymThatTheCatalogueHasIsRefused) {
  EXPECT_EQ(addAlarms().status, 0);
  const Tree before = disk.contents();
  const Outcome outcome = add({"--name", "New", "--acro", "ALM"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err,
            "critical: Error:Book Acro ALM already Exists\n"
            "quorbind: toc.txt: nothing was added: other values are needed for --name and "
            "--acro\n");
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(AddRefusal, NameAndAcronymPassTheRulesOfTheBookDialog) {
  const Tree before = disk.contents();
  const Outcome acronym = add({"--name", "Alarms", "--acro", "A/B"});
  EXPECT_EQ(acronym.status, 1);
  EXPECT_EQ(acronym.err,
            "critical: Book Acro can not contain  (/\\:*?\"<>)\n"
            "quorbind: toc.txt: nothing was added\n");
  const Outcome markup = add({"--acro", "A&B"});
  EXPECT_EQ(markup.status, 1);
  EXPECT_EQ(markup.err,
            "critical: Book Acro can not contain ('\"&<>@quor@)\n"
            "quorbind: toc.txt: nothing was added\n");
  const Outcome name = add({"--name", "a@quor@b", "--acro", "AB"});
  EXPECT_EQ(name.status, 1);
  EXPECT_EQ(name.err,
            "critical: Book Name can not contain @quor@\n"
            "quorbind: toc.txt: nothing was added\n");
  const Outcome entity = add({"--name", "a&amp;b", "--acro", "AB"});
  EXPECT_EQ(entity.status, 1);
  EXPECT_EQ(entity.err,
            "information: &amp;Cannot be used in BookName\n"
            "quorbind: toc.txt: nothing was added\n");
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(AddRefusal, AnEmptyNameIsRefusedAsInTheDialog) {
  const Tree before = disk.contents();
  const Outcome outcome = add({"--name", " ", "--acro", "ALM"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err,
            "critical: Book Name/Book Acro can not be null\n"
            "quorbind: toc.txt: nothing was added\n");
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(AddRefusal, TheFolderPassesTheRulesOfTheFolderDialog) {
  const Tree before = disk.contents();
  const Outcome fileName = addAlarms({"--folder", "A:B"});
  EXPECT_EQ(fileName.status, 1);
  EXPECT_EQ(fileName.err,
            "critical: Book Folder can not contain (/\\:*?\"<>)\n"
            "quorbind: toc.txt: nothing was added\n");
  const Outcome empty = addAlarms({"--folder", ""});
  EXPECT_EQ(empty.status, 1);
  EXPECT_EQ(empty.err,
            "critical: Enter a Non-empty string for folder name\n"
            "quorbind: toc.txt: nothing was added\n");
  const Outcome parent = addAlarms({"--folder", ".."});
  EXPECT_EQ(parent.status, 1);
  EXPECT_EQ(parent.err,
            "critical: --folder .. leads out of the library\n"
            "quorbind: toc.txt: nothing was added\n");
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(AddRefusal, AFolderOfTheTableThatLeadsOutIsRefused) {
  writeToc("\"1\" \"Alarm Handling\" \"..\\cover.htm\" \"\"\n");
  const Tree before = disk.contents();
  const Outcome outcome = addAlarms();
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err,
            "critical: Error:Book Folder leads out of the library: ..\\cover.htm\n"
            "quorbind: toc.txt:3: nothing was added\n");
  EXPECT_EQ(disk.contents(), before);
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
  const Tree before = disk.contents();
  const Outcome outcome = add({"--name", "Alarms", "--acro", std::string(300, 'A')});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err,
            "critical: --acro is too long: the name that it gives has 309 bytes, and 255 are the "
            "most that a name can have\n"
            "quorbind: toc.txt: nothing was added\n");
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(AddRefusal, AFolderThatIsTooLongForOneIsRefused) {
  writeToc("\"1\" \"Alarm Handling\" \"cover.htm\" \"\"\n");
  const Tree before = disk.contents();
  const Outcome outcome = addAlarms({"--folder", std::string(300, 'M')});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err,
            "critical: --folder is too long: the name that it gives has 300 bytes, and 255 are the "
            "most that a name can have\n"
            "quorbind: toc.txt: nothing was added\n");
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(AddRefusal, TheLongestNamesOfAFileAndAFolderAreTaken) {
  writeToc("\"1\" \"Alarm Handling\" \"cover.htm\" \"\"\n");
  const std::string acronym(246, 'A');
  const std::string folder(255, 'M');
  EXPECT_EQ(add({"--name", "Alarms", "--acro", acronym, "--folder", folder}).status, 0);
  EXPECT_TRUE(disk.has("server/Docs/Plant/" + folder + "/Book_" + acronym + ".xml"));
}

TEST_F(AddRefusal, AFileInThePlaceOfTheBookFileIsNeverTouched) {
  for (const char* inTheWay : {"Book_ALM.xml", "Manual/book_alm.XML"}) {
    disk.write(inTheWay, "the author's own");
    const Tree before = disk.contents();
    const Outcome outcome = addAlarms();
    EXPECT_EQ(outcome.status, 1) << inTheWay;
    EXPECT_NE(outcome.err.find("Book_ALM.xml: the file is in the way; move it or delete it\n"),
              std::string::npos)
        << outcome.err;
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
            "quorbind: toc.txt:3: nothing was added\n");
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
