#include "resources/explanations.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace quorbind {
namespace {

std::multiset<int> explainedNumbers() {
  std::multiset<int> numbers;
  for (const Explanation& explanation : kExplanations) {
    if (explanation.number != 0) {
      numbers.insert(explanation.number);
    }
  }
  return numbers;
}

TEST(Explanations, ThereIsOneForEveryNumberedMessage) {
  const std::multiset<int> published{
#define QUOR_MESSAGE(number, name, text) number,
#include "resources/messages.def"
#undef QUOR_MESSAGE
  };
  EXPECT_EQ(explainedNumbers(), published);
}

TEST(Explanations, NoTwoMessagesHaveTheSameText) {
  std::set<std::string_view> texts;
  for (const Explanation& explanation : kExplanations) {
    EXPECT_TRUE(texts.insert(explanation.text).second) << explanation.text;
  }
}

TEST(Explanations, OfAFaultTellWhatWouldBeAcceptedAndHowToMendIt) {
  for (const Explanation& explanation : kExplanations) {
    const bool isFault = explanation.topic != Topic::kProgress && explanation.topic != Topic::kPart;
    EXPECT_FALSE(explanation.meaning.empty()) << explanation.name;
    const bool isOfAnyKind = explanation.name.starts_with("kRunTimeError");
    EXPECT_NE(explanation.accepted.empty(), isFault && !isOfAnyKind) << explanation.name;
    EXPECT_NE(explanation.mending.empty(), isFault) << explanation.name;
  }
}

TEST(Explanations, ShowEachMessageInItsBox) {
  for (const Explanation& explanation : kExplanations) {
    EXPECT_NE(explanation.shown.find("{}"), std::string_view::npos) << explanation.name;
  }
}

/// What hosts and authors have always read, blanks and spelling included.
TEST(RuleTexts, ReadAsTheyWerePublished) {
  const std::set<std::string_view> published{
      "TOC file is not a XML file",
      "TOC file is not a HTML file",
      "TOC file is not a EXCEL file",
      "TOC file is not a Text file",
      "Error: Text File is Empty",
      "Error: Text File Does not adhere to Quor TOC Content Spec",
      "Error: Does not adhere to Quor TOC Content Spec",
      "Error:Empty Line in TOC is not valid",
      "Error:Node Level value can not be String",
      "Error:Invalid Node Level Sequence ",
      "Error:Node Name can not be Empty",
      "Error:Book Should Have at least one Heading",
      "End Tag {TAG} Does Not Have a Start Tag",
      "Start Tag {TAG} Does Not Have a End Tag",
      "Error:Not Valid Begining and End Tags",
      "Error:Start and End Tag does not match ",
      "Error:Heading level should be positive ",
      "Error:Heading Tag does not follow sequence ",
      "Error:File Path information is missing",
      "Error:File Title Information is missing",
      "Error: Invalid HMTL Content",
      "Cannot be used in ",
  };
  std::set<std::string_view> table;
  for (const Explanation& explanation : kExplanations) {
    table.insert(explanation.text);
  }
  EXPECT_TRUE(std::includes(table.begin(), table.end(), published.begin(), published.end()));
}

}  // namespace
}  // namespace quorbind
