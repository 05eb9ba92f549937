#include "platform/text.h"

#include <algorithm>

#include "platform/runtime_error.h"

namespace quorbind {

namespace {

char upperAscii(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
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

Pieces::Pieces(std::string_view text, std::string_view separator) {
  // Enough for a line of a table of contents, so that it takes one allocation.
  constexpr std::size_t kUsualCount = 16;
  if (text.empty()) {
    return;
  }
  pieces_.reserve(kUsualCount);
  std::size_t start = 0;
  for (std::size_t found = text.find(separator); found != std::string_view::npos;
       found = text.find(separator, start)) {
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

std::size_t countPieces(std::string_view text, std::string_view separator) {
  if (text.empty()) {
    return 0;
  }
  std::size_t count = 1;
  for (std::size_t found = text.find(separator); found != std::string_view::npos;
       found = text.find(separator, found + separator.size())) {
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

std::size_t findIgnoringAsciiCase(std::string_view text,
                                  std::string_view part,
                                  std::size_t from) {
  if (from > text.size()) {
    return std::string_view::npos;
  }
  const auto start = text.begin() + static_cast<std::ptrdiff_t>(from);
  const auto found = std::search(start, text.end(), part.begin(), part.end(), [](char a, char b) {
    return upperAscii(a) == upperAscii(b);
  });
  return found == text.end() ? std::string_view::npos
                             : static_cast<std::size_t>(found - text.begin());
}

}  // namespace quorbind
