#include "cli/explain_command.h"

#include <iostream>
#include <nlohmann/json.hpp>

#include "cli/failure.h"
#include "cli/json_text.h"
#include "cli/listing.h"
#include "cli/message_story.h"
#include "cli/text_list.h"
#include "cli/text_table.h"
#include "cli/wiring.h"
#include "platform/text.h"

namespace quorbind {

namespace {

std::string numberOf(const Explanation& explanation) {
  return explanation.number == 0 ? std::string() : std::to_string(explanation.number);
}

Json textOrNull(std::string_view text) {
  return text.empty() ? Json(nullptr) : Json(text);
}

Json toJson(const Explanation& explanation) {
  return {{"number", explanation.number == 0 ? Json(nullptr) : Json(explanation.number)},
          {"text", plainText(explanation.text)},
          {"topic", wordFor(explanation.topic)},
          {"shown", shownBox(explanation)},
          {"meaning", explanation.meaning},
          {"accepted", textOrNull(explanation.accepted)},
          {"mending", textOrNull(explanation.mending)}};
}

template <typename Explanations>
void printAsJson(const Explanations& explanations) {
  Json list = Json::array();
  for (const Explanation& explanation : explanations) {
    list.push_back(toJson(explanation));
  }
  printJson({{"explanations", list}});
}

void printList() {
  std::vector<TableRow> rows{{"NUMBER", "TOPIC", "MESSAGE"}};
  for (const Explanation& explanation : kExplanations) {
    rows.push_back({numberOf(explanation),
                    std::string(wordFor(explanation.topic)),
                    plainText(trimBlanks(explanation.text))});
  }
  printTable(rows);
}

void printParagraph(std::string_view title, std::string_view text) {
  if (!text.empty()) {
    std::cout << title << text << '\n';
  }
}

void printStory(const Explanation& explanation) {
  printParagraph("Message ", numberOf(explanation));
  std::cout << "  " << replaceAll(shownBox(explanation), "\n", "\n  ") << "\n\n";
  printParagraph("What it means: ", explanation.meaning);
  printParagraph("What is accepted: ", explanation.accepted);
  printParagraph("How to mend it: ", explanation.mending);
}

void printStories(const std::vector<Explanation>& explanations) {
  bool isFirst = true;
  for (const Explanation& explanation : explanations) {
    std::cout << (isFirst ? "" : "\n");
    isFirst = false;
    printStory(explanation);
  }
}

void listAll(bool json) {
  if (json) {
    printAsJson(kExplanations);
  } else {
    printList();
  }
}

void explain(const std::string& question, bool json) {
  const std::vector<Explanation> found = explanationsFor(question);
  if (found.empty()) {
    throw brokenRule(RuleText::kNoSuchMessage, {{"MESSAGE", question}});
  }
  if (json) {
    printAsJson(found);
  } else {
    printStories(found);
  }
}

}  // namespace

ExitStatus runExplain(const ExplainArguments& arguments) {
  Wiring wiring("", processTerminal(/*mayAsk=*/false));
  return runListing(wiring, arguments.json, [&] {
    if (arguments.question.empty()) {
      listAll(arguments.json);
    } else {
      explain(joined(arguments.question, " "), arguments.json);
    }
  });
}

}  // namespace quorbind
