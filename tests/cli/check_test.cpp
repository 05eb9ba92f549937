#include "tests/cli/command_test.h"

namespace quorbind::testing {
namespace {

class Check : public CommandTest {
 protected:
  /// Checks `toc.txt` and expects that nothing changes.
  [[nodiscard]] Outcome check(const Words& more = {}) const {
    const Tree before = disk.contents();
    const Outcome outcome = quorbind(joined({"check", "toc.txt"}, more));
    EXPECT_EQ(disk.contents(), before);
    return outcome;
  }
};

TEST_F(Check, TellsHowManyEntriesWereAccepted) {
  writeBook();
  const Outcome outcome = check();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "toc.txt: accepted, 4 entries.\n");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(Check, ListsEveryDocumentThatIsNotThereWithItsLine) {
  writeToc(
      "\"1\" \"Book\" \"Manual\\cover.htm\" \"\"\n"
      "\"2\" \"One\" \"Manual\\one.htm#a\" \"\"\n"
      "\"2\" \"None\" \"\" \"\"\n"
      "\"2\" \"One\" \"Manual/one.htm\" \"\"\n"
      "\"2\" \"Top\" \"top.htm\" \"\"\n");
  disk.write("Manual/cover.htm", "");
  const Outcome outcome = check();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "toc.txt:4: missing: Manual\\one.htm#a\n"
            "toc.txt:6: missing: Manual/one.htm\n"
            "toc.txt:7: missing: top.htm\n"
            "toc.txt: accepted, 5 entries.\n");
}

TEST_F(Check, LooksForDocumentsWithoutRegardToLetterCase) {
  writeToc("\"1\" \"Book\" \"MANUAL\\Cover.HTM\" \"\"\n");
  disk.write("Manual/cover.htm", "");
  EXPECT_EQ(check().out, "toc.txt: accepted, 1 entry.\n");
}

TEST_F(Check, LooksNowhereButBelowTheFolderOfTheTable) {
  disk.write("outside.htm", "");
  disk.write("sub/toc.txt",
             std::string(kHeader) +
                 "\n\n"
                 "\"1\" \"Book\" \"Manual\\nul.htm\" \"\"\n"
                 "\"2\" \"Outside\" \"..\\outside.htm\" \"\"\n"
                 "\"2\" \"Root\" \"\\etc\\passwd\" \"\"\n"
                 "\"2\" \"Drive\" \"C:\\etc\\passwd\" \"\"\n"
                 "\"2\" \"Share\" \"\\\\server\\share\\a.htm\" \"\"\n");
  disk.write("sub/Manual/nul.htm", "");
  EXPECT_EQ(quorbind({"check", "sub/toc.txt"}).out,
            "sub/toc.txt:3: missing: Manual\\nul.htm\n"
            "sub/toc.txt:4: missing: ..\\outside.htm\n"
            "sub/toc.txt:5: missing: \\etc\\passwd\n"
            "sub/toc.txt:6: missing: C:\\etc\\passwd\n"
            "sub/toc.txt:7: missing: \\\\server\\share\\a.htm\n"
            "sub/toc.txt: accepted, 5 entries.\n");
}

TEST_F(Check, RefusesAFolderThatAnAdditionWouldRefuseWithTheSameBox) {
  struct Case {
    std::string file;
    std::string box;
  };
  const std::vector<Case> cases{
      {"..\\..\\x\\c.htm",
       "critical: Error:Book Folder leads out of the library: ..\\..\\x\\c.htm\n"},
      {"a:b\\c.htm", "critical: Book Folder can not contain (/\\:*?\"<>)\n"},
      {"a&b\\c.htm", "critical: Book Folder can not contain ('\"&<>)\n"}};
  initLibrary();
  for (const auto& [file, box] : cases) {
    const std::string entry = "\"1\" \"Book\" \"" + file + "\" \"\"\n";
    const std::string marked = "\"1\" \"Book\" \"" + file + "\" \"\" $@@$1$@@$ $@@$Book$@@$ $@@$" +
                               file + "$@@$ $@@$$@@$ $@@$#NoLink#$@@$ $@@$#NO_BOOKLINK#$@@$\n";
    for (const std::string& line : {entry, marked}) {
      writeToc(line);
      const Outcome outcome = check();
      EXPECT_EQ(outcome.status, 1);
      EXPECT_EQ(outcome.err, box + "quorbind: toc.txt:3:12: not accepted\n");
      EXPECT_EQ(addAlarms().err, box + "quorbind: toc.txt:3:12: nothing was added\n");
    }
    disk.write("toc.htm",
               "<html>\n<K1><A HREF=\"" + replaceAll(file, "\\", "/") + "\">A</A></K1>\n");
    const Outcome page = quorbind({"check", "toc.htm"});
    EXPECT_EQ(page.status, 1);
    EXPECT_EQ(page.err, box + "quorbind: toc.htm:2: not accepted\n");
    EXPECT_EQ(addFile("toc.htm", asAlarms()).err, box + "quorbind: toc.htm:2: nothing was added\n");
  }
}

TEST_F(Check, RefusesALineWithTheBoxOfTheRule) {
  writeToc(
      "\"1\" \"Book\" \"Manual\\cover.htm\" \"\"\n"
      "\"3\" \"Alarms\" \"a.htm\" \"\"\n");
  const Outcome outcome = check();
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "toc.txt:3: missing: Manual\\cover.htm\n");
  EXPECT_EQ(outcome.err,
            "critical: Line: \"3\" \"Alarms\" \"a.htm\" \"\"\n"
            "Error:Invalid Node Level Sequence \n"
            "offending line: \"3\" \"Alarms\" \"a.htm\" \"\"\n"
            "quorbind: toc.txt:4:1: not accepted\n");
}

TEST_F(Check, RefusesAnEmptyTable) {
  disk.write("toc.txt", "");
  const Outcome outcome = check();
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err,
            "critical: Error: Text File is Empty\n"
            "quorbind: toc.txt: not accepted\n");
}

TEST_F(Check, RefusesAnExtensionThatIsNotTheKinds) {
  writeBook();
  const Outcome outcome = check({"--kind", "excel"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err,
            "critical: TOC file is not a EXCEL file\n"
            "quorbind: toc.txt: not accepted\n");
}

TEST_F(Check, ATableThatIsNotThereIsMissingInput) {
  const Outcome outcome = check();
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err,
            "critical: TOC not found at Path\n"
            "toc.txt\n"
            "quorbind: toc.txt: not accepted\n");
}

TEST_F(Check, ReportsAsOneObject) {
  writeToc("\"1\" \"Book\" \"Manual\\cover.htm\" \"\"\n");
  const Outcome outcome = check({"--json"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "{\n  \"format\": 1,\n"
            "  \"status\": 0,\n"
            "  \"accepted\": true,\n"
            "  \"entries\": 1,\n"
            "  \"missing\": [\n"
            "    {\n"
            "      \"line\": 3,\n"
            "      \"file\": \"Manual\\\\cover.htm\"\n"
            "    }\n"
            "  ],\n"
            "  \"messages\": []\n"
            "}\n");
}

TEST_F(Check, ReportsEveryMissingDocumentWithoutWhatATerminalObeys) {
  writeToc(
      "\"1\" \"Book\" \"\" \"\"\n"
      "\"2\" \"One\" \"one\xC2\x9B.htm\" \"\"\n"
      "\"2\" \"Two\" \"\xE2\x80\xAEtwo, \x1B and null\" \"\"\n");
  EXPECT_EQ(check({"--json"}).out,
            "{\n  \"format\": 1,\n"
            "  \"status\": 0,\n"
            "  \"accepted\": true,\n"
            "  \"entries\": 3,\n"
            "  \"missing\": [\n"
            "    {\n"
            "      \"line\": 4,\n"
            "      \"file\": \"one\\u009b.htm\"\n"
            "    },\n"
            "    {\n"
            "      \"line\": 5,\n"
            "      \"file\": \"\\u202etwo, \\u001b and null\"\n"
            "    }\n"
            "  ],\n"
            "  \"messages\": []\n"
            "}\n");
}

#if !defined(__SANITIZE_ADDRESS__)
TEST_F(Check, AReportOfManyMissingDocumentsTakesLittleMoreMemoryThanTheirNames) {
  constexpr int kDocuments = 200'000;
  std::string entries;
  for (int i = 0; i < kDocuments; ++i) {
    const std::string level = i == 0 ? "1" : "2";
    entries += "\"" + level + "\" \"Name\" \"Manual\\" + std::to_string(i) + ".htm\" \"\"\n";
  }
  writeToc(entries);
  // All that the process maps, its libraries included: 100 MiB.
  const Outcome outcome =
      runHere({"prlimit", "--as=104857600", quorbindExecutable(), "check", "toc.txt", "--json"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_TRUE(outcome.out.ends_with(
      "    {\n      \"line\": 200002,\n      \"file\": \"Manual\\\\199999.htm\"\n    }\n"
      "  ],\n  \"messages\": []\n}\n"));
}
#endif

TEST_F(Check, ReportsARefusalAsOneObject) {
  writeToc("\"2\" \"Book\" \"\" \"\"\n");
  const Outcome outcome = check({"--json"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(
      outcome.out,
      "{\n  \"format\": 1,\n"
      "  \"status\": 1,\n"
      "  \"accepted\": false,\n"
      "  \"entries\": 0,\n"
      "  \"missing\": [],\n"
      "  \"messages\": [\n"
      "    {\n"
      "      \"icon\": \"critical\",\n"
      "      \"title\": \"Quorbind\",\n"
      "      \"text\": \"Line: \\\"2\\\" \\\"Book\\\" \\\"\\\" \\\"\\\"\\rError:Invalid Node "
      "Level Sequence \",\n"
      "      \"clipboard\": \"\\\"2\\\" \\\"Book\\\" \\\"\\\" \\\"\\\"\",\n"
      "      \"expected\": \"1 in the first entry and nowhere else; below that at most one "
      "deeper than the line before.\"\n"
      "    }\n"
      "  ],\n"
      "  \"line\": 3,\n"
      "  \"column\": 1,\n"
      "  \"length\": 3,\n"
      "  \"text\": \"\\\"2\\\" \\\"Book\\\" \\\"\\\" \\\"\\\"\",\n"
      "  \"expected\": \"1 in the first entry and nowhere else; below that at most one deeper "
      "than the line before.\",\n"
      "  \"note\": \"not accepted\"\n"
      "}\n");
}

TEST_F(Check, ReportsATableThatIsNotThereAsOneObject) {
  const Outcome outcome = check({"--json"});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.out,
            "{\n  \"format\": 1,\n"
            "  \"status\": 3,\n"
            "  \"accepted\": false,\n"
            "  \"entries\": 0,\n"
            "  \"missing\": [],\n"
            "  \"messages\": [\n"
            "    {\n"
            "      \"icon\": \"critical\",\n"
            "      \"title\": \"Quorbind\",\n"
            "      \"text\": \"TOC not found at Path\\rtoc.txt\",\n"
            "      \"clipboard\": null,\n"
            "      \"expected\": \"The name of a file that is there.\"\n"
            "    }\n"
            "  ],\n"
            "  \"expected\": \"The name of a file that is there.\",\n"
            "  \"note\": \"not accepted\"\n"
            "}\n");
}

}  // namespace
}  // namespace quorbind::testing
