#include "cli/message_story.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <iterator>
#include <optional>
#include <set>
#include <tuple>
#include <utility>

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

/// The lines of a box, which a carriage return ends, a line feed, or both.
std::vector<std::string_view> linesOf(std::string_view box) {
  std::vector<std::string_view> lines;
  while (!box.empty()) {
    const std::size_t end = std::min(box.find_first_of("\r\n"), box.size());
    lines.push_back(box.substr(0, end));
    box.remove_prefix(std::min(end + 1, box.size()));
  }
  return lines;
}

bool holds(std::string_view text, std::string_view part) {
  return findIgnoringAsciiCase(text, part) != std::string_view::npos;
}

/// The first word in braces of a text, with what stands around it.
struct FirstWord {
  std::string_view before;
  std::string_view word;
  std::string_view behind;
};

std::optional<FirstWord> firstWordOf(std::string_view text) {
  const std::size_t begin = text.find('{');
  if (begin == std::string_view::npos) {
    return std::nullopt;
  }
  const std::size_t end = text.find('}', begin);
  return FirstWord{
      text.substr(0, begin), text.substr(begin + 1, end - begin - 1), text.substr(end + 1)};
}

/// Whether only digits are put in for the word.
bool standsForNumber(std::string_view word) {
  constexpr std::array<std::string_view, 3> kNumbers{"NUMBER", "LINE", "COLUMN"};
  return std::find(kNumbers.begin(), kNumbers.end(), word) != kNumbers.end();
}

/// Whether `line` begins with `text`, with something in the place of each word in braces.
bool beginsWith(std::string_view line, std::string_view text) {
  const auto first = firstWordOf(text);
  if (!first) {
    return line.starts_with(text);
  }
  if (!line.starts_with(first->before)) {
    return false;
  }
  line.remove_prefix(first->before.size());
  for (std::size_t length = 1; length <= line.size(); ++length) {
    if (standsForNumber(first->word) && !contains(kDigits, line.substr(length - 1, 1))) {
      return false;
    }
    if (beginsWith(line.substr(length), first->behind)) {
      return true;
    }
  }
  return false;
}

/// How much a text tells of a line in which it stands.
struct Weight {
  /// What a line says first tells more than what stands inside it, such as a name.
  bool beginsLine = false;
  /// How long the text is without its words in braces.
  std::size_t length = 0;

  bool operator<(const Weight& other) const {
    return std::tie(beginsLine, length) < std::tie(other.beginsLine, other.length);
  }
};

std::size_t lengthOf(std::string_view text) {
  const auto first = firstWordOf(text);
  return first ? first->before.size() + lengthOf(first->behind) : text.size();
}

/// Nothing where the text does not stand in the line.
std::optional<Weight> weightIn(std::string_view line, std::string_view text) {
  text = trimBlanks(text);
  const auto first = firstWordOf(text);
  const std::string_view beginning = first ? first->before : text;
  const std::size_t length = lengthOf(text);
  if (beginning.empty()) {
    return beginsWith(line, text) ? std::optional(Weight{standsForNumber(first->word), length})
                                  : std::nullopt;
  }
  for (std::size_t at = line.find(beginning); at != std::string_view::npos;
       at = line.find(beginning, at + 1)) {
    if (beginsWith(line.substr(at), text)) {
      return Weight{at == 0, length};
    }
  }
  return std::nullopt;
}

using Stories = std::vector<const Explanation*>;
using WeightOf = std::function<std::optional<Weight>(const Explanation&)>;

/// The whole messages that weigh most, all of those that weigh the same.
Stories heaviest(const WeightOf& weightOf) {
  Stories found;
  std::optional<Weight> most;
  for (const Explanation& explanation : kExplanations) {
    const auto weight = explanation.topic == Topic::kPart ? std::nullopt : weightOf(explanation);
    if (!weight || (most && *weight < *most)) {
      continue;
    }
    if (most && *most < *weight) {
      found.clear();
    }
    most = weight;
    found.push_back(&explanation);
  }
  return found;
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

/// The messages whose boxes have these words; a part of others only when no box has them.
std::vector<Explanation> explanationsWith(std::string_view words) {
  return explanationsWhere([words](const Explanation& explanation) {
    return explanation.topic != Topic::kPart && holds(shownBox(explanation), words);
  });
}

/// The messages of which the lines of a box tell, one for each line where one fits best; parts only
/// when there is no other.
std::vector<Explanation> explanationsInBox(std::string_view box) {
  const std::string folded = upperCaseAscii(box);
  const auto weightInLine = [](std::string_view line, const Explanation& explanation) {
    return weightIn(line, upperCaseAscii(explanation.text));
  };
  std::set<const Explanation*> told;
  std::set<const Explanation*> parts;
  for (const std::string_view line : linesOf(folded)) {
    const Stories best =
        heaviest([&](const Explanation& other) { return weightInLine(line, other); });
    told.insert(best.begin(), best.end());
    for (const Explanation& explanation : kExplanations) {
      if (explanation.topic == Topic::kPart && weightInLine(line, explanation)) {
        parts.insert(&explanation);
      }
    }
  }
  const auto& found = told.empty() ? parts : told;
  return explanationsWhere(
      [&found](const Explanation& explanation) { return found.contains(&explanation); });
}

}  // namespace

std::vector<Explanation> explanationsFor(std::string_view question) {
  question = trimBlanks(question);
  if (isNumber(question)) {
    return explanationsWhere(
        [question](const Explanation& explanation) { return hasNumber(explanation, question); });
  }
  std::vector<Explanation> found = explanationsWith(question);
  return found.empty() ? explanationsInBox(question) : found;
}

std::string_view acceptedInsteadOf(std::string_view box) {
  // Boxes show the texts letter for letter, and two of these differ in nothing but letter case.
  // What the table of contents itself says stands in front of the rule, on lines of its own.
  std::vector<std::string_view> lines = linesOf(box);
  std::reverse(lines.begin(), lines.end());
  for (const std::string_view line : lines) {
    const Stories best =
        heaviest([&](const Explanation& explanation) { return weightIn(line, explanation.text); });
    if (!best.empty()) {
      return best.front()->accepted;
    }
  }
  return {};
}

std::string plainText(std::string_view text) {
  return replaceAll(replaceAll(text, "{", ""), "}", "");
}

std::string shownBox(const Explanation& explanation) {
  std::string shown = replaceAll(explanation.shown, "{}", explanation.text);
  for (const Explanation& other : kExplanations) {
    shown = replaceAll(shown, "{" + std::string(other.name) + "}", other.text);
  }
  return plainText(shown);
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
    case Topic::kCommand:
      return "command";
    case Topic::kProgress:
      return "progress";
    case Topic::kPart:
      return "part";
  }
  return {};
}

}  // namespace quorbind
