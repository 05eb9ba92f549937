#include "cli/message_story.h"

#include <algorithm>
#include <iterator>

#include "platform/text.h"

namespace quorbind {

namespace {

constexpr std::string_view kDigits = "0123456789";

bool isNumber(std::string_view question) {
  return question.find_first_not_of(kDigits) == std::string_view::npos;
}

bool hasNumber(const Explanation& explanation, std::string_view number) {
  return explanation.number != 0 && std::to_string(explanation.number) == number;
}

bool holds(std::string_view text, std::string_view part) {
  return findIgnoringAsciiCase(text, part) != std::string_view::npos;
}

using Search = bool (*)(std::string_view text, std::string_view part);

/// Whether the box `box` shows `text`, with anything in the place of a tag.
bool isShownIn(std::string_view text, std::string_view box, Search finds) {
  const Pieces pieces(text, kTagInRuleText);
  return std::all_of(pieces.begin(), pieces.end(), [&](std::string_view piece) {
    return finds(box, trimBlanks(piece));
  });
}

template <typename Condition>
std::vector<Explanation> explanationsWhere(Condition&& condition) {
  std::vector<Explanation> found;
  std::copy_if(kExplanations.begin(),
               kExplanations.end(),
               std::back_inserter(found),
               std::forward<Condition>(condition));
  return found;
}

std::vector<Explanation> explanationsByText(std::string_view question) {
  const auto matches = [question](const Explanation& explanation) {
    return holds(explanation.text, question) || isShownIn(explanation.text, question, holds);
  };
  std::vector<Explanation> whole = explanationsWhere([&](const Explanation& explanation) {
    return explanation.topic != Topic::kPart && matches(explanation);
  });
  return whole.empty() ? explanationsWhere(matches) : whole;
}

}  // namespace

std::vector<Explanation> explanationsFor(std::string_view question) {
  question = trimBlanks(question);
  if (isNumber(question)) {
    return explanationsWhere(
        [question](const Explanation& explanation) { return hasNumber(explanation, question); });
  }
  return explanationsByText(question);
}

std::string_view acceptedInsteadOf(std::string_view box) {
  // Boxes show the texts letter for letter, and two of these differ in nothing but letter case.
  // What the table of contents itself says stands in front of the rule, on lines of its own.
  while (!box.empty()) {
    const std::size_t lineEnd = box.find_last_of("\r\n");
    const std::string_view line = lineEnd == std::string_view::npos ? box : box.substr(lineEnd + 1);
    const Explanation* longest = nullptr;
    for (const Explanation& explanation : kExplanations) {
      const bool isRule =
          !explanation.accepted.empty() && isShownIn(explanation.text, line, contains);
      if (isRule && (longest == nullptr || explanation.text.size() > longest->text.size())) {
        longest = &explanation;
      }
    }
    if (longest != nullptr) {
      return longest->accepted;
    }
    box = box.substr(0, lineEnd == std::string_view::npos ? 0 : lineEnd);
  }
  return {};
}

std::string shownBox(const Explanation& explanation) {
  std::string shown = replaceAll(explanation.shown, "{}", explanation.text);
  for (const Explanation& other : kExplanations) {
    shown = replaceAll(shown, "{" + std::string(other.name) + "}", other.text);
  }
  return shown;
}

std::string_view wordFor(Topic topic) {
  switch (topic) {
    case Topic::kEveryToc:
      return "any";
    case Topic::kTextToc:
      return "text";
    case Topic::kHtmlToc:
      return "html";
    case Topic::kXmlToc:
      return "xml";
    case Topic::kWorkbookToc:
      return "excel";
    case Topic::kNaming:
      return "names";
    case Topic::kRecords:
      return "records";
    case Topic::kLibrary:
      return "library";
    case Topic::kProgress:
      return "progress";
    case Topic::kPart:
      return "part";
  }
  return {};
}

}  // namespace quorbind
