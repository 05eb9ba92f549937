#include "platform/text.h"

#include <algorithm>

#include "platform/runtime_error.h"

namespace quorbind {

namespace {

/// The library's search for a text compares it once more where its first character has been found.
std::size_t findSeparator(std::string_view text, std::string_view separator, std::size_t from) {
  return separator.size() == 1 ? text.find(separator.front(), from) : text.find(separator, from);
}

}  // namespace

std::string_view trimBlanks(std::string_view text) {
  return trimAnyOf(text, " ");
}

std::string_view trimAnyOf(std::string_view text, std::string_view characters) {
  const std::size_t first = text.find_first_not_of(characters);
  if (first == std::string_view::npos) {
    return {};
  }
  return text.substr(first, text.find_last_not_of(characters) - first + 1);
}

void Pieces::split(std::string_view text, std::string_view separator) {
  // Enough for a line of a table of contents, so that it takes one allocation.
  constexpr std::size_t kUsualCount = 16;
  pieces_.clear();
  if (text.empty()) {
    return;
  }
  pieces_.reserve(kUsualCount);
  std::size_t start = 0;
  for (std::size_t found = findSeparator(text, separator, 0); found != std::string_view::npos;
       found = findSeparator(text, separator, start)) {
    pieces_.push_back(text.substr(start, found - start));
    start = found + separator.size();
  }
  pieces_.push_back(text.substr(start));
}

std::string_view Pieces::at(std::size_t index) const {
  if (index >= pieces_.size()) {
    raise(ErrorNumber::kSubscriptOutOfRange);
  }
  return pieces_[index];
}

std::string_view Pieces::last() const {
  if (pieces_.empty()) {
    raise(ErrorNumber::kSubscriptOutOfRange);
  }
  return pieces_.back();
}

Pieces listEntries(std::string_view list) {
  return {list, contains(list, ";") ? ";" : ","};
}

std::size_t countPieces(std::string_view text, std::string_view separator) {
  if (text.empty()) {
    return 0;
  }
  std::size_t count = 1;
  for (std::size_t found = findSeparator(text, separator, 0); found != std::string_view::npos;
       found = findSeparator(text, separator, found + separator.size())) {
    ++count;
  }
  return count;
}

bool contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

bool containsAnyOf(std::string_view text, std::string_view characters) {
  return text.find_first_of(characters) != std::string_view::npos;
}

std::string replaceAll(std::string_view text, std::string_view from, std::string_view to) {
  std::string result;
  result.reserve(text.size());
  std::size_t start = 0;
  for (std::size_t found = text.find(from); found != std::string_view::npos;
       found = text.find(from, start)) {
    result.append(text, start, found - start).append(to);
    start = found + from.size();
  }
  return result.append(text, start);
}

std::string upperCaseAscii(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), upperAscii);
  return result;
}

bool equalIgnoringAsciiCase(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(), [](char a, char b) {
    return upperAscii(a) == upperAscii(b);
  });
}

bool startsIgnoringAsciiCase(std::string_view text, std::string_view beginning) {
  return equalIgnoringAsciiCase(text.substr(0, beginning.size()), beginning);
}

bool endsIgnoringAsciiCase(std::string_view text, std::string_view ending) {
  return text.size() >= ending.size() &&
         equalIgnoringAsciiCase(text.substr(text.size() - ending.size()), ending);
}

std::size_t findIgnoringAsciiCase(std::string_view text, std::string_view part, std::size_t from) {
  if (from > text.size()) {
    return std::string_view::npos;
  }
  const std::string_view searched = text.substr(from);
  const auto matches = [](char a, char b) { return upperAscii(a) == upperAscii(b); };
  const auto* const found =
      std::search(searched.begin(), searched.end(), part.begin(), part.end(), matches);
  return found == searched.end() ? std::string_view::npos
                                 : from + static_cast<std::size_t>(found - searched.begin());
}

}  // namespace quorbind
