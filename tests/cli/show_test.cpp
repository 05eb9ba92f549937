#include "tests/cli/command_test.h"
#include "tests/cli/refusal_object.h"

namespace quorbind::testing {
namespace {

class Show : public CommandTest {
 protected:
  void SetUp() override {
    initLibrary();
    writeBook();
  }
  [[nodiscard]] Outcome show(const Words& more = {}) const {
    return quorbind(joined({"show", "--server", "server", "--library", "Plant"}, more));
  }
};

TEST_F(Show, AnEmptyCatalogueIsAnEmptyTable) {
  const Outcome outcome = show();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "ACRONYM  NAME  FOLDER\n");
}

TEST_F(Show, TheCatalogueIsATableInWhichNamesStandAsTheyWereTyped) {
  EXPECT_EQ(add({"--name", "Ger\xC3\xA4te & <Netze>", "--acro", "GN"}).status, 0);
  EXPECT_EQ(addAlarms().status, 0);
  EXPECT_EQ(show().out,
            "ACRONYM  NAME              FOLDER\n"
            "GN       Ger\xC3\xA4te & <Netze>  Manual\n"
            "ALM      Alarms            Manual\n");
}

TEST_F(Show, TheCatalogueKeepsItsColumnsWhateverTheWidthOfItsCharacters) {
  EXPECT_EQ(add({"--name", "警報", "--acro", "W"}).status, 0);
  EXPECT_EQ(add({"--name", "Cafe\xCC\x81", "--acro", "C"}).status, 0);
  EXPECT_EQ(addAlarms().status, 0);
  EXPECT_EQ(show().out,
            "ACRONYM  NAME    FOLDER\n"
            "W        警報    Manual\n"
            "C        Cafe\xCC\x81    Manual\n"
            "ALM      Alarms  Manual\n");
}

TEST_F(Show, ABookIsItsHeadingTree) {
  EXPECT_EQ(addAlarms().status, 0);
  EXPECT_EQ(show({"ALM"}).out,
            "Alarms (ALM), folder Manual\n"
            "  Alarms  alarms.htm\n"
            "    Reset & Test  alarms.htm#reset\n"
            "  Trends  trends.htm#top\n");
}

TEST_F(Show, TheCatalogueAsAnObject) {
  EXPECT_EQ(addAlarms().status, 0);
  EXPECT_EQ(show({"--json"}).out,
            "{\n  \"format\": 1,\n"
            "  \"books\": [\n"
            "    {\n"
            "      \"acronym\": \"ALM\",\n"
            "      \"name\": \"Alarms\",\n"
            "      \"folder\": \"Manual\",\n"
            "      \"file\": \"Book_ALM.xml\",\n"
            "      \"link\": \"\",\n"
            "      \"categories\": []\n"
            "    }\n"
            "  ]\n"
            "}\n");
}

TEST_F(Show, ABookAsAnObject) {
  writeToc(
      "\"1\" \"Book\" \"Manual\\cover.htm\" \"\"\n"
      "\"2\" \"A & B\" \"Manual\\a.htm\" \"#b\"\n");
  EXPECT_EQ(addAlarms().status, 0);
  EXPECT_EQ(show({"ALM", "--json"}).out,
            "{\n  \"format\": 1,\n"
            "  \"acronym\": \"ALM\",\n"
            "  \"name\": \"Alarms\",\n"
            "  \"folder\": \"Manual\",\n"
            "  \"file\": \"Book_ALM.xml\",\n"
            "  \"link\": \"\",\n"
            "  \"categories\": [],\n"
            "  \"headings\": [\n"
            "    {\n"
            "      \"level\": 1,\n"
            "      \"title\": \"A & B\",\n"
            "      \"file\": \"a.htm\",\n"
            "      \"bookmark\": \"#b\",\n"
            "      \"missing\": true\n"
            "    }\n"
            "  ]\n"
            "}\n");
}

TEST_F(Show, ABookHasItsLinkFromItsBookFileAndItsCategoriesFromTheCatalogue) {
  EXPECT_EQ(addAlarms({"--category", "Operation; R&D"}).status, 0);
  EXPECT_EQ(quorbind({"set", "Alarms", "--link", "<l>", "--server", "server", "--library", "Plant"})
                .status,
            0);
  EXPECT_EQ(show({"ALM"}).out,
            "Alarms (ALM), folder Manual\n"
            "link: <l>\n"
            "categories: Operation; R&D\n"
            "  Alarms  alarms.htm\n"
            "    Reset & Test  alarms.htm#reset\n"
            "  Trends  trends.htm#top\n");
}

TEST_F(Show, ASingleDocumentIsNamedWithItsType) {
  disk.write("server/Docs/Plant/Quor_TOC.xml",
             "<Quor_Master><Quor_Books><Book><Book_Name>Plan</Book_Name><Book_Acro>P</Book_Acro>"
             "<Book_Key id=\"L\"/><Book_Folder>P</Book_Folder><Book_File type=\"map\">p.pdf"
             "</Book_File><Book_Categories/></Book></Quor_Books></Quor_Master>");
  EXPECT_EQ(show({"P"}).out,
            "Plan (P), folder P\n"
            "file: p.pdf of type map  (missing)\n"
            "link: L\n");
  EXPECT_EQ(show({"P", "--json"}).out,
            "{\n  \"format\": 1,\n"
            "  \"acronym\": \"P\",\n"
            "  \"name\": \"Plan\",\n"
            "  \"folder\": \"P\",\n"
            "  \"file\": \"p.pdf\",\n"
            "  \"type\": \"map\",\n"
            "  \"link\": \"L\",\n"
            "  \"categories\": [],\n"
            "  \"missing\": true,\n"
            "  \"headings\": []\n"
            "}\n");
  disk.write("server/Docs/Plant/P/P.PDF", "");
  EXPECT_EQ(show({"P"}).out,
            "Plan (P), folder P\n"
            "file: p.pdf of type map\n"
            "link: L\n");
}

TEST_F(Show, ADocumentThatIsNotThereIsMarkedAtEachHeadingThatNamesIt) {
  EXPECT_EQ(addAlarms().status, 0);
  disk.remove("server/Docs/Plant/Manual/alarms.htm");
  disk.write("server/Docs/Plant/Manual/TRENDS.HTM",
             disk.read("server/Docs/Plant/Manual/trends.htm"));
  disk.remove("server/Docs/Plant/Manual/trends.htm");
  EXPECT_EQ(show({"ALM"}).out,
            "Alarms (ALM), folder Manual\n"
            "  Alarms  alarms.htm  (missing)\n"
            "    Reset & Test  alarms.htm#reset  (missing)\n"
            "  Trends  trends.htm#top\n");
  const std::string object = show({"ALM", "--json"}).out;
  EXPECT_EQ(countPieces(object, "\"missing\": true"), 3U);
  EXPECT_EQ(countPieces(object, "\"missing\": false"), 2U);
}

TEST_F(Show, AHeadingWithoutANameHasNoOtherHeadingsName) {
  EXPECT_EQ(addAlarms().status, 0);
  disk.write("server/Docs/Plant/Manual/Book_ALM.xml",
             "<Book_Master><Book/><Book_Headings>"
             "<Heading><HName>Alarms</HName>"
             "<Heading><HName>Lamps</HName><HFile>alarms.htm</HFile></Heading>"
             "<Heading><HFile>trends.htm</HFile></Heading>"
             "<HFile>alarms.htm#a</HFile></Heading>"
             "<Heading><HFile>alarms.htm#b</HFile></Heading>"
             "</Book_Headings></Book_Master>");
  EXPECT_EQ(show({"ALM"}).out,
            "Alarms (ALM), folder Manual\n"
            "    Lamps  alarms.htm\n"
            "    (no title)  trends.htm\n"
            "  Alarms  alarms.htm#a\n"
            "  (no title)  alarms.htm#b\n");
}

TEST_F(Show, ABookThatIsNotInTheCatalogueIsRefused) {
  const Outcome outcome = show({"ALM"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "critical: there is no book ALM in Plant\n");
}

TEST_F(Show, ReportsARefusalAsOneObject) {
  const Outcome outcome = show({"ALM", "--json"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(
      outcome.out,
      refusalObject(
          1, "there is no book ALM in Plant", "A book of the library, in its own letter case."));
}

TEST_F(Show, ReportsInputThatIsMissingOrDoesNotParseAsOneObject) {
  std::filesystem::remove(disk.path() / "server/Docs/Plant/Quor_TOC.xml");
  EXPECT_EQ(show({"--json"}).out.rfind("{\n  \"format\": 1,\n  \"status\": 3,\n", 0), 0U);
  disk.write("server/Docs/Plant/Quor_TOC.xml", "<Quor_Master>\n");
  EXPECT_EQ(show({"--json"}).out.rfind("{\n  \"format\": 1,\n  \"status\": 4,\n", 0), 0U);
}

TEST_F(Show, ABookFileThatIsNotThereIsMissingInput) {
  EXPECT_EQ(addAlarms().status, 0);
  std::filesystem::remove(disk.path() / "server/Docs/Plant/Manual/Book_ALM.xml");
  const Outcome outcome = show({"ALM"});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err, "critical: DISK/server/Docs/Plant/Manual/Book_ALM.xml: File not found\n");
}

TEST_F(Show, ABookFileThatDoesNotParseIsNamedWithItsLine) {
  EXPECT_EQ(addAlarms().status, 0);
  disk.write("server/Docs/Plant/Manual/Book_ALM.xml", "<Book_Master>\n");
  const Outcome outcome = show({"ALM"});
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.err.rfind("critical: DISK/server/Docs/Plant/Manual/Book_ALM.xml:", 0), 0U)
      << outcome.err;
}

TEST_F(Show, AnEntryThatLeadsOutOfTheLibraryIsNotFollowed) {
  disk.write("server/Docs/secret.xml", "<Book_Master/>");
  disk.write("server/Docs/Plant/Quor_TOC.xml",
             "<Quor_Master><Quor_Books><Book><Book_Name>x</Book_Name><Book_Acro>X</Book_Acro>"
             "<Book_Folder>..</Book_Folder><Book_File>secret.xml</Book_File></Book></Quor_Books>"
             "</Quor_Master>");
  const Outcome outcome = show({"X"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err,
            "critical: DISK/server/Docs/Plant/Quor_TOC.xml: the book file ..\\secret.xml is not "
            "in the library\n");
}

TEST_F(Show, ALibraryThatIsNotThereIsMissingInput) {
  EXPECT_EQ(quorbind({"show", "--server", "server", "--library", "Tools"}).status, 3);
  EXPECT_EQ(quorbind({"show", "--server", "nowhere", "--library", "Plant"}).status, 3);
}

}  // namespace
}  // namespace quorbind::testing
