// The search keywords and the link identifiers of a library, as hosts record them.

#include "tests/operations/operations_test.h"
#include "tests/support/keyword_text.h"
#include "tests/unit/sidefiles/link_text.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kKeywords = "C:\\Quor_SearchKeywords.xml";
constexpr const char* kKeywordsFile = "Quor_SearchKeywords.xml";
constexpr const char* kLinks = "C:\\Quor_LinkID.xml";
constexpr const char* kLinksFile = "Quor_LinkID.xml";
/// The header of a keywords file as it is made.
constexpr std::string_view kHeader =
    "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n"
    "<!-- Quorbind Documentation Tools, Library Tools Group-->\n"
    "<!-- Quor Documentation Library, Authoring Tools-->\n"
    "<!-- Library Tools Group, Quor Data File -->\n"
    " <!--DATE-->\n"
    "<!-- Version 0.1-->\n"
    " <!-- Information 'quorbind@example.com' -->\n";
/// The same as a save lays it out.
constexpr std::string_view kSavedHeader =
    "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n"
    "<!-- Quorbind Documentation Tools, Library Tools Group-->\n"
    "<!-- Quor Documentation Library, Authoring Tools-->\n"
    "<!-- Library Tools Group, Quor Data File -->\n"
    "<!--DATE-->\n"
    "<!-- Version 0.1-->\n"
    "<!-- Information 'quorbind@example.com' -->\n";

class KeywordOperations : public OperationsTest {
 protected:
  void writeKeywords(std::initializer_list<std::string_view> words) const {
    write(kKeywordsFile, keywordsWith(keywordsOf("Alarms", words)));
  }
  void expectKeywords(std::initializer_list<std::string_view> words) const {
    EXPECT_EQ(bytes(kKeywordsFile), saved(keywordsWith(keywordsOf("Alarms", words))));
  }
  /// The process has this book from now on.
  void nameCurrentBook() {
    host().willEnter("Alarms", "ALM");
    call("mbGetFormInput", {"", 4});
    shown();
  }
};

TEST_P(KeywordOperations, MakeAFileWithoutKeywords) {
  EXPECT_EQ(call("CreateKeywordXmlFile", {kKeywords}), "nothing");
  EXPECT_EQ(bytes(kKeywordsFile), utf16File(saved(std::string(kHeader) + "<Books/>")));
  EXPECT_THAT(shown(), IsEmpty());
}

TEST_P(KeywordOperations, ReportAFileThatCanNotBeMade) {
  expectRefused("CreateKeywordXmlFile",
                {"C:\\no\\keywords.xml"},
                "nothing",
                "critical: Error(76):Path not found\nQuorbind-Quor_Book::CreateKeywordXmlFile");
}

TEST_P(KeywordOperations, AddAKeywordToABookOnceAndMakeTheFileForTheFirst) {
  for (const std::string word : {"net", "Grüße", "net"}) {
    EXPECT_EQ(call("AddKeywordsToXmlFile", {kKeywords, "Alarms", word}), "nothing");
  }
  EXPECT_EQ(call("AddKeywordsToXmlFile", {kKeywords, "Trends", "a & b"}), "nothing");
  EXPECT_EQ(bytes(kKeywordsFile),
            utf16File(saved(std::string(kSavedHeader) +
                            keywordsWith(keywordsOf("Alarms", {"net", "Grüße"}) +
                                         keywordsOf("Trends", {"a &amp; b"})))));
  EXPECT_THAT(shown(), IsEmpty());
}

TEST_P(KeywordOperations, TellThatAFileThatDoesNotLoadDoesNotExist) {
  write(kKeywordsFile, "<Books>");
  expectRefused("AddKeywordsToXmlFile",
                {kKeywords, "Alarms", "net"},
                "nothing",
                "information: File does not exist");
  expectRefused("EditKeywordsToXmlFile",
                {kKeywords, "Alarms", "net", "old"},
                "nothing",
                "information: File does not exist");
}

TEST_P(KeywordOperations, RenameAKeywordWhereverTheBookHasIt) {
  writeKeywords({"net", "grid", "net"});
  EXPECT_EQ(call("EditKeywordsToXmlFile", {kKeywords, "Alarms", "mesh", "net"}), "nothing");
  expectKeywords({"mesh", "grid", "mesh"});
  EXPECT_THAT(shown(), IsEmpty());
}

TEST_P(KeywordOperations, ReportABookWithAnApostropheUnderTheNameOfAddingAKeyword) {
  const std::string box =
      "critical: Error(-2147467259):The value O'Neil can't stand in a query between the quote "
      "characters it contains.\nQuorbind-Quor_Book::AddKeywordsToXmlFile";
  writeKeywords({"net"});
  expectRefused("AddKeywordsToXmlFile", {kKeywords, "O'Neil", "net"}, "nothing", box);
  expectRefused("EditKeywordsToXmlFile", {kKeywords, "O'Neil", "mesh", "net"}, "nothing", box);
}

TEST_P(KeywordOperations, AddAListToTheCurrentBook) {
  nameCurrentBook();
  writeKeywords({"net"});
  EXPECT_EQ(call("AddKeywords", {array({" grid ", "a>b"}), kKeywords}), "nothing");
  EXPECT_EQ(call("AddKeywords", {array({"alone"}, 1), kKeywords}), "nothing");
  EXPECT_EQ(call("AddKeywords", {array({"too", "few"}, -1), kKeywords}), "nothing");
  expectKeywords({"net", "grid", "a&amp;gt;b", "alone"});
  EXPECT_THAT(shown(), IsEmpty());
}

TEST_P(KeywordOperations, ReportAListThatWasNeverSet) {
  nameCurrentBook();
  writeKeywords({"net"});
  expectRefused(
      "AddKeywords",
      {TextArray::unset(), kKeywords},
      "nothing",
      "message: Error 9 (Subscript out of range) in procedure AddKeywords of User Control "
      "ctlBooksTab");
}

TEST_P(KeywordOperations, EndAListAtAKeywordWithHashesOrABlankAndPassOverOneWithMarkup) {
  nameCurrentBook();
  writeKeywords({});
  EXPECT_EQ(call("AddKeywords", {array({"a", "b##", "c"}), kKeywords}), "nothing");
  EXPECT_EQ(call("AddKeywords", {array({"d", "x y", "e"}), kKeywords}), "nothing");
  EXPECT_EQ(call("AddKeywords", {array({"f", "&gt;", "g"}), kKeywords}), "nothing");
  EXPECT_THAT(
      shown(),
      ElementsAre("message: Search keyword should not contain '##' in it.",
                  "message: Search keyword should not have any spaces in between the characters",
                  "information: &gt;Cannot be used in Keywords"));
  expectKeywords({"a", "d", "f", "g"});
}

TEST_P(KeywordOperations, CheckATextForTheTextsOfMarkupCharacters) {
  EXPECT_EQ(call("CheckXMLCharacters", {"a & <b> 'c'", "BookName"}), "True");
  EXPECT_THAT(shown(), IsEmpty());
  expectRefused("CheckXMLCharacters",
                {"a &quote; &lt;", "BookName"},
                "False",
                "information: &lt;Cannot be used in BookName");
}

class LinkOperations : public OperationsTest {
 protected:
  static Arguments naming(const std::string& identifier) {
    return {kLinks, identifier, "ALM@QUOR@Alarms", "Manual\\a.htm#1", "Plant", "ALM"};
  }
  static std::string linkCalled(std::string_view identifier) {
    return link(identifier, "ALM@QUOR@Alarms", "Plant\\Manual\\a.htm#1", "ALM");
  }
};

TEST_P(LinkOperations, RecordIdentifiersAndMakeTheFileForTheFirst) {
  EXPECT_EQ(call("AddToLinkIDFile", naming("X1")), "nothing");
  EXPECT_EQ(call("AddToLinkIDFile", naming("ä & <b>")), "nothing");
  EXPECT_EQ(
      bytes(kLinksFile),
      utf16File(saved("<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n"
                      "<!--Inter Book Linking data file-->\n" +
                      linksWith(linkCalled("X1") + linkCalled("ä &amp;amp; &amp;lt;b&amp;gt;")))));
  EXPECT_THAT(shown(), IsEmpty());
}

TEST_P(LinkOperations, TellOfAnIdentifierThatIsTaken) {
  write(kLinksFile, linksWith(linkCalled("X1")));
  expectRefused(
      "AddToLinkIDFile", naming("X1"), "nothing", "critical: X1 - Link ID already exist. ");
}

TEST_P(LinkOperations, ReportAnEntryOfFourFieldsWithoutAFullLink) {
  write(kLinksFile, linksWith(link("X1", "", "Plant\\a.htm", "ALM")));
  expectRefused("AddToLinkIDFile",
                naming("X1"),
                "nothing",
                std::string("critical: Error(91):") + kObjectNotSet +
                    "\nQuorbind-Quor_Book::AddToLinkIDFile");
}

QUOR_IN_EVERY_WAY(KeywordOperations);
QUOR_IN_EVERY_WAY(LinkOperations);

}  // namespace
}  // namespace quorbind::testing
