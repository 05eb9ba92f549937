#include <algorithm>

#include "resources/explanations.h"
#include "tests/cli/command_test.h"
#include "tests/cli/refusal_object.h"

namespace quorbind::testing {
namespace {

using Explain = CommandTest;

TEST_F(Explain, TellsTheStoryOfANumberedMessage) {
  const Outcome outcome = quorbind({"explain", "132"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(
      outcome.out,
      "Message 132\n"
      "  Row: ROW Column:COLUMN\n"
      "  Error:Node Level should be Integer\n"
      "\n"
      "What it means: A cell of column A holds something that is no level: a word, a date, or "
      "a number beyond 32767.\n"
      "What is accepted: A whole number from 1.\n"
      "How to mend it: Write the depth of the heading: 1 begins a book, 2 is a chapter of it, "
      "3 stands below that.\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_TRUE(disk.contents().empty());
}

TEST_F(Explain, TellsOfAMessageThatIsNoFaultOnlyWhatItMeans) {
  EXPECT_EQ(quorbind({"explain", "125"}).out,
            "Message 125\n"
            "  Toc Validation in Progress...\n"
            "\n"
            "What it means: The table of contents is held against the rules.\n");
}

TEST_F(Explain, FindsAMessageByTheWordsThatAnAuthorSees) {
  const std::string story =
      "  Line: LINE\n"
      "  Error:Node Name can not be Empty\n"
      "\n"
      "What it means: The second field, the name of the heading, is empty.\n"
      "What is accepted: Any text that holds no quotation mark.\n"
      "How to mend it: Write the title that readers shall see.\n";
  EXPECT_EQ(
      quorbind({"explain", "Line: \"2\" \"\" \"a.htm\" \"\"\nError:Node Name can not be Empty"})
          .out,
      story);
  EXPECT_EQ(quorbind({"explain", "name", "can", "not", "be", "empty"}).out, story);
}

TEST_F(Explain, TellsSeveralStoriesWithAnEmptyLineBetweenThem) {
  const Outcome outcome = quorbind({"explain", "Information is not Found"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_TRUE(outcome.out.starts_with("Message 143\n")) << outcome.out;
  EXPECT_NE(outcome.out.find(".\n\nMessage 144\n"), std::string::npos) << outcome.out;
}

TEST_F(Explain, AnswersAnUnknownMessageAsOtherThingsThatAreNotThere) {
  const Outcome outcome = quorbind({"explain", "999"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err,
            "critical: there is no message '999'; 'quorbind explain' lists those that are there\n");
}

TEST_F(Explain, AnswersAnUnknownMessageWithJsonAsOneObject) {
  const Outcome outcome = quorbind({"explain", "999", "--json"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out,
            refusalObject(1,
                          "there is no message '999'; 'quorbind explain' lists those that are "
                          "there",
                          "The number of a message, or words of one."));
}

TEST_F(Explain, TellsWithJsonWhatEachPartOfTheStoryIs) {
  EXPECT_EQ(quorbind({"explain", "121", "--json"}).out,
            "{\n  \"format\": 1,\n"
            "  \"explanations\": [\n"
            "    {\n"
            "      \"number\": 121,\n"
            "      \"text\": \" already Exists\",\n"
            "      \"topic\": \"part\",\n"
            "      \"shown\": \"Error:Book Name NAME already Exists\",\n"
            "      \"meaning\": \"The end of messages 120 and 122.\",\n"
            "      \"accepted\": null,\n"
            "      \"mending\": null\n"
            "    }\n"
            "  ]\n"
            "}\n");
}

TEST_F(Explain, ListsAllMessagesWhenNoneIsNamed) {
  const Outcome outcome = quorbind({"explain"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_TRUE(
      outcome.out.starts_with("NUMBER  TOPIC     MESSAGE\n"
                              "101     any       Not a valid TOC file\n"
                              "        any       TOC file is not a XML file\n"))
      << outcome.out;
  EXPECT_EQ(std::count(outcome.out.begin(), outcome.out.end(), '\n'),
            static_cast<std::ptrdiff_t>(kExplanations.size() + 1));
}

TEST_F(Explain, TakesNoEmptyMessage) {
  for (const char* empty : {"", " "}) {
    EXPECT_EQ(quorbind({"explain", empty}).status, 2);
  }
}

TEST_F(Explain, WritesOutControlCharactersOfAnUnknownMessage) {
  EXPECT_EQ(quorbind({"explain", "\x1B[2J"}).err,
            "critical: there is no message '\\x1B[2J'; 'quorbind explain' lists those that are "
            "there\n");
}

}  // namespace
}  // namespace quorbind::testing
