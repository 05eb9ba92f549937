#include "tests/cli/library_test.h"
#include "tests/cli/refusal_object.h"

namespace quorbind::testing {
namespace {

class KeywordsCommand : public LibraryTest {
 protected:
  void writeKeywords() const {
    disk.write(kKeywords,
               keywordsFile(keywordsOf("Alarms", {"bell", "R&amp;amp;D"}) +
                            keywordsOf(kMarkupInXml, {"Bell"})));
  }
};

using KeywordList = KeywordsCommand;

TEST_F(KeywordList, IsATableOfTheBooksAndTheirKeywordsAsTyped) {
  writeKeywords();
  const Outcome outcome = inPlant({"keywords", "list"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "BOOK                   KEYWORDS\n"
            "Alarms                 bell, R&D\n"
            "A & B < C > D \" E ' F  Bell\n");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(KeywordList, OfOneBook) {
  writeKeywords();
  EXPECT_EQ(inPlant({"keywords", "list", kMarkupName}).out,
            "BOOK                   KEYWORDS\n"
            "A & B < C > D \" E ' F  Bell\n");
}

TEST_F(KeywordList, AsAnObject) {
  writeKeywords();
  EXPECT_EQ(inPlant({"keywords", "list", "Alarms", "--json"}).out,
            "{\n  \"format\": 1,\n"
            "  \"keywords\": [\n"
            "    {\n"
            "      \"book\": \"Alarms\",\n"
            "      \"keywords\": [\n"
            "        \"bell\",\n"
            "        \"R&D\"\n"
            "      ]\n"
            "    }\n"
            "  ]\n"
            "}\n");
}

TEST_F(KeywordList, OfALibraryWithoutTheFileIsEmpty) {
  EXPECT_EQ(inPlant({"keywords", "list"}).out, "BOOK  KEYWORDS\n");
  EXPECT_EQ(inPlant({"keywords", "list", "Alarms"}).out,
            "BOOK    KEYWORDS\n"
            "Alarms\n");
}

TEST_F(KeywordList, OfABookThatLeftTheCatalogue) {
  disk.write(kKeywords, keywordsFile(keywordsOf("Gone", {"past"})));
  EXPECT_EQ(inPlant({"keywords", "list", "Gone"}).out,
            "BOOK  KEYWORDS\n"
            "Gone  past\n");
}

TEST_F(KeywordList, OfABookThatIsNowhereIsRefused) {
  const Outcome outcome = inPlant({"keywords", "list", "Else", "--json"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "critical: there is no book Else in Plant\n");
  EXPECT_EQ(
      outcome.out,
      refusalObject(
          1, "there is no book Else in Plant", "A book of the library, in its own letter case."));
}

using KeywordFind = KeywordsCommand;

TEST_F(KeywordFind, NamesTheBooksWhateverTheLetterCase) {
  writeKeywords();
  const Outcome outcome = inPlant({"keywords", "find", "BELL"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Alarms\nA & B < C > D \" E ' F\n");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(KeywordFind, TakesTheWholeWordAsItIsTyped) {
  writeKeywords();
  EXPECT_EQ(inPlant({"keywords", "find", "r&d"}).out, "Alarms\n");
  EXPECT_EQ(inPlant({"keywords", "find", "R&amp;D"}).out, "");
  EXPECT_EQ(inPlant({"keywords", "find", "bel"}).out, "");
}

TEST_F(KeywordFind, AsAnObject) {
  writeKeywords();
  EXPECT_EQ(inPlant({"keywords", "find", "R&D", "--json"}).out,
            "{\n  \"format\": 1,\n"
            "  \"word\": \"R&D\",\n"
            "  \"books\": [\n"
            "    \"Alarms\"\n"
            "  ]\n"
            "}\n");
}

TEST_F(KeywordFind, WithoutABookIsDoneAndNamesNone) {
  const Outcome outcome = inPlant({"keywords", "find", "bell"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "");
}

using KeywordAdd = KeywordsCommand;

TEST_F(KeywordAdd, MakesTheFileForTheFirstOne) {
  const Outcome outcome = inPlant({"keywords", "add", "Alarms", "bell"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Added the keyword bell to Alarms (ALM) in Plant.\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_TRUE(
      text(kKeywords).ends_with("\n<Books>\n" + keywordsOf("Alarms", {"bell"}) + "</Books>\n"))
      << text(kKeywords);
}

TEST_F(KeywordAdd, AddsEveryWordInItsStoredFormAndNoneTwice) {
  disk.write(kKeywords, keywordsFile(keywordsOf(kMarkupInXml, {"bell"})));
  const Outcome outcome = inPlant({"keywords", "add", kMarkupName, "bell", " <&> ", "'\""});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "Added the keywords bell, <&>, '\" to A & B < C > D \" E ' F (MRK) in Plant.\n");
  EXPECT_EQ(text(kKeywords),
            keywordsFile(keywordsOf(
                kMarkupInXml, {"bell", "&amp;lt;&amp;amp;&amp;gt;", "&amp;apos;&amp;quot;"})));
}

TEST_F(KeywordAdd, AsAnObject) {
  EXPECT_EQ(inPlant({"keywords", "add", "Alarms", "bell", "--json"}).out,
            changeObject("Added the keyword bell to Alarms (ALM) in Plant.", kKeywords));
}

TEST_F(KeywordAdd, WithOneThatBreaksARuleNoneIsAdded) {
  expectRefusal({"keywords", "add", "Alarms", "bell", "a##b"},
                1,
                "message: Search keyword should not contain '##' in it.\n"
                "quorbind: Plant: nothing was changed\n");
  expectRefusal({"keywords", "add", "Alarms", "bell", "a b"},
                1,
                "message: Search keyword should not have any spaces in between the characters\n"
                "quorbind: Plant: nothing was changed\n");
  expectRefusal({"keywords", "add", "Alarms", "&gt;", "bell"},
                1,
                "information: &gt;Cannot be used in Keywords\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(KeywordAdd, TellsEveryFaultOfTheList) {
  expectRefusal({"keywords", "add", "Alarms", "a##b", "bell", "a b"},
                1,
                "message: Search keyword should not contain '##' in it.\n"
                "message: Search keyword should not have any spaces in between the characters\n"
                "quorbind: Plant: nothing was changed\n");
}

// The text of such a character is what the character itself is stored as.
TEST_F(KeywordAdd, TakesTheTextOfAQuoteOrAnApostropheForTheCharacter) {
  disk.write(kKeywords, keywordsFile(keywordsOf("Alarms", {"bell"})));
  EXPECT_EQ(inPlant({"keywords", "add", "Alarms", "&quot;", "a&apos;b"}).status, 0);
  const std::string file =
      keywordsFile(keywordsOf("Alarms", {"bell", "&amp;quot;", "a&amp;apos;b"}));
  EXPECT_EQ(text(kKeywords), file);
  EXPECT_EQ(inPlant({"keywords", "add", "Alarms", "\"", "a'b"}).status, 0);
  EXPECT_EQ(text(kKeywords), file) << "none twice";
}

TEST_F(KeywordAdd, WithOneThatNoFileCanHoldNoneIsAdded) {
  for (const auto& [word, shown] :
       {std::pair{"x\x01y", "x\\x01y"}, {"x\xFFy", "x\uFFFDy"}, {"\xEF\xBF\xBF", "\uFFFF"}}) {
    expectRefusal({"keywords", "add", "Alarms", "bell", word},
                  1,
                  std::string("critical: the keyword ") + shown +
                      " can not be kept: it holds a character that no XML file can hold\n"
                      "quorbind: Plant: nothing was changed\n");
  }
}

TEST_F(KeywordAdd, ABlankWordIsWrongUsage) {
  expectRefusal({"keywords", "add", "Alarms", " "},
                2,
                "WORD: it must not be empty\n"
                "Run with --help for more information.\n");
}

TEST_F(KeywordAdd, ToABookThatIsNotThereIsRefused) {
  expectRefusal({"keywords", "add", "Else", "bell"},
                1,
                "critical: there is no book Else in Plant\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(KeywordAdd, ABookWithoutItsListIsToldOf) {
  disk.write(kKeywords, keywordsFile("\t<Book Book_Name=\"Alarms\"/>\n"));
  expectRefusal({"keywords", "add", "Alarms", "bell"},
                4,
                "critical: Error(91):Object variable or With block variable not set\n"
                "Quorbind-Quor_Book::AddKeywordsToXmlFile\n"
                "quorbind: Plant: nothing was changed\n");
}

using KeywordRename = KeywordsCommand;

TEST_F(KeywordRename, ReplacesItEverywhereInTheBook) {
  disk.write(kKeywords,
             keywordsFile(keywordsOf("Alarms", {"bell", "R&amp;amp;D", "bell"}) +
                          keywordsOf(kMarkupInXml, {"bell"})));
  const Outcome outcome = inPlant({"keywords", "rename", "Alarms", "bell", "<horn>"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Renamed the keyword bell of Alarms (ALM) to <horn> in Plant.\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(
      text(kKeywords),
      keywordsFile(
          keywordsOf("Alarms", {"&amp;lt;horn&amp;gt;", "R&amp;amp;D", "&amp;lt;horn&amp;gt;"}) +
          keywordsOf(kMarkupInXml, {"bell"})));
}

TEST_F(KeywordRename, TakesTheOldOneAsItIsTyped) {
  writeKeywords();
  EXPECT_EQ(inPlant({"keywords", "rename", "Alarms", "R&D", "research"}).status, 0);
  EXPECT_EQ(text(kKeywords),
            keywordsFile(keywordsOf("Alarms", {"bell", "research"}) +
                         keywordsOf(kMarkupInXml, {"Bell"})));
}

TEST_F(KeywordRename, TakesTheTextOfAQuoteForTheCharacter) {
  writeKeywords();
  EXPECT_EQ(inPlant({"keywords", "rename", "Alarms", "bell", "&quot;"}).status, 0);
  EXPECT_EQ(text(kKeywords),
            keywordsFile(keywordsOf("Alarms", {"&amp;quot;", "R&amp;amp;D"}) +
                         keywordsOf(kMarkupInXml, {"Bell"})));
  EXPECT_EQ(inPlant({"keywords", "rename", "Alarms", "&quot;", "horn"}).status, 0);
  EXPECT_EQ(text(kKeywords),
            keywordsFile(keywordsOf("Alarms", {"horn", "R&amp;amp;D"}) +
                         keywordsOf(kMarkupInXml, {"Bell"})));
}

TEST_F(KeywordRename, FindsAKeywordThatAnotherHostStoredAsTyped) {
  disk.write(kKeywords, keywordsFile(keywordsOf("Alarms", {"R&amp;D"})));
  EXPECT_EQ(inPlant({"keywords", "rename", "Alarms", "R&D", "bell"}).status, 0);
  EXPECT_EQ(text(kKeywords), keywordsFile(keywordsOf("Alarms", {"bell"})));
}

TEST_F(KeywordRename, AsAnObject) {
  writeKeywords();
  EXPECT_EQ(inPlant({"keywords", "rename", "Alarms", "bell", "horn", "--json"}).out,
            changeObject("Renamed the keyword bell of Alarms (ALM) to horn in Plant.", kKeywords));
}

TEST_F(KeywordRename, AKeywordThatTheBookDoesNotHaveIsRefused) {
  writeKeywords();
  expectRefusal({"keywords", "rename", "Alarms", "Bell", "horn"},
                1,
                "critical: Alarms (ALM) does not have the keyword Bell\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(KeywordRename, OneThatTheBookHasAlreadyIsRefused) {
  writeKeywords();
  expectRefusal({"keywords", "rename", "Alarms", "bell", "R&D"},
                1,
                "critical: Alarms (ALM) has the keyword R&D already\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(KeywordRename, TheNewOnePassesTheRules) {
  writeKeywords();
  expectRefusal({"keywords", "rename", "Alarms", "bell", "x\x01y"},
                1,
                "critical: the keyword x\\x01y can not be kept: it holds a character that no XML "
                "file can hold\n"
                "quorbind: Plant: nothing was changed\n");
  expectRefusal({"keywords", "rename", "Alarms", "bell", "a b"},
                1,
                "message: Search keyword should not have any spaces in between the characters\n"
                "quorbind: Plant: nothing was changed\n");
}

}  // namespace
}  // namespace quorbind::testing
