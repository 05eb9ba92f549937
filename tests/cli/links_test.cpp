#include "tests/cli/library_test.h"

namespace quorbind::testing {
namespace {

class LinksCommand : public LibraryTest {
 protected:
  static Words add(const std::string& identifier, const Words& more = {}) {
    return joined({"links",
                   "add",
                   identifier,
                   "--full",
                   "ALM@QUOR@Reset",
                   "--source",
                   "Manual\\alarms.htm#reset",
                   "--acro",
                   "ALM"},
                  more);
  }
  static std::string resetLink(std::string_view identifier) {
    return link(identifier, "ALM@QUOR@Reset", "Plant\\Manual\\alarms.htm#reset", "ALM");
  }
};

using LinkList = LinksCommand;

TEST_F(LinkList, IsATableOfTheIdentifiersAsTyped) {
  disk.write(kLinks, linksFile(resetLink("R&amp;amp;1") + resetLink("X2")));
  const Outcome outcome = inPlant({"links", "list"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "IDENTIFIER  BOOK  SOURCE                         FULL LINK\n"
            "R&1         ALM   Plant\\Manual\\alarms.htm#reset  ALM@QUOR@Reset\n"
            "X2          ALM   Plant\\Manual\\alarms.htm#reset  ALM@QUOR@Reset\n");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(LinkList, AsAnObject) {
  disk.write(kLinks, linksFile(resetLink("X1")));
  EXPECT_EQ(inPlant({"links", "list", "--json"}).out,
            "{\n  \"format\": 1,\n"
            "  \"links\": [\n"
            "    {\n"
            "      \"identifier\": \"X1\",\n"
            "      \"book\": \"ALM\",\n"
            "      \"source\": \"Plant\\\\Manual\\\\alarms.htm#reset\",\n"
            "      \"fullLink\": \"ALM@QUOR@Reset\"\n"
            "    }\n"
            "  ]\n"
            "}\n");
}

TEST_F(LinkList, OfALibraryWithoutTheFileIsEmpty) {
  EXPECT_EQ(inPlant({"links", "list"}).out, "IDENTIFIER  BOOK  SOURCE  FULL LINK\n");
  EXPECT_EQ(inPlant({"links", "list", "--json"}).out, "{\n  \"format\": 1,\n  \"links\": []\n}\n");
}

using LinkAdd = LinksCommand;

TEST_F(LinkAdd, MakesTheFileForTheFirstOne) {
  const Outcome outcome = inPlant(add("X1"));
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Recorded the identifier X1 of Alarms (ALM) in Plant.\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(text(kLinks),
            "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n"
            "<!--Inter Book Linking data file-->\n"
            "<LINKS>\n\t<IBD>\n" +
                resetLink("X1") + "\t</IBD>\n</LINKS>\n");
}

TEST_F(LinkAdd, StoresAndLooksUpEveryMarkupCharacter) {
  disk.write(kLinks, linksFile(""));
  EXPECT_EQ(inPlant(add("<&>'\"")).status, 0);
  EXPECT_EQ(text(kLinks), linksFile(resetLink("&amp;lt;&amp;amp;&amp;gt;&amp;apos;&amp;quot;")));
  expectRefusal(add("<&>'\""),
                1,
                "critical: <&>'\" - Link ID already exist. \n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(LinkAdd, AsAnObject) {
  disk.write(kLinks, linksFile(resetLink("X1")));
  EXPECT_EQ(inPlant(add("X2", {"--json"})).out,
            changeObject("Recorded the identifier X2 of Alarms (ALM) in Plant.", kLinks));
}

TEST_F(LinkAdd, OfABookThatIsNotThereIsRefused) {
  expectRefusal({"links", "add", "X1", "--full", "F", "--source", "s", "--acro", "NEW"},
                1,
                "critical: there is no book NEW in Plant\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(LinkAdd, OneThatIsRecordedWithoutAFullLinkIsRefused) {
  disk.write(kLinks, linksFile(link("X1", "", "Plant\\a.htm", "ALM")));
  expectRefusal(add("X1"),
                1,
                "critical: the identifier X1 is recorded without a full link, which can not be "
                "filled in\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(LinkAdd, EverythingAboutItIsNeeded) {
  expectRefusal({"links", "add", "X1", "--full", "F", "--source", "s"},
                2,
                "--acro is required\n"
                "Run with --help for more information.\n");
}

class LinkCheck : public LinksCommand {
 protected:
  void SetUp() override {
    LinksCommand::SetUp();
    ASSERT_EQ(quorbind({"init", "--server", "server", "--library", "Archive"}).status, 0);
  }
  void writeInArchive(std::string_view links) const {
    disk.write("server/Docs/Archive/Quor_LinkID.xml", linksFile(links));
  }
};

TEST_F(LinkCheck, WithoutARepetitionIsDone) {
  disk.write(kLinks, linksFile(resetLink("X1") + resetLink("X2")));
  writeInArchive(resetLink("x1"));
  const Outcome outcome = inPlant({"links", "check"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Plant: no identifier stands more than once.\n");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(LinkCheck, NamesWhatStandsMoreThanOnceOnTheServer) {
  disk.write(
      kLinks,
      linksFile(resetLink("X1") + resetLink("A&amp;amp;B") + resetLink("X2") + resetLink("X2")));
  writeInArchive(resetLink(" A&amp;amp;B ") + resetLink("Y") + resetLink("Y"));
  const Outcome outcome = inPlant({"links", "check"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out,
            "A&B: Plant (ALM), Archive (ALM)\n"
            "X2: Plant (ALM), Plant (ALM)\n");
  EXPECT_EQ(outcome.err, "quorbind: Plant: 2 identifiers stand more than once\n");
}

TEST_F(LinkCheck, AsAnObject) {
  disk.write(kLinks, linksFile(resetLink("X1")));
  writeInArchive(resetLink("X1"));
  const Outcome outcome = inPlant({"links", "check", "--json"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out,
            "{\n  \"format\": 1,\n"
            "  \"status\": 1,\n"
            "  \"duplicates\": [\n"
            "    {\n"
            "      \"identifier\": \"X1\",\n"
            "      \"places\": [\n"
            "        {\n"
            "          \"library\": \"Plant\",\n"
            "          \"book\": \"ALM\"\n"
            "        },\n"
            "        {\n"
            "          \"library\": \"Archive\",\n"
            "          \"book\": \"ALM\"\n"
            "        }\n"
            "      ]\n"
            "    }\n"
            "  ],\n"
            "  \"messages\": [],\n"
            "  \"note\": \"1 identifier stands more than once\"\n"
            "}\n");
}

TEST_F(LinkCheck, WithoutARepetitionAsAnObject) {
  EXPECT_EQ(inPlant({"links", "check", "--json"}).out,
            "{\n  \"format\": 1,\n"
            "  \"status\": 0,\n"
            "  \"duplicates\": [],\n"
            "  \"messages\": []\n"
            "}\n");
}

TEST_F(LinkCheck, AnotherLibrarysFileThatDoesNotParseIsNamed) {
  disk.write(kLinks, linksFile(resetLink("X1")));
  disk.write("server/Docs/Archive/Quor_LinkID.xml", "<LINKS>\n");
  const Outcome outcome = inPlant({"links", "check"});
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.err.rfind("critical: DISK/server/Docs/Archive/Quor_LinkID.xml:", 0), 0U)
      << outcome.err;
}

TEST_F(LinkCheck, AListOfLibrariesThatDoesNotParseIsNamed) {
  disk.write("server/Docs/Quor_Selection.xml", "<Quor_Selection_List>");
  const Outcome outcome = inPlant({"links", "check"});
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.err.rfind("critical: DISK/server/Docs/Quor_Selection.xml:", 0), 0U)
      << outcome.err;
}

TEST_F(LinkCheck, ALibraryThatLeadsElsewhereIsNotLookedAt) {
  disk.write("server/Docs/Quor_Selection.xml",
             "<Quor_Selection_List><Quors><Quor><Quor_Name>..\\..\\in</Quor_Name></Quor></Quors>"
             "</Quor_Selection_List>");
  disk.write("in/Quor_LinkID.xml", linksFile(resetLink("X1")));
  disk.write(kLinks, linksFile(resetLink("X1")));
  EXPECT_EQ(inPlant({"links", "check"}).status, 0);
}

class LinkMerge : public LinksCommand {
 protected:
  void SetUp() override {
    LinksCommand::SetUp();
    disk.write("other.xml", linksFile(resetLink("X1") + resetLink("A&amp;amp;B")));
  }
  static Words merge(const Words& more = {}) {
    return joined({"links", "merge", "--from", "other.xml"}, more);
  }
};

TEST_F(LinkMerge, TakesOverWhatTheLibraryLacks) {
  disk.write(kLinks, linksFile(link("X1", "kept", "kept", "ALM")));
  const Outcome outcome = inPlant(merge());
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Took 1 identifier over into Plant.\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(text(kLinks), linksFile(link("X1", "kept", "kept", "ALM") + resetLink("A&amp;amp;B")));
}

TEST_F(LinkMerge, MakesTheFileWhereThereIsNone) {
  EXPECT_EQ(inPlant(merge()).out, "Took 2 identifiers over into Plant.\n");
  EXPECT_EQ(text(kLinks),
            "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n"
            "<!--Inter Book Linking data file-->\n"
            "<LINKS>\n\t<IBD>\n" +
                resetLink("X1") + resetLink("A&amp;amp;B") + "\t</IBD>\n</LINKS>\n");
}

TEST_F(LinkMerge, AsAnObject) {
  EXPECT_EQ(inPlant(merge({"--json"})).out,
            changeObject("Took 2 identifiers over into Plant.", kLinks));
}

TEST_F(LinkMerge, AFileThatIsNotThereIsMissingInput) {
  std::filesystem::remove(disk.path() / "other.xml");
  expectRefusal(merge(),
                3,
                "critical: DISK/other.xml: File not found\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(LinkMerge, AFileWithAnotherRootIsNone) {
  disk.write("other.xml", "<IBD/>");
  expectRefusal(merge(),
                4,
                "critical: DISK/other.xml: the element LINKS is missing\n"
                "quorbind: Plant: nothing was changed\n");
}

}  // namespace
}  // namespace quorbind::testing
