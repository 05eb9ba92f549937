#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/read_only_files.h"
#include "tests/support/world.h"
#include "toc/toc_check.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr std::string_view kExportHead =
    "\"Node Level\" \"Node Name\" \"File Name\" \"Sub Link\" \"FLinkValue\" "
    "\"BookLinkValue\"\r\n\r\n";

/// A heading that links to a document.
std::string heading(const std::string& level,
                    const std::string& title = "Title",
                    const std::string& path = "a.htm") {
  return "<K" + level + "><A HREF=\"" + path + "\">" + title + "</A></K" + level + ">\r\n";
}

/// An entry of the export without link values.
std::string entry(const std::string& level,
                  const std::string& title = "Title",
                  const std::string& file = "a.htm",
                  const std::string& subLink = "") {
  return "$@@$" + level + "$@@$ $@@$" + title + "$@@$ $@@$" + file + "$@@$ $@@$" + subLink +
         "$@@$ $@@$#NoLink#$@@$ $@@$#NO_BOOKLINK#$@@$\r\n";
}

class HtmlToc : public ::testing::Test {
 protected:
  HtmlToc() {
    world_.disk.makeFolder("in");
    world_.state().currentProductName = "Prod";
  }

  bool validate(std::string_view page) {
    world_.disk.write("in/toc.htm", page);
    return check_.mbValidateHTMLToc("C:\\in\\toc.htm", export_);
  }
  /// Expects the box of a rule that `block` breaks, with the block on the clipboard.
  void expectRefusal(const std::string& page, const std::string& block, const std::string& error) {
    EXPECT_FALSE(validate(page));
    EXPECT_THAT(record(),
                ElementsAre("critical: Line: " + block + "\r" + error, "clipboard: " + block));
  }
  void expectRefusal(const std::string& block, const std::string& error) {
    expectRefusal(block, block, error);
  }
  /// The export behind its head.
  [[nodiscard]] std::string entries() const {
    EXPECT_EQ(export_.substr(0, kExportHead.size()), kExportHead);
    return export_.substr(kExportHead.size());
  }
  [[nodiscard]] const std::vector<std::string>& record() const { return world_.user.record(); }

  World world_;
  TocCheck check_{world_.module};
  std::string export_;
};

TEST_F(HtmlToc, IsExportedHeadingByHeading) {
  EXPECT_TRUE(
      validate("<html><body>\r\n"
               "<K1><A HREF=\"Manual/pumps.htm#top\" FLINKVALUE=\"Pumps 1\">Pumps</A></K1>\r\n"
               "<p>Not a heading.</p>\r\n"
               "<K2><A HREF=\"Manual\\start.htm\">Start <B>and</B> stop</A>"
               "<IBD><Start></IBD></K2>\r\n"
               "</body></html>\r\n"));
  EXPECT_EQ(export_,
            "\"Node Level\" \"Node Name\" \"File Name\" \"Sub Link\" \"FLinkValue\" "
            "\"BookLinkValue\"\r\n"
            "\r\n"
            "$@@$2$@@$ $@@$Pumps$@@$ $@@$Manual/pumps.htm$@@$ $@@$#top$@@$ $@@$Pumps 1$@@$ "
            "$@@$#NO_BOOKLINK#$@@$\r\n"
            "$@@$3$@@$ $@@$Start  and  stop$@@$ $@@$Manual\\start.htm$@@$ $@@$$@@$ "
            "$@@$#NoLink#$@@$ $@@$Start@@@Manual\\start.htm$@@$\r\n");
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(HtmlToc, GivesAHeadingOfLevelOneTheNodeLevelTwo) {
  EXPECT_TRUE(validate(heading("1")));
  EXPECT_EQ(entries(), entry("2"));
  EXPECT_EQ(check_.mintPrevLevel(), 1);
}

TEST_F(HtmlToc, ExportsAHeadingWithoutLinkValuesAsOneWithoutLinks) {
  EXPECT_TRUE(validate(heading("1")));
  EXPECT_EQ(entries(),
            "$@@$2$@@$ $@@$Title$@@$ $@@$a.htm$@@$ $@@$$@@$ $@@$#NoLink#$@@$ "
            "$@@$#NO_BOOKLINK#$@@$\r\n");
}

TEST_F(HtmlToc, FindsItsMarksInAnyLetterCaseAndKeepsThatOfTheValues) {
  EXPECT_TRUE(
      validate("<k1><a href=\"A.htm\" FLinkValue=\"aB\">Ti<B>tle</b></a><ibd>#x#</Ibd></K1>"));
  EXPECT_EQ(entries(),
            "$@@$2$@@$ $@@$Ti tle   #x#$@@$ $@@$A.htm$@@$ $@@$$@@$ $@@$aB$@@$ "
            "$@@$x@@@A.htm$@@$\r\n");
}

TEST_F(HtmlToc, TakesValuesThatAreEmpty) {
  EXPECT_TRUE(validate("<K1><A HREF=\"a.htm\" FLINKVALUE=\"\">Title</A></K1>"));
  EXPECT_EQ(entries(),
            "$@@$2$@@$ $@@$Title$@@$ $@@$a.htm$@@$ $@@$$@@$ $@@$$@@$ $@@$#NO_BOOKLINK#$@@$\r\n");
}

TEST_F(HtmlToc, HasNoFLinkValueWhoseQuoteIsNotClosed) {
  EXPECT_TRUE(validate("<K1><A HREF=\"a.htm\" FLINKVALUE=\"x>Title</A></K1>"));
  EXPECT_EQ(entries(), entry("2"));
}

TEST_F(HtmlToc, KeepsALineBreakInATitleWithWhichItBreaksItsOwnLine) {
  EXPECT_TRUE(validate("<K1><A HREF=\"a.htm\">Two\r\nlines</A></K1>"));
  EXPECT_EQ(entries(), entry("2", "Two\r\nlines"));
}

TEST_F(HtmlToc, KeepsTheDocumentOfTheHeadingBeforeWhereTheLinkIsEmpty) {
  EXPECT_TRUE(validate(heading("1", "One", "a.htm#x") + heading("1", "Two", "")));
  EXPECT_EQ(entries(), entry("2", "One", "a.htm", "#x") + entry("2", "Two", "a.htm", "#x"));
}

// Levels

TEST_F(HtmlToc, WithoutAnyHeadingIsRefused) {
  EXPECT_FALSE(validate("<html><body>Nothing</body></html>"));
  EXPECT_THAT(record(), ElementsAre("critical: Error:Book Should Have at least one Heading"));
}

TEST_F(HtmlToc, OfNoCharactersIsRefused) {
  EXPECT_FALSE(validate(""));
  EXPECT_THAT(record(), ElementsAre("critical: Error:Book Should Have at least one Heading"));
}

TEST_F(HtmlToc, MayGoOneLevelDeeperAndComeBackByAny) {
  EXPECT_TRUE(validate(heading("1", "A") + heading("2", "B") + heading("3", "C") +
                       heading("1", "D") + heading("2", "E")));
  EXPECT_EQ(
      entries(),
      entry("2", "A") + entry("3", "B") + entry("4", "C") + entry("2", "D") + entry("3", "E"));
}

TEST_F(HtmlToc, RefusesALevelThreeDirectlyAfterALevelOne) {
  const std::string block = "<K3><A HREF=\"b.htm\">B</A></K3>";
  expectRefusal(heading("1") + block, block, "Error:Heading Tag does not follow sequence ");
  EXPECT_EQ(check_.mintPrevLevel(), 1);
}

TEST_F(HtmlToc, MustBeginWithLevelOne) {
  expectRefusal("<K2><A HREF=\"a.htm\">A</A></K2>", "Error:Heading Tag does not follow sequence ");
}

TEST_F(HtmlToc, BeginsWhereTheTableBeforeEnded) {
  EXPECT_TRUE(validate(heading("1")));
  EXPECT_TRUE(validate(heading("2")));
  EXPECT_EQ(entries(), entry("3"));
}

TEST_F(HtmlToc, RefusesAHeadingThatEndsWithAnotherLevel) {
  expectRefusal("<K1><A HREF=\"a.htm\">A</A></K2>", "Error:Start and End Tag does not match ");
}

TEST_F(HtmlToc, RefusesLevelZeroAndBelow) {
  expectRefusal("<K0><A HREF=\"a.htm\">A</A></K0>", "Error:Heading level should be positive ");
  world_.user.forget();
  const std::string block = "<K-1><A HREF=\"a.htm\">A</A></K-1>";
  expectRefusal(heading("1") + block, block, "Error:Heading level should be positive ");
}

TEST_F(HtmlToc, RefusesALevelThatIsAWord) {
  expectRefusal("<Kone><A HREF=\"a.htm\">A</A></K1>", "Error:Not Valid Begining and End Tags");
}

TEST_F(HtmlToc, RefusesOtherTagsThatBeginAlike) {
  expectRefusal("<kbd>F1</kbd>", "<kbd>F1</kbd", "Error:Not Valid Begining and End Tags");
}

TEST_F(HtmlToc, RefusesALevelThatNoSixteenBitsHold) {
  expectRefusal("<K40000><A HREF=\"a.htm\">A</A></K1>", "Error:Not Valid Begining and End Tags");
}

TEST_F(HtmlToc, RefusesAnEndLevelThatIsNoNumberWithoutOfferingTheLine) {
  EXPECT_FALSE(validate("<K1><A HREF=\"a.htm\">A</A></Kx>"));
  EXPECT_THAT(record(), ElementsAre("critical: Error:Not Valid Begining and End Tags"));
}

TEST_F(HtmlToc, RefusesAnEndTagThatIsCutOffAtTheEndOfTheFile) {
  EXPECT_FALSE(validate("<K1><A HREF=\"a.htm\">A</A></K1"));
  EXPECT_THAT(record(), ElementsAre("critical: Error:Not Valid Begining and End Tags"));
}

TEST_F(HtmlToc, RefusesATagWithoutAnyBracket) {
  expectRefusal("<K1 HREF=\"a.htm\" A</K1", "Error:Not Valid Begining and End Tags");
}

TEST_F(HtmlToc, ReadsLevelsAsPeopleWriteNumbers) {
  EXPECT_TRUE(validate("<K 1.0 ><A HREF=\"a.htm\">Title</A></K1>" + heading("+2") +
                       "<K&H3><A HREF=\"a.htm\">Title</A></K 3 >"));
  EXPECT_EQ(entries(), entry("2") + entry("3") + entry("4"));
}

TEST_F(HtmlToc, ReadsLevelsOfSeveralDigitsBehindTheFirstHeading) {
  std::string page;
  std::string expected;
  for (int level = 1; level <= 12; ++level) {
    page += heading(std::to_string(level));
    expected += entry(std::to_string(level + 1));
  }
  EXPECT_TRUE(validate(page));
  EXPECT_EQ(entries(), expected);
}

TEST_F(HtmlToc, TakesTheFirstEndTagToHaveOneDigit) {
  EXPECT_FALSE(validate("<K01><A HREF=\"a.htm\">A</A></K01>"));
  EXPECT_THAT(record(), ElementsAre("critical: Error:Not Valid Begining and End Tags"));
}

// Tags that do not belong together

TEST_F(HtmlToc, RefusesAnEndTagBeforeAnyStartTag) {
  EXPECT_FALSE(validate("text </k1 x> <K1><A HREF=\"a.htm\">A</A></K1>"));
  EXPECT_THAT(
      record(),
      ElementsAre("critical: End Tag </K1 X> Does Not Have a Start Tag", "clipboard: </K1 X>"));
}

TEST_F(HtmlToc, RefusesALeftOverEndTag) {
  EXPECT_FALSE(validate(heading("1") + "</K1>" + heading("1", "B")));
  EXPECT_THAT(record(),
              ElementsAre("critical: End Tag </K1> Does Not Have a Start Tag", "clipboard: </K1>"));
}

TEST_F(HtmlToc, ShowsTheLastFiveCharactersOfALeftOverEndTag) {
  EXPECT_FALSE(validate(heading("1") + "</K10>"));
  EXPECT_THAT(record(),
              ElementsAre("critical: End Tag /K10> Does Not Have a Start Tag", "clipboard: /K10>"));
}

TEST_F(HtmlToc, ShowsAnEndTagThatIsCutOffUpToTheEndOfTheFile) {
  EXPECT_FALSE(validate(heading("1") + "</k1 end"));
  EXPECT_THAT(
      record(),
      ElementsAre("critical: End Tag </K1 END Does Not Have a Start Tag", "clipboard: </K1 END"));
}

TEST_F(HtmlToc, RefusesAStartTagWithoutAnEndTag) {
  EXPECT_FALSE(validate("<k1 \xC3\xA4><A HREF=\"a.htm\">A</A>"));
  EXPECT_THAT(record(),
              ElementsAre("critical: Start Tag <K1 \xC3\x84> Does Not Have a End Tag",
                          "clipboard: <K1 \xC3\x84>"));
}

TEST_F(HtmlToc, ShowsAStartTagThatIsCutOffUpToTheEndOfTheFile) {
  EXPECT_FALSE(validate(heading("1") + "<K1 rest"));
  EXPECT_THAT(
      record(),
      ElementsAre("critical: Start Tag <K1 REST Does Not Have a End Tag", "clipboard: <K1 REST"));
}

// Headings that read alike

TEST_F(HtmlToc, ExportsOneOfTwoHeadingsThatReadAlike) {
  EXPECT_TRUE(validate(heading("1", "A") + heading("2", "B") + heading("1", "A")));
  EXPECT_EQ(entries(), entry("2", "A") + entry("3", "B"));
}

TEST_F(HtmlToc, TakesAHeadingThatReadsLikeAnEarlierOneOutOfALaterOne) {
  EXPECT_TRUE(
      validate("<K1><A HREF=\"a.htm\">A</A></K1>"
               "<K1><A HREF=\"b.htm\">B<K1><A HREF=\"a.htm\">A</A></K1></A></K1>"));
  EXPECT_EQ(entries(), entry("2", "A") + entry("2", "B", "b.htm"));
}

// The replacement that takes the inner heading out has passed when the outer one comes to read
// like it.
TEST_F(HtmlToc, ExportsAHeadingAgainThatReadsLikeAnEarlierOneOnlySinceThatIsGone) {
  EXPECT_TRUE(
      validate("<K1><A HREF=\"a.htm\">A</A> </K1>"
               "<K1><A HREF=\"a.htm\">A</A><K1><A HREF=\"a.htm\">A</A> </K1></K1>"));
  EXPECT_EQ(entries(), entry("2", "A") + entry("2", "A"));
}

TEST_F(HtmlToc, TakesSeveralStartTagsAsOneHeadingWhereOneEndTagFollows) {
  EXPECT_TRUE(validate("<K1><A HREF=\"a.htm\">A</A><K2>B</K1>"));
  EXPECT_EQ(entries(), entry("2", "A  B"));
}

TEST_F(HtmlToc, TellsHeadingsApartThatDifferInLetterCase) {
  EXPECT_TRUE(validate(heading("1", "A") + heading("1", "a")));
  EXPECT_EQ(entries(), entry("2", "A") + entry("2", "a"));
}

// Documents and titles

TEST_F(HtmlToc, RefusesAHeadingWithoutALink) {
  expectRefusal("<K1>Title</K1>", "Error:File Path information is missing");
}

TEST_F(HtmlToc, RefusesALinkWhoseQuotesAreMissing) {
  expectRefusal("<K1><A HREF=a.htm>Title</A></K1>", "Error:File Path information is missing");
  world_.user.forget();
  expectRefusal("<K1><A HREF=\"a.htm>Title</A></K1>", "Error:File Path information is missing");
}

TEST_F(HtmlToc, RefusesAHeadingWithoutATitle) {
  expectRefusal("<K1><A HREF=\"a.htm\">  </A></K1>", "Error:File Title Information is missing");
}

TEST_F(HtmlToc, RefusesATitleWithABracket) {
  expectRefusal("<K1><A HREF=\"a.htm\">a > b</A></K1>", "Error: Invalid HMTL Content");
  world_.user.forget();
  expectRefusal("<K1>a > b <A HREF=\"a.htm\">Title</A></K1>", "Error: Invalid HMTL Content");
}

TEST_F(HtmlToc, LooksForDocumentsInItsOwnFolderAndNotesThoseThatAreMissing) {
  world_.disk.write("in/Manual/a.htm", "");
  EXPECT_TRUE(validate(heading("1", "A", "manual/A.HTM#top") +
                       heading("1", "B", "./Manual\\a.htm") +
                       heading("1", "C", "Manual/b.htm#x#y")));
  EXPECT_THAT(check_.marrsMissingFiles(), ElementsAre("Manual/b.htm#x#y"));
  EXPECT_EQ(check_.mstrCurFile(), "Manual/b.htm");
  EXPECT_EQ(check_.mstrCurBookMark(), "#x");
}

TEST_F(HtmlToc, LooksNowhereButBelowItsOwnFolder) {
  world_.disk.write("a.htm", "");
  world_.disk.write("in/nul.htm", "");
  world_.disk.write("in/sub/x.htm", "");
  EXPECT_TRUE(validate(heading("1", "A", "../a.htm") + heading("1", "B", "\\a.htm") +
                       heading("1", "C", "C:\\a.htm") + heading("1", "D", "nul.htm") +
                       heading("1", "E", "\\\\server\\share\\a.htm") +
                       heading("1", "F", "sub\\..\\..\\in\\sub\\x.htm")));
  EXPECT_THAT(check_.marrsMissingFiles(),
              ElementsAre("../a.htm",
                          "\\a.htm",
                          "C:\\a.htm",
                          "nul.htm",
                          "\\\\server\\share\\a.htm",
                          "sub\\..\\..\\in\\sub\\x.htm"));
  EXPECT_TRUE(validate(heading("1", "G", "sub\\..\\sub\\x.htm")));
  EXPECT_EQ(check_.marrsMissingFiles().size(), 6U) << "it never left the folder";
}

TEST_F(HtmlToc, UnderstandsForwardSlashesInItsOwnPath) {
  world_.disk.write("in/a.htm", "");
  world_.disk.write("in/toc.htm", heading("1"));
  EXPECT_TRUE(check_.mbValidateHTMLToc("C:/in/toc.htm", export_));
  EXPECT_THAT(check_.marrsMissingFiles(), IsEmpty());
}

TEST_F(HtmlToc, ReportsATagForALinkIdentifierThatHoldsNothingAndExportsItEmpty) {
  EXPECT_TRUE(validate("<K1><A HREF=\"a.htm\">Title</A><IBD>x</IBD></K1>"));
  EXPECT_THAT(record(),
              ElementsAre("critical: Error(5): Invalid procedure call or argument\r"
                          "Quorbind: Quor_Book::mstrCheckBookLink"));
  EXPECT_EQ(entries(),
            "$@@$2$@@$ $@@$Title  x$@@$ $@@$a.htm$@@$ $@@$$@@$ $@@$#NoLink#$@@$ $@@$$@@$\r\n");
}

// The title of the book

TEST_F(HtmlToc, GivesTheBookItsNameAndItsMainFile) {
  EXPECT_TRUE(validate("<HT><A HREF=\"Manual/sub/cover.htm#top/x\">Pump <B>Station</B></A></HT>" +
                       heading("1")));
  EXPECT_EQ(world_.state().currentBookName, "Pump  Station");
  EXPECT_EQ(check_.mstrBookFile(), "cover.htm");
  EXPECT_EQ(entries(), entry("2")) << "the title makes no entry";
  EXPECT_EQ(check_.mintPrevLevel(), 1);
  EXPECT_THAT(check_.marrsMissingFiles(), ElementsAre("Manual/sub/cover.htm#top/x", "a.htm"));
}

TEST_F(HtmlToc, CutsTheMainFileAtForwardSlashesOnly) {
  EXPECT_TRUE(validate("<ht><a href=\"Manual\\cover.htm\">Pumps</a></ht>" + heading("1")));
  EXPECT_EQ(check_.mstrBookFile(), "Manual\\cover.htm");
}

TEST_F(HtmlToc, KeepsANameThatTheBookHas) {
  world_.state().currentBookName = "Given";
  EXPECT_TRUE(validate("<HT><A HREF=\"cover.htm\">Pumps</A></HT>" + heading("1")));
  EXPECT_EQ(world_.state().currentBookName, "Given");
  EXPECT_EQ(check_.mstrBookFile(), "cover.htm");
}

TEST_F(HtmlToc, NeedsNoTitleAndPassesOverHalfOfOne) {
  EXPECT_TRUE(validate("<HT>" + heading("1") + "</HY>"));
  EXPECT_TRUE(validate("</HT><HT>" + heading("1", "B")));
  EXPECT_EQ(world_.state().currentBookName, "");
  EXPECT_EQ(check_.mstrBookFile(), "");
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(HtmlToc, RefusesATitleWithoutALink) {
  expectRefusal("<HT>Pumps</HT>" + heading("1"), "Pumps", "Error:File Path information is missing");
  EXPECT_EQ(world_.state().currentBookName, "");
}

TEST_F(HtmlToc, RefusesATitleWithoutAText) {
  expectRefusal("<HT><A HREF=\"c.htm\"></A></HT>" + heading("1"),
                "<A HREF=\"c.htm\"></A>",
                "Error:File Title Information is missing");
}

TEST_F(HtmlToc, RefusesATitleOfTheBookWithABracket) {
  expectRefusal("<HT><A HREF=\"c.htm\">a > b</A></HT>" + heading("1"),
                "<A HREF=\"c.htm\">a > b</A>",
                "Error: Invalid HMTL Content");
  EXPECT_EQ(check_.mstrBookFile(), "");
}

TEST_F(HtmlToc, ChecksTheTitleBeforeTheHeadings) {
  expectRefusal("</K1><HT>Pumps</HT>", "Pumps", "Error:File Path information is missing");
}

TEST_F(HtmlToc, PassesOverAHyperlinkBlock) {
  EXPECT_TRUE(validate("<HT><A HREF=\"c.htm\">Pumps</A></HT><HY>anything</HY>" + heading("1")));
  EXPECT_EQ(world_.state().currentBookName, "Pumps");
  EXPECT_EQ(entries(), entry("2"));
}

/// Link identifiers, with a folder for the product's file of them.
class HtmlTocLinks : public HtmlToc {
 protected:
  HtmlTocLinks() {
    world_.disk.makeFolder("Docs/Prod");
    world_.state().currentBookAcro = "PST";
  }
  [[nodiscard]] std::string linkFile() const {
    return world_.disk.has("Docs/Prod/Quor_LinkID.xml") ? world_.text("Docs/Prod/Quor_LinkID.xml")
                                                        : "";
  }
  static std::string identifier(const std::string& name,
                                const std::string& fullLink,
                                const std::string& source) {
    return "\t\t<ID>\n\t\t\t<LinkID>" + name + "</LinkID>\n\t\t\t<FullLink>" + fullLink +
           "</FullLink>\n\t\t\t<LinkIDSourceFile>" + source +
           "</LinkIDSourceFile>\n\t\t\t<BookAcro>PST</BookAcro>\n\t\t</ID>\n";
  }
  static std::string linkFileWith(const std::string& identifiers) {
    return "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n"
           "<!--Inter Book Linking data file-->\n"
           "<LINKS>\n\t<IBD>\n" +
           identifiers + "\t</IBD>\n</LINKS>\n";
  }
};

TEST_F(HtmlTocLinks, OfTheBookIsRecordedWithItsTitle) {
  EXPECT_TRUE(validate("<IBD>#Home#</IBD><HT><A HREF=\"c.htm\">Pumps</A></HT>" + heading("1")));
  EXPECT_EQ(linkFile(),
            linkFileWith(identifier("Home", "PST@QUOR@Pumps", "Prod\\C:\\in\\toc.htm")));
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(HtmlTocLinks, OfTheBookMayStandInItsTitleBetweenBrackets) {
  EXPECT_TRUE(validate("<HT><A HREF=\"c.htm\">Pumps</A><IBD><Home></IBD></HT>" + heading("1")));
  EXPECT_EQ(world_.state().currentBookName, "Pumps");
  EXPECT_EQ(linkFile(),
            linkFileWith(identifier("Home", "PST@QUOR@Pumps", "Prod\\C:\\in\\toc.htm")));
}

TEST_F(HtmlTocLinks, OfTheBookIsToldWhenItIsTaken) {
  const std::string page = "<HT><A HREF=\"c.htm\">Pumps</A><IBD><Home></IBD></HT>" + heading("1");
  EXPECT_TRUE(validate(page));
  const std::string before = linkFile();
  EXPECT_TRUE(validate(page));
  EXPECT_THAT(record(), ElementsAre("critical: Home - Link ID already exist. "));
  EXPECT_EQ(linkFile(), before);
}

TEST_F(HtmlTocLinks, OfAHeadingIsNotThatOfTheBook) {
  EXPECT_TRUE(
      validate("<HT><A HREF=\"c.htm\">Pumps</A></HT>"
               "<K1><A HREF=\"a.htm\">A</A><IBD>#A1#</IBD></K1>"));
  EXPECT_EQ(linkFile(), "");
}

TEST_F(HtmlTocLinks, OfAPageWithoutATitleIsNotRecorded) {
  EXPECT_TRUE(validate("<IBD>#Home#</IBD>" + heading("1")));
  EXPECT_EQ(linkFile(), "");
}

TEST_F(HtmlTocLinks, OfTheBookThatHoldsNothingEndsTheCheck) {
  EXPECT_FALSE(validate("<HT><A HREF=\"c.htm\">Pumps</A></HT><IBD>x</IBD>" + heading("1")));
  EXPECT_THAT(record(),
              ElementsAre("critical: Error(5): Invalid procedure call or argument\r"
                          "Quorbind: Quor_Book::mcheckHTMLTocBookTitle"));
}

TEST_F(HtmlTocLinks, OfTheBookNeedsAServer) {
  world_.toolset.breakDown();
  EXPECT_FALSE(validate("<HT><A HREF=\"c.htm\">Pumps</A></HT><IBD>#A#</IBD>" + heading("1")));
  EXPECT_THAT(record(),
              ElementsAre("critical: Error(429): ActiveX component can't create object\r"
                          "Quorbind: Quor_Book::mcheckHTMLTocBookTitle"));
}

TEST_F(HtmlTocLinks, OfHeadingsAreRecordedBehindTheExport) {
  world_.disk.write("in/toc.htm",
                    "<K1><A HREF=\"a.htm\">Intro</A></K1>"
                    "<K2><A HREF=\"net/a.htm#n\">Net</A><IBD><N1></IBD></K2>");
  std::string path = "C:\\in\\toc.htm";
  EXPECT_TRUE(check_.mbValidateTocFile(path, TocCheck::kHtml));
  EXPECT_EQ(linkFile(),
            linkFileWith(identifier("N1", "PST@QUOR@Intro@QUOR@Net", "Prod\\net\\a.htm#n")));
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(HtmlTocLinks, OfHeadingsThatAreTakenStopNothing) {
  world_.disk.write("Docs/Prod/Quor_TOC.xml", "<Quor_Master/>");
  world_.disk.write("in/toc.htm",
                    "<K1><A HREF=\"a.htm\">A</A><IBD>#X#</IBD></K1>"
                    "<K1><A HREF=\"b.htm\">B</A><IBD>#X#</IBD></K1>"
                    "<K1><A HREF=\"c.htm\">C</A><IBD>#Y#</IBD></K1>");
  std::string path = "C:\\in\\toc.htm";
  EXPECT_TRUE(check_.mbValidateTocFile(path, TocCheck::kHtml));
  EXPECT_THAT(record(), ElementsAre("critical: X - Link ID already exist. "));
  EXPECT_EQ(linkFile(),
            linkFileWith(identifier("X", "PST@QUOR@A  #X#", "Prod\\a.htm") +
                         identifier("Y", "PST@QUOR@C  #Y#", "Prod\\c.htm")));
}

// The page as a file

TEST_F(HtmlToc, IsReadInEveryEncoding) {
  const std::string title = "Ger\xC3\xA4te \xE2\x82\xAC";
  const std::string page = heading("1", title);
  EXPECT_TRUE(validate(page));
  EXPECT_EQ(entries(), entry("2", title));
  EXPECT_TRUE(validate("\xEF\xBB\xBF" + page));
  EXPECT_EQ(entries(), entry("2", title));
  EXPECT_TRUE(validate(utf16File(page)));
  EXPECT_EQ(entries(), entry("2", title));
  std::string swapped = utf16File(page);
  for (std::size_t i = 0; i + 1 < swapped.size(); i += 2) {
    std::swap(swapped[i], swapped[i + 1]);
  }
  EXPECT_TRUE(validate(swapped));
  EXPECT_EQ(entries(), entry("2", title));
  EXPECT_TRUE(validate(heading("1", "Ger\xE4te \x80")));
  EXPECT_EQ(entries(), entry("2", title));
}

TEST_F(HtmlToc, DoesNotGoByTheCharacterSetThatItNames) {
  EXPECT_TRUE(validate("<meta charset=\"iso-8859-1\">" + heading("1", "Ger\xC3\xA4te")));
  EXPECT_EQ(entries(), entry("2", "Ger\xC3\xA4te"));
}

TEST_F(HtmlToc, MayMixItsLineEnds) {
  EXPECT_TRUE(
      validate("<K1><A HREF=\"a.htm\">A</A></K1>\r\n\n\r<K1><A HREF=\"a.htm\">B</A></K1>\r"
               "<K1><A HREF=\"a.htm\">C</A></K1>\n"));
  EXPECT_EQ(entries(), entry("2", "A") + entry("2", "B") + entry("2", "C"));
}

TEST_F(HtmlToc, OfTenMegabytesInOneLineIsRead) {
  const std::string filler(5'000'000, 'x');
  EXPECT_TRUE(validate(filler + "<K1><A HREF=\"a.htm\">A</A></K1><b>" + filler +
                       "</b><K1><A HREF=\"a.htm\">B</A></K1>"));
  EXPECT_EQ(entries(), entry("2", "A") + entry("2", "B"));
}

TEST_F(HtmlToc, OfTenMegabytesOfStartTagsIsRefusedAtOnce) {
  std::string page;
  while (page.size() < 10'000'000) {
    page += "<K1>";
  }
  EXPECT_FALSE(validate(page));
  EXPECT_THAT(record(),
              ElementsAre("critical: Start Tag <K1> Does Not Have a End Tag", "clipboard: <K1>"));
}

TEST_F(HtmlToc, ThatCanNotBeReadIsReportedAndHasNoHeading) {
  EXPECT_FALSE(check_.mbValidateHTMLToc("C:\\in\\none.htm", export_));
  EXPECT_THAT(record(),
              ElementsAre("critical: Error(53): File not found\r"
                          "Quorbind: Quor_Book::mstrParseFile",
                          "critical: Error:Book Should Have at least one Heading"));
}

TEST_F(HtmlToc, ReportsABoxThatCouldNotBeShown) {
  world_.user.failNextShow();
  EXPECT_FALSE(validate(""));
  world_.user.failNextShow();
  EXPECT_FALSE(validate("<K1><A HREF=\"a.htm\">A</A></Kx>"));
  EXPECT_THAT(record(),
              ElementsAre("critical: Error(7): Out of memory\r"
                          "Quorbind: Quor_Book::mbValidateHTMLToc",
                          "critical: Error(7): Out of memory\r"
                          "Quorbind: Quor_Book::mbCheckForHeadingHTML"));
}

TEST_F(HtmlToc, ReportsATagThatCouldNotBeShownInUpperCase) {
  world_.locale.breakDown();
  EXPECT_FALSE(validate("</K1>"));
  EXPECT_THAT(record(),
              ElementsAre("critical: Error(5): Invalid procedure call or argument\r"
                          "Quorbind: Quor_Book::mbCheckStartEndTagsHTML"));
}

TEST_F(HtmlToc, HasNoNextLevelBehindTheLast) {
  const std::string level = std::to_string(32767);
  std::string exportText;
  for (int each = 1; each < 32767; ++each) {
    ASSERT_TRUE(check_.mbCheckForHeadingHTML("<K" + std::to_string(each) + ">x</K" +
                                             std::to_string(each) + ">"));
  }
  EXPECT_EQ(check_.mbCheckForHeadingHTML("<K" + level + ">x</K" + level + ">"), std::nullopt);
  EXPECT_THAT(record(),
              ElementsAre("critical: Error(6): Overflow\r"
                          "Quorbind: Quor_Book::mbCheckForHeadingHTML"));
}

/// The whole of a page's way, with its export.
class HtmlTocFile : public HtmlToc {
 protected:
  bool validateFile(const std::string& name, const std::string& page) {
    world_.disk.write("in/" + name, page);
    path_ = "C:\\in\\" + name;
    return check_.mbValidateTocFile(path_, TocCheck::kHtml);
  }

  std::string path_;
};

TEST_F(HtmlTocFile, IsExportedBesideThePageAndTakesItsPlace) {
  EXPECT_TRUE(validateFile("toc.htm", heading("1")));
  EXPECT_EQ(path_, "C:\\IN\\TOC_Temp.txt");
  EXPECT_EQ(world_.disk.read("in/TOC_Temp.txt"), utf16File(std::string(kExportHead) + entry("2")));
}

TEST_F(HtmlTocFile, OfTheLongerExtensionKeepsItsLastLetter) {
  EXPECT_TRUE(validateFile("toc.html", heading("1")));
  EXPECT_EQ(path_, "C:\\IN\\TOC_Temp.txtL");
  EXPECT_TRUE(world_.disk.has("in/TOC_Temp.txtL"));
}

TEST_F(HtmlTocFile, ThatBreaksARuleIsNotExported) {
  EXPECT_FALSE(validateFile("toc.htm", heading("1") + "</K1>"));
  EXPECT_EQ(path_, "C:\\in\\toc.htm");
  EXPECT_FALSE(world_.disk.has("in/TOC_Temp.txt"));
}

TEST_F(HtmlTocFile, IsRefusedWhereItsFolderAllowsNoFile) {
  world_.disk.write("in/toc.htm", heading("1"));
  ReadOnlyFiles files(world_.platform().files);
  Module module(Platform{files,
                         world_.platform().xml,
                         world_.platform().ui,
                         world_.platform().toolset,
                         world_.platform().locale,
                         world_.platform().spreadsheets});
  TocCheck check(module);
  std::string path = "C:\\in\\toc.htm";
  EXPECT_FALSE(check.mbValidateTocFile(path, TocCheck::kHtml));
  EXPECT_THAT(record(),
              ElementsAre("information: A temporary text file has to be created under this C:\\IN"
                          "  location,folder in the above does not have a valid permission, please "
                          "go and set the permission"));
}

}  // namespace
}  // namespace quorbind::testing
