#include "platform/filled_text.h"

#include <algorithm>
#include <stdexcept>

namespace quorbind {

namespace {

const std::string& valueOf(std::string_view word, const TextWords& words) {
  const auto found = std::find_if(
      words.begin(), words.end(), [word](const auto& entry) { return entry.first == word; });
  if (found == words.end()) {
    throw std::logic_error("a text does not tell its " + std::string(word));
  }
  return found->second;
}

}  // namespace

std::string filledText(std::string_view text, const TextWords& words) {
  std::string result;
  while (true) {
    const std::size_t begin = text.find('{');
    result += text.substr(0, begin);
    if (begin == std::string_view::npos) {
      return result;
    }
    const std::size_t end = text.find('}', begin);
    result += valueOf(text.substr(begin + 1, end - begin - 1), words);
    text.remove_prefix(end + 1);
  }
}

}  // namespace quorbind
