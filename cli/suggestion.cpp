#include "cli/suggestion.h"

#include <algorithm>
#include <utility>

#include "cli/text_list.h"
#include "platform/text.h"

namespace quorbind {

namespace {

/// A third of a word is a slip; more of it is another word.
std::size_t mostEdits(std::string_view word) {
  constexpr std::size_t kLettersForEach = 3;
  return std::max<std::size_t>(1, word.size() / kLettersForEach);
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
  std::size_t least = mostEdits(word);
  std::vector<std::string> nearest;
  for (const std::string& other : known) {
    const std::size_t distance = editDistance(upperCaseAscii(word), upperCaseAscii(other));
    if (distance < least) {
      nearest.clear();
    }
    if (distance <= least) {
      least = distance;
      nearest.push_back("'" + other + "'");
    }
  }
  return nearest.empty() ? std::string() : " Did you mean " + joined(nearest, " or ") + "?";
}

}  // namespace quorbind
