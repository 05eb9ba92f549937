#include "tests/cli/command_test.h"

namespace quorbind::testing {
namespace {

class Add : public CommandTest {
 protected:
  void SetUp() override {
    initLibrary();
    writeBook();
  }

  [[nodiscard]] std::string catalogueText() const {
    return replaceAll(fromUtf16File(disk.read("server/Docs/Plant/Quor_TOC.xml")), "\r\n", "\n");
  }
  [[nodiscard]] std::string shown() const {
    return quorbind({"show", "--server", "server", "--library", "Plant", "ALM"}).out;
  }
};

TEST_F(Add, PutsABookWithItsDocumentsIntoTheLibrary) {
  const Outcome outcome = addAlarms();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Added Alarms (ALM) to Plant, folder Manual: 3 files.\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(filesBelow("server/Docs/Plant/"),
            (Words{"Manual/Book_ALM.xml",
                   "Manual/alarms.htm",
                   "Manual/trends.htm",
                   "Quor_BookCategories.xml",
                   "Quor_TOC.xml"}));
}

TEST_F(Add, ANameInBracketsIsOneName) {
  EXPECT_EQ(add({"--name", "[Bells, Horns]", "--acro", "[A,B]"}).out,
            "Added [Bells, Horns] ([A,B]) to Plant, folder Manual: 3 files.\n");
}

TEST_F(Add, EntersTheBookInTheCatalogue) {
  EXPECT_EQ(addAlarms({"--category", "User Guides; Alarms"}).status, 0);
  EXPECT_EQ(catalogueText(),
            "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n"
            "<Quor_Master>\n"
            "\t<Quor_Books>\n"
            "\t\t<Book>\n"
            "\t\t\t<Book_Name>Alarms</Book_Name>\n"
            "\t\t\t<Book_Acro>ALM</Book_Acro>\n"
            "\t\t\t<Book_Key id=\"\">Plant</Book_Key>\n"
            "\t\t\t<Book_Folder>Manual</Book_Folder>\n"
            "\t\t\t<Book_File>Book_ALM.xml</Book_File>\n"
            "\t\t\t<Book_Categories>\n"
            "\t\t\t\t<Book_Category>User Guides</Book_Category>\n"
            "\t\t\t\t<Book_Category>Alarms</Book_Category>\n"
            "\t\t\t</Book_Categories>\n"
            "\t\t</Book>\n"
            "\t</Quor_Books>\n"
            "</Quor_Master>\n");
}

TEST_F(Add, ConvertsATableOfQuotedFieldsToHeadings) {
  EXPECT_EQ(addAlarms().status, 0);
  EXPECT_EQ(shown(),
            "Alarms (ALM), folder Manual\n"
            "  Alarms  alarms.htm\n"
            "    Reset & Test  alarms.htm#reset\n"
            "  Trends  trends.htm#top\n");
}

TEST_F(Add, LeavesNothingBesideTheTableOfContents) {
  EXPECT_EQ(addAlarms().status, 0);
  EXPECT_EQ(filesBelow(""),
            (Words{"Manual/alarms.htm",
                   "Manual/cover.htm",
                   "Manual/trends.htm",
                   "server/Docs/Plant/Manual/Book_ALM.xml",
                   "server/Docs/Plant/Manual/alarms.htm",
                   "server/Docs/Plant/Manual/trends.htm",
                   "server/Docs/Plant/Quor_BookCategories.xml",
                   "server/Docs/Plant/Quor_TOC.xml",
                   "server/Docs/Quor_DefaultCategories.xml",
                   "server/Docs/Quor_Selection.xml",
                   "toc.txt"}));
}

TEST_F(Add, TakesATableThatWasPreparedBefore) {
  EXPECT_EQ(quorbind({"prepare", "toc.txt", "-o", "toc.txt"}).status, 0);
  EXPECT_EQ(addAlarms().status, 0);
  EXPECT_EQ(shown(),
            "Alarms (ALM), folder Manual\n"
            "  Alarms  alarms.htm\n"
            "    Reset & Test  alarms.htm#reset\n"
            "  Trends  trends.htm#top\n");
}

TEST_F(Add, WorksFromAnyFolderAndWithSlashesInTheTable) {
  disk.write("sub/toc.txt", replaceAll(disk.read("toc.txt"), "\\", "/"));
  disk.write("sub/Manual/alarms.htm", "<p>text</p>");
  const Outcome outcome = quorbind({"add",
                                    "sub/../sub/toc.txt",
                                    "--server",
                                    "sub/../server",
                                    "--library",
                                    "Plant",
                                    "--name",
                                    "Alarms",
                                    "--acro",
                                    "ALM"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "Added Alarms (ALM) to Plant, folder Manual: 2 files.\n"
            "missing: trends.htm\n");
}

TEST_F(Add, ListsTheDocumentsThatAReaderWouldNotFindAndStillAdds) {
  std::filesystem::remove(disk.path() / "Manual/trends.htm");
  const Outcome outcome = addAlarms();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "Added Alarms (ALM) to Plant, folder Manual: 2 files.\n"
            "missing: trends.htm\n");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(Add, CountsADocumentThatIsNamedInTwoLetterCasesOnce) {
  writeToc(
      "\"1\" \"Alarm Handling\" \"Manual\\cover.htm\" \"\"\n"
      "\"2\" \"Alarms\" \"Manual\\alarms.htm\" \"\"\n"
      "\"2\" \"Reset\" \"Manual\\ALARMS.HTM#reset\" \"\"\n"
      "\"2\" \"Lost\" \"Manual\\lost.htm\" \"\"\n"
      "\"2\" \"Lost too\" \"Manual\\Lost.htm\" \"\"\n");
  EXPECT_EQ(addAlarms().out,
            "Added Alarms (ALM) to Plant, folder Manual: 2 files.\n"
            "missing: lost.htm\n");
}

TEST_F(Add, ADocumentNameThatLeadsOutOfTheBookCountsAsMissing) {
  writeToc(
      "\"1\" \"Alarm Handling\" \"Manual\\cover.htm\" \"\"\n"
      "\"2\" \"Up\" \"Manual\\..\\..\\toc.txt\" \"\"\n"
      "\"2\" \"Device\" \"nul\" \"\"\n");
  const Outcome outcome = addAlarms();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "Added Alarms (ALM) to Plant, folder Manual: 1 file.\n"
            "missing: ..\n"
            "missing: nul\n");
}

TEST_F(Add, ReportsTheWholeRunAsOneObject) {
  std::filesystem::remove(disk.path() / "Manual/trends.htm");
  const Outcome outcome = addAlarms({"--json", "--folder", "Other"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "{\n  \"format\": 1,\n"
            "  \"status\": 0,\n"
            "  \"added\": true,\n"
            "  \"folder\": \"Manual\",\n"
            "  \"files\": [\n"
            "    \"Book_ALM.xml\",\n"
            "    \"alarms.htm\"\n"
            "  ],\n"
            "  \"missing\": [\n"
            "    \"trends.htm\"\n"
            "  ],\n"
            "  \"messages\": [\n"
            "    {\n"
            "      \"icon\": \"information\",\n"
            "      \"title\": \"Quorbind\",\n"
            "      \"text\": \"--folder Other is not used: the table of contents names the folder "
            "Manual\",\n"
            "      \"clipboard\": null\n"
            "    }\n"
            "  ]\n"
            "}\n");
}

TEST_F(Add, AFolderThatTheTableNamesTakesTheFlagsPlace) {
  const Outcome outcome = addAlarms({"--folder", "Other"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err,
            "information: --folder Other is not used: the table of contents names the folder "
            "Manual\n");
}

TEST_F(Add, AFolderThatTheTableDoesNotNameComesFromTheFlag) {
  writeToc(
      "\"1\" \"Alarm Handling\" \"cover.htm\" \"\"\n"
      "\"2\" \"Alarms\" \"alarms.htm\" \"\"\n");
  disk.write("alarms.htm", "<p>text</p>");
  const Outcome outcome = addAlarms({"--folder", "Manual"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Added Alarms (ALM) to Plant, folder Manual: 2 files.\n");
  EXPECT_TRUE(disk.has("server/Docs/Plant/Manual/alarms.htm"));
}

TEST_F(Add, ATableKeptInsideTheLibraryKeepsItsBookFile) {
  disk.write("server/Docs/Plant/toc.txt", disk.read("toc.txt"));
  disk.write("server/Docs/Plant/Manual/alarms.htm", "<p>text</p>");
  const Outcome outcome = quorbind({"add",
                                    "server/Docs/Plant/toc.txt",
                                    "--server",
                                    "server",
                                    "--library",
                                    "Plant",
                                    "--name",
                                    "Alarms",
                                    "--acro",
                                    "ALM"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "Added Alarms (ALM) to Plant, folder Manual: 2 files.\n"
            "missing: trends.htm\n");
  EXPECT_TRUE(disk.has("server/Docs/Plant/Manual/Book_ALM.xml"));
}

}  // namespace
}  // namespace quorbind::testing
