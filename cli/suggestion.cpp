#include "cli/suggestion.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "cli/text_list.h"
#include "platform/text.h"

namespace quorbind {

namespace {

/// A third of a word is a slip; more of it is another word. Of longer words it is a bit more, for
/// those that are taken in the singular.
std::size_t mostEdits(std::string_view word, std::string_view other) {
  constexpr std::size_t kLettersForEach = 3;
  constexpr std::size_t kLong = 8;
  constexpr std::size_t kEditsOfLong = 3;
  const bool isLong = std::max(word.size(), other.size()) >= kLong;
  return std::max<std::size_t>(isLong ? kEditsOfLong : 1, word.size() / kLettersForEach);
}

/// Whether the word is the beginning of the other, and enough of it to mean it.
bool isCutShort(std::string_view word, std::string_view other) {
  constexpr std::size_t kFewestLetters = 3;
  const std::size_t hyphens = std::min(word.find_first_not_of('-'), word.size());
  return word.size() - hyphens >= kFewestLetters && other.starts_with(word);
}

/// How far the other word is from what was typed; nothing when it was hardly meant.
std::optional<std::size_t> distanceBetween(const std::string& word, const std::string& other) {
  const std::size_t edits = editDistance(word, other);
  if (edits > 0 && isCutShort(word, other)) {
    return 1;
  }
  return edits <= mostEdits(word, other) ? std::optional(edits) : std::nullopt;
}

}  // namespace

std::size_t editDistance(std::string_view left, std::string_view right) {
  using Row = std::vector<std::size_t>;
  Row beforeLast(right.size() + 1);
  Row last(right.size() + 1);
  Row row(right.size() + 1);
  for (std::size_t j = 0; j <= right.size(); ++j) {
    row[j] = j;
  }
  for (std::size_t i = 1; i <= left.size(); ++i) {
    beforeLast = std::exchange(last, row);
    row[0] = i;
    for (std::size_t j = 1; j <= right.size(); ++j) {
      const std::size_t exchanged = last[j - 1] + (left[i - 1] == right[j - 1] ? 0 : 1);
      row[j] = std::min({exchanged, last[j] + 1, row[j - 1] + 1});
      if (i > 1 && j > 1 && left[i - 1] == right[j - 2] && left[i - 2] == right[j - 1]) {
        row[j] = std::min(row[j], beforeLast[j - 2] + 1);
      }
    }
  }
  return row.back();
}

std::string suggestionFor(std::string_view word, const std::vector<std::string>& known) {
  std::optional<std::size_t> least;
  std::vector<std::string> nearest;
  for (const std::string& other : known) {
    const auto distance = distanceBetween(upperCaseAscii(word), upperCaseAscii(other));
    if (!distance || (least && *distance > *least)) {
      continue;
    }
    if (least && *distance < *least) {
      nearest.clear();
    }
    least = distance;
    nearest.push_back("'" + other + "'");
  }
  return nearest.empty() ? std::string() : " Did you mean " + joined(nearest, " or ") + "?";
}

}  // namespace quorbind
