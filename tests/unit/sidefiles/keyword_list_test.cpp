#include "sidefiles/keyword_list.h"

#include <filesystem>
#include <functional>

#include "platform/toolset.h"
#include "sidefiles/keyword_rules.h"
#include "tests/support/watched_xml.h"
#include "tests/unit/sidefiles/side_file_test.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kPath = "C:\\kw.xml";

/// A user who looks at the disk while a box is on screen.
class LookingUser final : public UserInterface {
 public:
  explicit LookingUser(std::function<void()> look) : look_(std::move(look)) {}

  void show(const UserMessage& /*message*/) override { look_(); }
  void showModal(ModalForm& /*form*/) override {}
  void showProgress(const ProgressView& /*view*/) override {}
  void hideProgress() override {}
  void unloadProgress() override {}
  void putOnClipboard(std::string_view /*text*/) override {}

 private:
  std::function<void()> look_;
};

class KeywordRules : public SideFileTest {};

TEST_F(KeywordRules, RefuseHashesAnywhereAndEndTheList) {
  for (const char* word : {"##", "a##b", " ## ", "a ##"}) {
    const auto fault = findKeywordFault(word);
    ASSERT_TRUE(fault) << word;
    EXPECT_EQ(fault->box.text, "Search keyword should not contain '##' in it.");
    EXPECT_EQ(fault->box.icon, MessageIcon::kNone);
    EXPECT_EQ(fault->box.title, std::nullopt);
    EXPECT_TRUE(fault->endsList);
  }
}

TEST_F(KeywordRules, RefuseABlankInsideAndEndTheList) {
  for (const char* word : {"a b", " a b ", "a  b"}) {
    const auto fault = findKeywordFault(word);
    ASSERT_TRUE(fault) << word;
    EXPECT_EQ(fault->box.text,
              "Search keyword should not have any spaces in between the characters");
    EXPECT_EQ(fault->box.icon, MessageIcon::kNone);
    EXPECT_TRUE(fault->endsList);
  }
}

TEST_F(KeywordRules, RefuseTheTextsOfMarkupCharactersTheFirstOfThemInTheirOrder) {
  for (const auto& [word, entity] : {std::pair{"a&amp;b", "&amp;"},
                                     {"&lt;", "&lt;"},
                                     {"x&gt;", "&gt;"},
                                     {"&quote;", "&quote;"},
                                     {"&gt;&amp;", "&amp;"}}) {
    const auto fault = findKeywordFault(word);
    ASSERT_TRUE(fault) << word;
    EXPECT_EQ(fault->box.text, std::string(entity) + "Cannot be used in Keywords");
    EXPECT_EQ(fault->box.icon, MessageIcon::kInformation);
    EXPECT_FALSE(fault->endsList);
  }
}

TEST_F(KeywordRules, AcceptBareMarkupCharactersAndEverythingElse) {
  for (const char* word :
       {"", " ", "net", " net ", "a>b", "&", "<>\"'", "#", "&quot;", "&AMP;", "目录", "a\tb"}) {
    EXPECT_FALSE(findKeywordFault(word)) << word;
  }
}

TEST_F(KeywordRules, StoreAKeywordWithoutBlanksAtItsEndsAndWithMarkupReplaced) {
  const auto rules = platform().toolset.createXmlTextRules();
  EXPECT_EQ(storedKeyword(*rules, "  a>b&c "), "a&gt;b&amp;c");
  EXPECT_EQ(storedKeyword(*rules, "  "), "");
}

TEST_F(KeywordRules, CheckAnyFieldForTheSameTexts) {
  EXPECT_TRUE(CheckXMLCharacters(platform(), "a > b ## c", "Keywords"));
  EXPECT_THAT(boxes(), IsEmpty());
  EXPECT_FALSE(CheckXMLCharacters(platform(), "a &lt; &amp;", "BookName"));
  EXPECT_FALSE(CheckXMLCharacters(platform(), "&lt;", "Keywords"));
  EXPECT_THAT(boxes(),
              ElementsAre("information: &amp;Cannot be used in BookName",
                          "information: &lt;Cannot be used in Keywords"));
  EXPECT_EQ(world_.user.messages()[0].title, std::nullopt);
}

TEST_F(KeywordRules, ReportABoxThatCanNotBeShownAndRefuse) {
  world_.user.failNextShow();
  EXPECT_FALSE(CheckXMLCharacters(platform(), "&lt;", "Keywords"));
  EXPECT_THAT(boxes(),
              ElementsAre("critical: Error(7):Out of memory\r"
                          "Quor_Developer-ctlBooksTab::CheckXMLCharacters"));
}

class KeywordList : public SideFileTest {
 protected:
  KeywordList() {
    state().currentBookName = "Alarms";
    world_.disk.write("kw.xml", "<Books/>");
  }

  void add(const TextArray& words) { AddKeywords(platform(), state(), words, kPath); }
  /// The keywords in the file, each behind the name of its book.
  std::vector<std::string> keywords() {
    std::vector<std::string> result;
    const auto document = platform().xml.createDocument();
    document->load(kPath);
    for (const XmlNode& book : document->selectAll("Books/Book")) {
      for (const XmlNode& keyword : book.selectAll("Keywords/Keyword")) {
        result.push_back(book.attribute("Book_Name").text() + ": " + keyword.text());
      }
    }
    return result;
  }

  static constexpr const char* kHashes = "message: Search keyword should not contain '##' in it.";
  static constexpr const char* kBlanks =
      "message: Search keyword should not have any spaces in between the characters";
};

TEST_F(KeywordList, ReportsAnArrayThatWasNeverSetAndAddsNothing) {
  add({});
  EXPECT_THAT(boxes(), IsEmpty()) << "an array without elements is one";
  add(TextArray::unset());
  EXPECT_EQ(textOf("kw.xml"), "<Books/>");
  EXPECT_THAT(boxes(),
              ElementsAre("message: Error 9 (Subscript out of range) in procedure AddKeywords of "
                          "User Control ctlBooksTab"));
}

TEST_F(KeywordList, AddsAllElementsOfTheArrayToTheCurrentBook) {
  add({{"a", " b ", "c>d"}});
  EXPECT_THAT(keywords(), ElementsAre("Alarms: a", "Alarms: b", "Alarms: c&gt;d"));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(KeywordList, StopsAtAKeywordWithHashes) {
  add({{"a", "b##", "c"}});
  EXPECT_THAT(keywords(), ElementsAre("Alarms: a"));
  EXPECT_THAT(boxes(), ElementsAre(kHashes));
}

TEST_F(KeywordList, StopsAtAKeywordWithABlankInside) {
  add({{"a", "x y", "c"}});
  EXPECT_THAT(keywords(), ElementsAre("Alarms: a"));
  EXPECT_THAT(boxes(), ElementsAre(kBlanks));
}

TEST_F(KeywordList, SkipsAKeywordWithTheTextOfAMarkupCharacterAndGoesOn) {
  add({{"a", "x&gt;", "c"}});
  EXPECT_THAT(keywords(), ElementsAre("Alarms: a", "Alarms: c"));
  EXPECT_THAT(boxes(), ElementsAre("information: &gt;Cannot be used in Keywords"));
}

TEST_F(KeywordList, AddsNothingFromAnArrayThatEndsBelowOne) {
  add({{"a"}});
  add({{}});
  add({{"a", "b"}, -1});
  EXPECT_THAT(keywords(), IsEmpty());
  add({{"a"}, 1});
  EXPECT_THAT(keywords(), ElementsAre("Alarms: a"));
}

TEST_F(KeywordList, TakesAnEmptyFirstElementLikeAnyOther) {
  add({{"", "k"}});
  EXPECT_THAT(keywords(), ElementsAre("Alarms: k"));
  std::filesystem::remove(world_.disk.path() / "kw.xml");
  add({{"", "k"}});
  EXPECT_THAT(keywords(), ElementsAre("Alarms: ", "Alarms: k"))
      << "a file that is made for it takes it";
}

TEST_F(KeywordList, HasWrittenEverythingBeforeItShowsABox) {
  std::vector<std::string> atTheBox;
  LookingUser user([&] { atTheBox = keywords(); });
  const Platform& p = platform();
  AddKeywords({p.files, p.xml, user, p.toolset, p.locale, p.spreadsheets},
              state(),
              {{"a", "b", "&lt;", "c"}},
              kPath);
  EXPECT_THAT(atTheBox, ElementsAre("Alarms: a", "Alarms: b"));
  EXPECT_THAT(keywords(), ElementsAre("Alarms: a", "Alarms: b", "Alarms: c"));
}

TEST_F(KeywordList, ReportsTextRulesThatCanNotBeHadAndEnds) {
  world_.toolset.breakTextRules();
  add({{"a", "b"}});
  EXPECT_THAT(keywords(), IsEmpty());
  EXPECT_THAT(boxes(),
              ElementsAre("message: Error 429 (ActiveX component can't create object) in procedure "
                          "AddKeywords of User Control ctlBooksTab"));
}

TEST_F(KeywordList, TellsOfEachKeywordThatAFileThatDoesNotLoadDoesNotExist) {
  world_.disk.write("kw.xml", "<Books>");
  add({{"a", "b"}});
  EXPECT_EQ(textOf("kw.xml"), "<Books>");
  const std::string box = "information: File does not exist";
  EXPECT_THAT(boxes(), ElementsAre(box, box));
}

TEST_F(KeywordList, ReportsEachKeywordThatCanNotBeSaved) {
  WatchedXml xml(platform().xml, platform().files, "C:\\scratch.xml");
  xml.limitSavesTo(1);
  const Platform& p = platform();
  AddKeywords(
      {p.files, xml, p.ui, p.toolset, p.locale, p.spreadsheets}, state(), {{"a", "b"}}, kPath);
  EXPECT_EQ(textOf("kw.xml"), "<Books/>");
  const std::string box = "critical: Error(61):Disk full\rQuorbind-Quor_Book::AddKeywordsToXmlFile";
  EXPECT_THAT(boxes(), ElementsAre(box, box));
}

TEST_F(KeywordList, ReadsTheFileOnceAndWritesItOnce) {
  TextArray words;
  for (int i = 0; i < 100; ++i) {
    words.texts.push_back("w" + std::to_string(i % 80));
  }
  WatchedXml xml(platform().xml, platform().files, "C:\\scratch.xml");
  const Platform& p = platform();
  AddKeywords({p.files, xml, p.ui, p.toolset, p.locale, p.spreadsheets}, state(), words, kPath);
  EXPECT_EQ(xml.loadsOf(kPath), 1);
  EXPECT_EQ(xml.savesOf(kPath), 1);
  EXPECT_EQ(keywords().size(), 80U);
}

}  // namespace
}  // namespace quorbind::testing
