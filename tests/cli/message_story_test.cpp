#include "cli/message_story.h"

#include <gmock/gmock.h>

#include "platform/text.h"

namespace quorbind {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string_view> namesFor(std::string_view question) {
  std::vector<std::string_view> names;
  for (const Explanation& explanation : explanationsFor(question)) {
    names.push_back(explanation.name);
  }
  return names;
}

TEST(MessageStory, IsFoundByItsNumber) {
  EXPECT_THAT(namesFor("132"), ElementsAre("kNodeLevelNotInteger"));
  EXPECT_THAT(namesFor(" 121 "), ElementsAre("kAlreadyExists"));
}

TEST(MessageStory, OfANumberThatNoMessageHasIsNotThere) {
  for (const char* number : {"0", "134", "999", "1320", "99999999999999999999"}) {
    EXPECT_THAT(namesFor(number), IsEmpty()) << number;
  }
}

TEST(MessageStory, IsFoundByWordsOfItInAnyLetterCase) {
  EXPECT_THAT(namesFor("should be integer"), ElementsAre("kNodeLevelNotInteger"));
  EXPECT_THAT(namesFor("NODE NAME"),
              ElementsAre("kTextNameEmpty", "kNodeNameNotFound", "kEntryCountsDiffer"));
}

TEST(MessageStory, IsFoundByTheWholeBox) {
  EXPECT_THAT(namesFor("Row: 7 Column:1\nError:Node Level should be Integer"),
              ElementsAre("kNodeLevelNotInteger"));
  EXPECT_THAT(namesFor("Line: \"6\" \"Slope\" \"a.htm\" \"\"\nError:Invalid Node Level Sequence "),
              ElementsAre("kTextLevelOutOfSequence"));
}

TEST(MessageStory, IsFoundWhateverTagItsBoxShows) {
  EXPECT_THAT(namesFor("End Tag </K2> Does Not Have a Start Tag"), ElementsAre("kEndTagAlone"));
  EXPECT_THAT(namesFor("Start Tag <KBD> Does Not Have a End Tag"), ElementsAre("kStartTagAlone"));
}

TEST(MessageStory, OfARunTimeErrorIsFoundByItsBox) {
  EXPECT_THAT(namesFor("Error(9): Subscript out of range\r\n"
                       "Quorbind:CTOCToXML::mGenerateTypeAttribute"),
              ElementsAre("kRunTimeError"));
  EXPECT_THAT(namesFor("Error(91):Object variable or With block variable not set"),
              ElementsAre("kRunTimeErrorTight"));
  EXPECT_THAT(namesFor("Error (9 ):Subscript out of range"), ElementsAre("kRunTimeErrorWide"));
  EXPECT_THAT(namesFor("Error 13 (Type mismatch) in procedure AddCategoryNode of Class Module "
                       "Quor_Book"),
              ElementsAre("kRunTimeErrorInProcedure"));
  EXPECT_THAT(namesFor("70: Permission denied"), ElementsAre("kRunTimeErrorUnderTitle"));
}

TEST(MessageStory, OfARunTimeErrorIsNotThatOfAFileWithTheSameReason) {
  EXPECT_THAT(namesFor("/srv/docs/Docs/Plant/Quor_TOC.xml: Permission denied"),
              ElementsAre("kNoRight"));
  EXPECT_THAT(namesFor("Error(76): Path not found\rQuorbind: Quor_Book::mbGetFormInput"),
              ElementsAre("kRunTimeError"));
  for (const char* box : {"Error(76): Path not found\rQuorbind: Quor_Book::mbGetFormInput",
                          "70: Permission denied"}) {
    EXPECT_EQ(acceptedInsteadOf(box), "") << box;
  }
}

TEST(MessageStory, OfWhatTheCommandRefusesIsFoundWhateverStandsInTheText) {
  EXPECT_THAT(namesFor("there is no book Else in Plant"), ElementsAre("kNoSuchBook"));
  EXPECT_THAT(namesFor("there is no category A in B in Plant"), ElementsAre("kNoSuchCategory"));
  EXPECT_THAT(namesFor("there is a category A in Plant already"), ElementsAre("kCategoryTaken"));
  EXPECT_THAT(namesFor("/srv/a:b.xml:3:14: mismatched tag"), ElementsAre("kFaultAtPlace"));
}

TEST(MessageStory, OfAFaultWithoutItsPlaceIsNotThere) {
  EXPECT_THAT(namesFor("a.xml:3: mismatched tag"), IsEmpty());
  EXPECT_THAT(namesFor("a.xml:3:x: mismatched tag"), IsEmpty());
}

TEST(MessageStory, IsThatOfTheLongestTextInALine) {
  EXPECT_THAT(namesFor("Row: 3 Column:2\nError:Book Acro is too long for the name of a file"),
              ElementsAre("kWorkbookAcronymTooLong"));
  EXPECT_THAT(namesFor("Error:Book Acro is too long for the name of a file"),
              ElementsAre("kWorkbookAcronymTooLong"));
}

TEST(MessageStory, IsToldOfEachLineOfABoxThatHasOne) {
  EXPECT_THAT(namesFor("Error:Node Name can not be Empty\r\nError:Book Name A already Exists"),
              ElementsAre("kTextNameEmpty", "kErrorBookName"));
}

TEST(MessageStory, IsFoundByWordsOfAPartOfItsBox) {
  EXPECT_THAT(namesFor("already exists"), ElementsAre("kErrorBookName", "kErrorBookAcro"));
  EXPECT_THAT(namesFor("valid permission"), ElementsAre("kTemporaryFileUnderThis"));
}

TEST(MessageStory, OfAPartIsFoundWhenNoWholeMessageIs) {
  EXPECT_THAT(namesFor("Line: 5"), ElementsAre("kLine"));
}

TEST(MessageStory, OfATextThatNoMessageHasIsNotThere) {
  EXPECT_THAT(namesFor("the printer is on fire"), IsEmpty());
}

TEST(MessageStory, ShowsTheWholeBoxWithTheTextsThatStandInIt) {
  const auto boxOf = [](std::string_view question) {
    return shownBox(explanationsFor(question).at(0));
  };
  EXPECT_EQ(boxOf("132"), "Row: ROW Column:COLUMN\nError:Node Level should be Integer");
  EXPECT_EQ(boxOf("120"), "Error:Book Name NAME already Exists");
  EXPECT_EQ(boxOf("139"),
            "A temporary text file has to be created under this FOLDER   location,folder in the "
            "above does not have a valid permission, please go and set the permission");
}

TEST(MessageStory, ShowsNoSignThatStandsForNothing) {
  for (const Explanation& explanation : kExplanations) {
    EXPECT_EQ(shownBox(explanation).find_first_of("{}"), std::string::npos) << explanation.name;
  }
}

TEST(MessageStory, OfEachBoxSaysWhatIsAcceptedInsteadOfItAndOfNoOther) {
  for (const Explanation& explanation : kExplanations) {
    if (explanation.topic != Topic::kPart) {
      const std::string box = replaceAll(
          replaceAll(shownBox(explanation), "LINE:COLUMN", "7:3"), "Error NUMBER", "Error 13");
      EXPECT_EQ(acceptedInsteadOf(box), explanation.accepted) << explanation.name << ": " << box;
    }
  }
}

TEST(MessageStory, KnowsTextsApartThatDifferInLetterCaseAlone) {
  EXPECT_EQ(acceptedInsteadOf("Error:Book should have at least one heading"),
            "A book file, Book_ACRONYM.xml, with at least one HFile.");
  EXPECT_EQ(acceptedInsteadOf("Error:Book Should Have at least one Heading"),
            "At least one heading between <K1> and </K1>.");
}

TEST(MessageStory, HasATopicInOneWord) {
  for (const Explanation& explanation : kExplanations) {
    EXPECT_EQ(wordFor(explanation.topic).find_first_of(" "), std::string_view::npos);
    EXPECT_FALSE(wordFor(explanation.topic).empty()) << explanation.name;
  }
}

}  // namespace
}  // namespace quorbind
