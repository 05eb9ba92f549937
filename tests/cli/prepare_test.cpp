#include "tests/cli/command_test.h"
#include "tests/cli/terminal_session.h"

namespace quorbind::testing {
namespace {

using Prepare = CommandTest;

constexpr const char* kPrepared =
    "\"Node Level\" \"Node Name\" \"File Name\" \"Sub Link\"\n"
    "\n"
    "\"1\" \"Alarm Handling\" \"Manual\\cover.htm\" \"\" "
    "$@@$1$@@$ $@@$Alarm Handling$@@$ $@@$Manual\\cover.htm$@@$ $@@$$@@$ $@@$#NoLink#$@@$ "
    "$@@$#NO_BOOKLINK#$@@$\n"
    "\"2\" \"Alarms\" \"Manual\\alarms.htm\" \"\" "
    "$@@$2$@@$ $@@$Alarms$@@$ $@@$Manual\\alarms.htm$@@$ $@@$$@@$ $@@$#NoLink#$@@$ "
    "$@@$#NO_BOOKLINK#$@@$\n"
    "\"3\" \"Reset & Test\" \"Manual\\alarms.htm\" \"#reset\" "
    "$@@$3$@@$ $@@$Reset & Test$@@$ $@@$Manual\\alarms.htm$@@$ $@@$#reset$@@$ $@@$#NoLink#$@@$ "
    "$@@$#NO_BOOKLINK#$@@$\n"
    "\"2\" \"Trends\" \"Manual\\trends.htm\" \"#top\" "
    "$@@$2$@@$ $@@$Trends$@@$ $@@$Manual\\trends.htm$@@$ $@@$#top$@@$ $@@$#NoLink#$@@$ "
    "$@@$#NO_BOOKLINK#$@@$\n";

TEST_F(Prepare, WritesEachEntryInQuotesAndBetweenMarks) {
  writeBook();
  const Outcome outcome = quorbind({"prepare", "toc.txt"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, kPrepared);
  EXPECT_EQ(outcome.err, "");
}

TEST_F(Prepare, WritesIntoAFileThatIsNamed) {
  writeBook();
  const Outcome outcome = quorbind({"prepare", "toc.txt", "-o", "out.txt"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(disk.read("out.txt"), kPrepared);
}

TEST_F(Prepare, MayReplaceItsOwnInput) {
  writeBook();
  EXPECT_EQ(quorbind({"prepare", "toc.txt", "-o", "toc.txt"}).status, 0);
  EXPECT_EQ(disk.read("toc.txt"), kPrepared);
}

TEST_F(Prepare, PassesATableWithMarksOn) {
  disk.write("toc.txt", kPrepared);
  EXPECT_EQ(quorbind({"prepare", "toc.txt"}).out, kPrepared);
}

constexpr const char* kTableWithControls =
    "\"1\" \"\x1B]0;title\aBook\" \"M\\a.htm\" \"\"\n"
    "\"2\" \"\u202EPage\" \"M\\a.htm\" \"\"\n";

/// The prepared table whose names are these.
std::string preparedAs(const std::string& book, const std::string& page) {
  return "\"Node Level\" \"Node Name\" \"File Name\" \"Sub Link\"\n\n\"1\" \"" + book +
         "\" \"M\\a.htm\" \"\" $@@$1$@@$ $@@$" + book +
         "$@@$ $@@$M\\a.htm$@@$ $@@$$@@$ $@@$#NoLink#$@@$ $@@$#NO_BOOKLINK#$@@$\n\"2\" \"" + page +
         "\" \"M\\a.htm\" \"\" $@@$2$@@$ $@@$" + page +
         "$@@$ $@@$M\\a.htm$@@$ $@@$$@@$ $@@$#NoLink#$@@$ $@@$#NO_BOOKLINK#$@@$\n";
}

TEST_F(Prepare, ATerminalGetsControlCharactersWrittenOut) {
  const std::string visible = preparedAs("\\x1B]0;title\\x07Book", "\\u{202E}Page");
  const auto onTerminal = [&] {
    return TerminalSession({.words = {quorbindExecutable(), "prepare", "toc.txt"},
                            .folder = disk.path().string(),
                            .environment = environment})
        .finish();
  };
  writeToc(kTableWithControls);
  EXPECT_EQ(onTerminal().out, visible);
  ASSERT_EQ(quorbind({"prepare", "toc.txt", "-o", "toc.txt"}).status, 0);
  EXPECT_EQ(onTerminal().out, visible) << "of a table that is passed on";
}

TEST_F(Prepare, APipeGetsControlCharactersAsTheyAre) {
  writeToc(kTableWithControls);
  EXPECT_EQ(quorbind({"prepare", "toc.txt"}).out, preparedAs("\x1B]0;title\aBook", "\u202EPage"));
}

TEST_F(Prepare, ABookmarkMovesOnlyToAnEmptySubLink) {
  writeToc(
      "\"1\" \"Book\" \"M\\a.htm#one\" \"#two\"\n"
      "\"2\" \"Mark only\" \"#one\" \"\"\n"
      "\"2\" \"Two marks\" \"M\\a.htm#one#two\" \"\"\n");
  EXPECT_EQ(quorbind({"prepare", "toc.txt"}).out,
            std::string(kHeader) +
                "\n\n"
                "\"1\" \"Book\" \"M\\a.htm#one\" \"#two\" $@@$1$@@$ $@@$Book$@@$ "
                "$@@$M\\a.htm#one$@@$ $@@$#two$@@$ $@@$#NoLink#$@@$ $@@$#NO_BOOKLINK#$@@$\n"
                "\"2\" \"Mark only\" \"#one\" \"\" $@@$2$@@$ $@@$Mark only$@@$ "
                "$@@$#one$@@$ $@@$$@@$ $@@$#NoLink#$@@$ $@@$#NO_BOOKLINK#$@@$\n"
                "\"2\" \"Two marks\" \"M\\a.htm\" \"#one#two\" $@@$2$@@$ $@@$Two marks$@@$ "
                "$@@$M\\a.htm$@@$ $@@$#one#two$@@$ $@@$#NoLink#$@@$ $@@$#NO_BOOKLINK#$@@$\n");
}

TEST_F(Prepare, TheSecondLineComesOutEmpty) {
  disk.write("toc.txt",
             std::string(kHeader) + "\nthis would be taken for an entry\n" +
                 "\"1\" \"Book\" \"M\\a.htm\" \"\"\n");
  const std::string out = quorbind({"prepare", "toc.txt"}).out;
  EXPECT_EQ(out.substr(0, kHeader.size() + 6), std::string(kHeader) + "\n\n\"1\" ");
}

TEST_F(Prepare, ATableThatBreaksARuleIsRefused) {
  writeToc("\"2\" \"Alarms\" \"a.htm\" \"\"\n");
  disk.write("out.txt", "as it was");
  const Outcome outcome = quorbind({"prepare", "toc.txt", "-o", "out.txt"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err,
            "critical: Line: \"2\" \"Alarms\" \"a.htm\" \"\"\n"
            "Error:Invalid Node Level Sequence \n"
            "offending line: \"2\" \"Alarms\" \"a.htm\" \"\"\n"
            "quorbind: toc.txt:3:1: nothing was written\n");
  EXPECT_EQ(disk.read("out.txt"), "as it was");
}

TEST_F(Prepare, TellsAProgramWhatItWrote) {
  writeBook();
  const Outcome outcome = quorbind({"prepare", "toc.txt", "-o", "out.txt", "--json"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "{\n"
            "  \"format\": 1,\n"
            "  \"status\": 0,\n"
            "  \"written\": true,\n"
            "  \"file\": \"out.txt\",\n"
            "  \"entries\": 4,\n"
            "  \"messages\": []\n"
            "}\n");
  EXPECT_EQ(disk.read("out.txt"), kPrepared);
}

TEST_F(Prepare, TellsAProgramWhatIsRefusedAndWhere) {
  writeToc("\"1\" \"\" \"a.htm\" \"\"\n");
  const Outcome outcome = quorbind({"prepare", "toc.txt", "-o", "out.txt", "--json"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out,
            "{\n"
            "  \"format\": 1,\n"
            "  \"status\": 1,\n"
            "  \"written\": false,\n"
            "  \"file\": \"out.txt\",\n"
            "  \"entries\": 0,\n"
            "  \"messages\": [\n"
            "    {\n"
            "      \"icon\": \"critical\",\n"
            "      \"title\": \"Quorbind\",\n"
            "      \"text\": \"Line: \\\"1\\\" \\\"\\\" \\\"a.htm\\\" "
            "\\\"\\\"\\rError:Node Name can not be Empty\",\n"
            "      \"clipboard\": \"\\\"1\\\" \\\"\\\" \\\"a.htm\\\" "
            "\\\"\\\"\",\n"
            "      \"expected\": \"Any text that holds no quotation mark.\"\n"
            "    }\n"
            "  ],\n"
            "  \"line\": 3,\n"
            "  \"column\": 5,\n"
            "  \"length\": 2,\n"
            "  \"text\": \"\\\"1\\\" \\\"\\\" \\\"a.htm\\\" \\\"\\\"\",\n"
            "  \"expected\": \"Any text that holds no quotation mark.\",\n"
            "  \"note\": \"nothing was written\"\n"
            "}\n");
  EXPECT_FALSE(disk.has("out.txt"));
}

TEST_F(Prepare, AnObjectAndTheTextDoNotShareTheStandardOutput) {
  writeBook();
  const Outcome outcome = quorbind({"prepare", "toc.txt", "--json"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err,
            "--json requires --output\n"
            "Run with --help for more information.\n");
}

TEST_F(Prepare, ATableThatIsNotThereIsMissingInput) {
  const Outcome outcome = quorbind({"prepare", "toc.txt"});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err, "critical: TOC not found at Path\ntoc.txt\n");
}

TEST_F(Prepare, AFolderThatIsNotThereIsAFailedWrite) {
  writeBook();
  const Outcome outcome = quorbind({"prepare", "toc.txt", "-o", "no/out.txt"});
  EXPECT_EQ(outcome.status, 5);
  EXPECT_EQ(outcome.err, "critical: no/out.txt: Path not found\n");
}

}  // namespace
}  // namespace quorbind::testing
