#include "sidefiles/link_file.h"

#include "sidefiles/link_check.h"
#include "tests/unit/sidefiles/link_text.h"
#include "tests/unit/sidefiles/side_file_test.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class RecordLink : public SideFileTest {
 protected:
  void writeFile(std::string_view text) { world_.disk.write("links.xml", text); }
  [[nodiscard]] std::string file() const { return textOf("links.xml"); }
  void add(const std::string& identifier,
           const std::string& fullLink = "BK@QUOR@Intro",
           const std::string& source = "net\\a.htm") {
    AddToLinkIDFile(platform(), "C:\\links.xml", identifier, fullLink, source, "Prod", "BK");
  }

  static constexpr const char* kReported =
      "critical: Error(91):Object variable or With block variable not set\r"
      "Quorbind-Quor_Book::AddToLinkIDFile";
};

TEST_F(RecordLink, MakesAMissingFileWithItsListAndOneIdentifier) {
  add("X1");
  EXPECT_EQ(world_.disk.read("links.xml"),
            utf16File("<?xml version=\"1.0\" encoding=\"UTF-16\"?>\r\n"
                      "<!--Inter Book Linking data file-->\r\n"
                      "<LINKS>\r\n"
                      "\t<IBD>\r\n"
                      "\t\t<ID>\r\n"
                      "\t\t\t<LinkID>X1</LinkID>\r\n"
                      "\t\t\t<FullLink>BK@QUOR@Intro</FullLink>\r\n"
                      "\t\t\t<LinkIDSourceFile>Prod\\net\\a.htm</LinkIDSourceFile>\r\n"
                      "\t\t\t<BookAcro>BK</BookAcro>\r\n"
                      "\t\t</ID>\r\n"
                      "\t</IBD>\r\n"
                      "</LINKS>\r\n"));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(RecordLink, AppendsBehindTheOthers) {
  writeFile(linksWith(link("X1", "BK@QUOR@Intro", "Prod\\a.htm", "BK")));
  add("x1");
  EXPECT_EQ(file(),
            linksWith(link("X1", "BK@QUOR@Intro", "Prod\\a.htm", "BK") +
                      link("x1", "BK@QUOR@Intro", "Prod\\net\\a.htm", "BK")));
}

TEST_F(RecordLink, TellsOfAnIdentifierThatLeadsSomewhereAndLeavesTheFileAsItWas) {
  add("X1");
  const auto before = world_.disk.contents();
  add("X1", "OTHER");
  EXPECT_EQ(world_.disk.contents(), before);
  EXPECT_THAT(boxes(), ElementsAre("critical: X1 - Link ID already exist. "));
  EXPECT_EQ(world_.user.messages()[0].title, std::nullopt);
  EXPECT_EQ(world_.user.messages()[0].errorNumber, 0);
}

// The lookup is by the text as given, the file holds the replaced one.
TEST_F(RecordLink, StoresMarkupCharactersReplacedAndSoDoesNotFindThemAgain) {
  writeFile(linksWith(""));
  add("a&b");
  add("a&b");
  const std::string entry = link("a&amp;amp;b", "BK@QUOR@Intro", "Prod\\net\\a.htm", "BK");
  EXPECT_EQ(file(), linksWith(entry + entry));
  add("a&amp;b");
  EXPECT_THAT(boxes(), ElementsAre("critical: a&amp;b - Link ID already exist. "));
}

TEST_F(RecordLink, FailsToFillInAnEntryOfFourFieldsWhoseFullLinkIsEmpty) {
  const std::string asItStands = linksWith(link("X1", "  ", "Prod\\a.htm", "BK"));
  writeFile(asItStands);
  add("X1");
  EXPECT_EQ(file(), asItStands);
  EXPECT_THAT(boxes(), ElementsAre(kReported));
}

TEST_F(RecordLink, FillsInAnEntryThatHasAFifthField) {
  writeFile(
      "<LINKS><IBD><ID><LinkID>X1</LinkID><FullLink/><LinkIDSourceFile/><BookAcro/>"
      "<More/></ID></IBD></LINKS>");
  add("X1");
  EXPECT_EQ(file(),
            linksWith("\t\t<ID>\n"
                      "\t\t\t<LinkID>X1</LinkID>\n"
                      "\t\t\t<FullLink>BK@QUOR@Intro</FullLink>\n"
                      "\t\t\t<LinkIDSourceFile>Prod\\net\\a.htm</LinkIDSourceFile>\n"
                      "\t\t\t<BookAcro/>\n"
                      "\t\t\t<More>BK</More>\n"
                      "\t\t</ID>\n"));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(RecordLink, ReportsAnEntryWithoutItsOtherFields) {
  const std::string asItStands = "<LINKS><IBD><ID><LinkID>X1</LinkID></ID></IBD></LINKS>";
  writeFile(asItStands);
  add("X1");
  EXPECT_EQ(file(), asItStands);
  EXPECT_THAT(boxes(), ElementsAre(kReported));
}

TEST_F(RecordLink, MakesTheListThatARunHasNotComeToWhichEndedWhileItMadeTheFile) {
  writeFile("<LINKS/>");
  add("X1");
  EXPECT_EQ(file(), linksWith(link("X1", "BK@QUOR@Intro", "Prod\\net\\a.htm", "BK")));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(RecordLink, ReportsAFileThatIsDamagedOrOfAnotherKind) {
  for (const char* text : {"", "<LINKS>", "<Books/>", "<Books><IBD/></Books>"}) {
    writeFile(text);
    world_.user.forget();
    add("X1");
    EXPECT_EQ(file(), text);
    EXPECT_THAT(boxes(), ElementsAre(kReported)) << text;
  }
}

TEST_F(RecordLink, ReportsAnApostropheInTheIdentifierAndNotElsewhere) {
  writeFile(linksWith(""));
  add("O'Neil");
  EXPECT_EQ(file(), linksWith(""));
  EXPECT_THAT(boxes(),
              ElementsAre("critical: Error(-2147467259):The value O'Neil can't stand in a query "
                          "between the quote characters it contains.\r"
                          "Quorbind-Quor_Book::AddToLinkIDFile"));
  world_.user.forget();
  add("X1", "O'Neil@QUOR@\"a\" & <b>", "it's.htm");
  EXPECT_EQ(file(),
            linksWith(link("X1", "O'Neil@QUOR@\"a\" &amp; &lt;b&gt;", "Prod\\it's.htm", "BK")));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(RecordLink, ReportsAFolderThatIsNotThere) {
  AddToLinkIDFile(platform(), "C:\\no\\links.xml", "X1", "F", "s", "Prod", "BK");
  EXPECT_THAT(world_.disk.contents(), IsEmpty());
  EXPECT_THAT(
      boxes(),
      ElementsAre("critical: Error(76):Path not found\rQuorbind-Quor_Book::AddToLinkIDFile"));
}

class TakenLink : public SideFileTest {
 protected:
  TakenLink() {
    world_.disk.write("Docs/Quor_Selection.xml",
                      "<Quor_Selection_List><Quors>"
                      "<Quor><Quor_Name>Two</Quor_Name></Quor><Quor><Quor_Name/></Quor>"
                      "<Quor><Quor_Name>One</Quor_Name></Quor>"
                      "<Quor><Quor_Name>None</Quor_Name></Quor></Quors></Quor_Selection_List>");
    world_.disk.write("Docs/One/Quor_LinkID.xml", linksWith(link("X1", "F", "s", "A")));
    world_.disk.write("Docs/Two/Quor_LinkID.xml", linksWith(link(" X2 ", "F", "s", "A")));
  }
  bool check(const std::string& identifier) { return CheckDuplicateLinkID(platform(), identifier); }
};

TEST_F(TakenLink, IsOneThatAnyProductHasBlanksLeftOut) {
  EXPECT_TRUE(check("X1"));
  EXPECT_TRUE(check(" X2"));
  EXPECT_THAT(boxes(),
              ElementsAre("critical: X1 - Link ID already exist. ",
                          "critical:  X2 - Link ID already exist. "));
  EXPECT_EQ(world_.user.messages()[0].title, std::nullopt);
}

TEST_F(TakenLink, IsNotLookedForWhereAProductsNameLeadsOutOfTheServersFolder) {
  world_.disk.write("Docs/Quor_Selection.xml",
                    "<Quor_Selection_List><Quors><Quor><Quor_Name>..\\Other</Quor_Name></Quor>"
                    "</Quors></Quor_Selection_List>");
  world_.disk.write("Other/Quor_LinkID.xml", linksWith(link("X1", "F", "s", "A")));
  EXPECT_FALSE(check("X1"));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(TakenLink, IsExactInLetterCase) {
  EXPECT_FALSE(check("x1"));
  EXPECT_FALSE(check("X"));
  EXPECT_FALSE(check("O'Neil"));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(TakenLink, IsNotOneOfAFolderThatTheServerDoesNotList) {
  world_.disk.write("Docs/Hidden/Quor_LinkID.xml", linksWith(link("X3", "F", "s", "A")));
  world_.disk.write("Docs/Quor_LinkID.xml", linksWith(link("X4", "F", "s", "A")));
  EXPECT_FALSE(check("X3"));
  EXPECT_FALSE(check("X4")) << "a product without a name is passed over";
}

TEST_F(TakenLink, IsNotOneOfAFileThatDoesNotLoad) {
  world_.disk.write("Docs/Two/Quor_LinkID.xml", "<LINKS>");
  EXPECT_FALSE(check("X2"));
  EXPECT_TRUE(check("X1"));
}

TEST_F(TakenLink, IsNotKnownWithoutTheListOfProductsAndThatIsReported) {
  world_.toolset.breakProductServices();
  EXPECT_FALSE(check("X1"));
  EXPECT_THAT(boxes(),
              ElementsAre("critical: Error(429): ActiveX component can't create object\r"
                          "Quorbind: Quor_Book::CheckDuplicateLinkID"));
}

}  // namespace
}  // namespace quorbind::testing
