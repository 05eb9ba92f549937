#include "toolset/page_links.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

#include "platform/text.h"
#include "platform/text_encoding.h"

namespace quorbind {

namespace {

constexpr std::array<std::string_view, 2> kLinkAttributes{"src", "href"};
constexpr std::string_view kWhiteSpace = " \t\r\n\f";
constexpr std::string_view kEndOfUnquoted = " \t\r\n\f>";
constexpr std::string_view kQueryOrBookmark = "?#";
constexpr std::string_view kAmpersand = "&amp;";

bool isAsciiWordCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

/// Whether `c` is part of a name, so that what follows it is not a whole one: `data-src`,
/// `location.href`.
bool isInName(char c) {
  constexpr std::string_view kBetweenWords = "-_.:";
  return isAsciiWordCharacter(c) || kBetweenWords.find(c) != std::string_view::npos;
}

/// Whether the text before a `=` ends with the name of an attribute that links.
bool endsWithLinkAttribute(std::string_view text) {
  text = text.substr(0, text.find_last_not_of(kWhiteSpace) + 1);
  return std::any_of(kLinkAttributes.begin(), kLinkAttributes.end(), [text](std::string_view name) {
    return text.size() > name.size() && endsIgnoringAsciiCase(text, name) &&
           !isInName(text[text.size() - name.size() - 1]);
  });
}

struct AttributeValue {
  std::string_view text;
  bool isQuoted = false;
};

/// The value that begins the text behind a `=`; empty when its closing quote is missing.
AttributeValue valueIn(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kWhiteSpace), text.size()));
  const bool isQuoted = text.starts_with('"') || text.starts_with('\'');
  if (!isQuoted) {
    return {text.substr(0, text.find_first_of(kEndOfUnquoted)), isQuoted};
  }
  const std::size_t end = text.find(text.front(), 1);
  return {end == std::string_view::npos ? std::string_view() : text.substr(1, end - 1), isQuoted};
}

/// `text` with every `%` and two hexadecimal digits as the byte that they stand for.
std::string percentDecoded(std::string_view text) {
  constexpr std::size_t kEscapeLength = 3;
  std::string result;
  while (!text.empty()) {
    std::uint8_t byte = 0;
    const char* digits = text.data() + 1;
    const bool isEscape = text.front() == '%' && text.size() >= kEscapeLength &&
                          std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2;
    result.push_back(isEscape ? static_cast<char>(byte) : text.front());
    text.remove_prefix(isEscape ? kEscapeLength : 1);
  }
  return result;
}

/// The name that a link leads to; empty when it leads to a place in the page itself.
std::string nameIn(std::string_view value) {
  const std::string_view link = trimAnyOf(value, kWhiteSpace);
  const std::string_view name = link.substr(0, link.find_first_of(kQueryOrBookmark));
  return toValidUtf8(percentDecoded(replaceAll(name, kAmpersand, "&")));
}

}  // namespace

std::vector<std::string> linksIn(std::string_view page) {
  std::vector<std::string> links;
  std::size_t next = 0;
  std::size_t endOfUnquoted = 0;
  for (std::size_t equals = page.find('='); equals != std::string_view::npos;
       equals = page.find('=', next)) {
    next = equals + 1;
    if (!endsWithLinkAttribute(page.substr(endOfUnquoted, equals - endOfUnquoted))) {
      continue;
    }
    const AttributeValue value = valueIn(page.substr(next));
    // Without quotes to end them, values in values would add up to the square of the page.
    if (!value.isQuoted && !value.text.empty()) {
      next = endOfUnquoted = static_cast<std::size_t>(value.text.end() - page.begin());
    }
    std::string name = nameIn(value.text);
    if (!name.empty()) {
      links.push_back(std::move(name));
    }
  }
  return links;
}

}  // namespace quorbind
