#include "tests/cli/command_test.h"

namespace quorbind::testing {
namespace {

/// Input that is refused with a message, a file and a line, and that leaves the library as it was.
class BadInput : public CommandTest {
 protected:
  void SetUp() override { initLibrary(); }

  /// Adds `toc.txt` as it stands and expects these ends, with nothing changed anywhere.
  void expectRefusal(int status, const std::string& errors) const {
    const Tree before = disk.contents();
    const Outcome outcome = addAlarms();
    EXPECT_EQ(outcome.status, status);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, errors);
    EXPECT_EQ(disk.contents(), before);
  }

  /// `column` is where the fault begins, as the closing line names it.
  void expectEntryRefused(const std::string& line,
                          const std::string& error,
                          const std::string& column = ":1") const {
    writeToc("\"1\" \"Alarm Handling\" \"Manual\\cover.htm\" \"\"\n" + line + "\n");
    expectRefusal(1,
                  "critical: Line: " + line + "\n" + error + "\noffending line: " + line +
                      "\nquorbind: toc.txt:4" + column + ": nothing was added\n");
  }
};

TEST_F(BadInput, ATableThatIsNotThere) {
  expectRefusal(3,
                "critical: TOC not found at Path\n"
                "toc.txt\n"
                "quorbind: toc.txt: nothing was added\n");
}

TEST_F(BadInput, AFolderInsteadOfATable) {
  disk.makeFolder("toc.txt");
  expectRefusal(3,
                "critical: TOC not found at Path\n"
                "toc.txt\n"
                "quorbind: toc.txt: nothing was added\n");
}

TEST_F(BadInput, AnEmptyTable) {
  disk.write("toc.txt", "");
  expectRefusal(1,
                "critical: Error: Text File is Empty\n"
                "quorbind: toc.txt: nothing was added\n");
}

TEST_F(BadInput, ASingleHeaderLine) {
  disk.write("toc.txt", std::string(kHeader) + "\n");
  expectRefusal(1,
                "critical: Error: Text File is Empty\n"
                "quorbind: toc.txt: nothing was added\n");
}

TEST_F(BadInput, ABadHeader) {
  disk.write("toc.txt", "\"Node Level\" \"Node Name\" \"File Name\"\n\n");
  expectRefusal(1,
                "critical: Error: Text File Does not adhere to Quor TOC Content Spec\n"
                "offending line: \"Node Level\" \"Node Name\" \"File Name\"\n"
                "quorbind: toc.txt:1: nothing was added\n");
}

TEST_F(BadInput, AnExtensionThatIsNotTheKinds) {
  writeBook();
  disk.write("toc.doc", disk.read("toc.txt"));
  const Tree before = disk.contents();
  const Outcome given =
      quorbind({"add", "toc.doc", "--kind", "text", "--server", "server", "--library", "Plant"});
  EXPECT_EQ(given.status, 1);
  EXPECT_EQ(given.err,
            "critical: TOC file is not a Text file\n"
            "quorbind: toc.doc: nothing was added\n");
  const Outcome told = quorbind({"add", "toc.doc", "--server", "server", "--library", "Plant"});
  EXPECT_EQ(told.status, 1);
  EXPECT_EQ(told.err,
            "critical: Not a valid TOC file\n"
            "quorbind: toc.doc: nothing was added\n");
  const Outcome other =
      quorbind({"add", "toc.txt", "--kind", "html", "--server", "server", "--library", "Plant"});
  EXPECT_EQ(other.status, 1);
  EXPECT_EQ(other.err,
            "critical: TOC file is not a HTML file\n"
            "quorbind: toc.txt: nothing was added\n");
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(BadInput, ALineWithoutEightQuotes) {
  expectEntryRefused(
      "\"2\" \"Alarms\" \"a.htm\"", "Error: Does not adhere to Quor TOC Content Spec", "");
}

TEST_F(BadInput, AnEmptyLine) {
  writeToc("\"1\" \"Alarm Handling\" \"Manual\\cover.htm\" \"\"\n   \n");
  expectRefusal(1,
                "critical: Error:Empty Line in TOC is not valid\n"
                "quorbind: toc.txt:4: nothing was added\n");
}

TEST_F(BadInput, ALevelThatIsAWord) {
  expectEntryRefused("\"two\" \"Alarms\" \"a.htm\" \"\"",
                     "Error:Node Level value can not be String");
}

TEST_F(BadInput, ALevelOfZero) {
  expectEntryRefused("\"0\" \"Alarms\" \"a.htm\" \"\"", "Error:Invalid Node Level Sequence ");
}

TEST_F(BadInput, ALevelBeyondTheNumbersOfLevels) {
  expectEntryRefused("\"40000\" \"Alarms\" \"a.htm\" \"\"",
                     "Error:Node Level value can not be String");
}

TEST_F(BadInput, ALevelThatJumpsByTwo) {
  expectEntryRefused("\"3\" \"Alarms\" \"a.htm\" \"\"", "Error:Invalid Node Level Sequence ");
}

TEST_F(BadInput, AnEntryWithoutAName) {
  expectEntryRefused("\"2\" \"\" \"a.htm\" \"\"", "Error:Node Name can not be Empty", ":5");
}

TEST_F(BadInput, AFileOfZeros) {
  disk.write("toc.txt", std::string(1000, '\0'));
  std::string zeros;
  for (int i = 0; i < 1000; ++i) {
    zeros += "\\x00";
  }
  expectRefusal(1,
                "critical: Error: Text File Does not adhere to Quor TOC Content Spec\n"
                "offending line: " +
                    zeros + "\nquorbind: toc.txt:1: nothing was added\n");
}

TEST_F(BadInput, HeadingsNestedBeyondWhatAReaderTakes) {
  std::string entries;
  for (int level = 1; level <= 255; ++level) {
    entries += "\"" + std::to_string(level) + "\" \"Heading\" \"Manual\\a.htm\" \"\"\n";
  }
  writeToc(entries);
  expectRefusal(4,
                "critical: The heading lies too deep\n"
                "quorbind: toc.txt:257:1: nothing was added\n");
}

TEST_F(BadInput, HeadingsNestedAsDeeplyAsAReaderTakesAreAdded) {
  std::string entries;
  for (int level = 1; level <= 254; ++level) {
    entries += "\"" + std::to_string(level) + "\" \"Heading\" \"Manual\\a.htm\" \"\"\n";
  }
  writeToc(entries);
  const Outcome outcome = addAlarms();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "Added Alarms (ALM) to Plant, folder Manual: 1 file.\n"
            "missing: a.htm\n");
}

TEST_F(BadInput, ALibraryThatIsNotThere) {
  writeBook();
  const Tree before = disk.contents();
  const Outcome outcome = quorbind({"add", "toc.txt", "--server", "server", "--library", "Tools"});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err,
            "critical: DISK/server/Docs/Tools/Quor_TOC.xml: Path not found\n"
            "quorbind: toc.txt: nothing was added\n");
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(BadInput, ACatalogueThatDoesNotParse) {
  writeBook();
  disk.write("server/Docs/Plant/Quor_TOC.xml", "<Quor_Master>\n<Quor_Books>\n</Quor_Master>\n");
  const Tree before = disk.contents();
  const Outcome outcome = addAlarms();
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.err.rfind("critical: DISK/server/Docs/Plant/Quor_TOC.xml:3:15: ", 0), 0U)
      << outcome.err;
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(BadInput, AnEmptyCatalogueFile) {
  writeBook();
  disk.write("server/Docs/Plant/Quor_TOC.xml", "");
  EXPECT_EQ(addAlarms().status, 4);
}

TEST_F(BadInput, ACatalogueWithADocumentType) {
  writeBook();
  disk.write("server/Docs/Plant/Quor_TOC.xml",
             "<!DOCTYPE Quor_Master [<!ENTITY a SYSTEM \"file:///etc/passwd\">]>\n"
             "<Quor_Master><Quor_Books>&a;</Quor_Books></Quor_Master>\n");
  const Tree before = disk.contents();
  EXPECT_EQ(addAlarms().status, 4);
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(BadInput, ACatalogueWithoutAListOfBooks) {
  writeBook();
  disk.write("server/Docs/Plant/Quor_TOC.xml", "<Quor_Master/>\n");
  expectRefusal(4,
                "critical: DISK/server/Docs/Plant/Quor_TOC.xml: the element Quor_Books is "
                "missing\n"
                "quorbind: toc.txt: nothing was added\n");
}

}  // namespace
}  // namespace quorbind::testing
