#include "cli/html_text.h"

#include "platform/portable/visible_text.h"
#include "platform/text.h"

namespace quorbind {

namespace {

std::string_view replacementFor(char character) {
  switch (character) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\'':
      return "&#39;";
    default:
      return {};
  }
}

bool standsInLinks(char character) {
  constexpr std::string_view kOthers = "-._~";
  const bool isLetter =
      (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
  return isLetter || (character >= '0' && character <= '9') ||
         kOthers.find(character) != std::string_view::npos;
}

}  // namespace

std::string htmlText(std::string_view text) {
  std::string html;
  for (const char character : visibleText(text)) {
    const std::string_view replacement = replacementFor(character);
    html += replacement.empty() ? std::string_view(&character, 1) : replacement;
  }
  return html;
}

std::string isolatedText(std::string_view text) {
  return "<bdi>" + htmlText(text) + "</bdi>";
}

std::string linkPiece(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string link;
  for (const char character : text) {
    if (standsInLinks(character)) {
      link += character;
    } else {
      const auto byte = static_cast<unsigned char>(character);
      link.append("%").append(1, kDigits[byte >> 4U]).append(1, kDigits[byte & 0xFU]);
    }
  }
  return link;
}

std::string linkPath(std::string_view path) {
  const std::string separated = replaceAll(path, "\\", "/");
  std::string link;
  bool isFirst = true;
  for (const std::string_view piece : Pieces(separated, "/")) {
    link.append(isFirst ? "" : "/").append(linkPiece(piece));
    isFirst = false;
  }
  return link;
}

}  // namespace quorbind
