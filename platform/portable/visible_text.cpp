#include "platform/portable/visible_text.h"

#include "platform/text_encoding.h"

namespace quorbind {

namespace {

constexpr char kDelete = 0x7F;
constexpr std::string_view kHexadecimalDigits = "0123456789ABCDEF";
/// The first byte of the two that stand for U+0080 to U+009F, the upper control characters.
constexpr char kUpperControlLead = '\xC2';

unsigned char byteOf(char character) {
  return static_cast<unsigned char>(character);
}

bool isLowerControl(char character) {
  return (byteOf(character) < 0x20 && character != '\t') || character == kDelete;
}

bool isUpperControl(std::string_view rest) {
  return rest.size() > 1 && rest[0] == kUpperControlLead && byteOf(rest[1]) < 0xA0;
}

/// Embeddings, overrides and isolates of direction, and the separators of lines and paragraphs.
bool rearranges(char32_t character) {
  return (character >= 0x2028 && character <= 0x202E) ||
         (character >= 0x2066 && character <= 0x2069);
}

/// The first byte of all of these.
constexpr char kRearrangingLead = '\xE2';

void appendCode(std::string& target, char control) {
  const unsigned char code = byteOf(control);
  target.append("\\x")
      .append(1, kHexadecimalDigits[code >> 4U])
      .append(1, kHexadecimalDigits[code & 0xFU]);
}

std::string visibleLine(std::string_view line) {
  if (line.size() <= kLongestVisibleLine) {
    return visibleText(line);
  }
  std::size_t shown = kLongestVisibleLine;
  while (shown > 0 && isInsideCharacter(line[shown])) {
    --shown;
  }
  return visibleText(line.substr(0, shown)) + "... (" + std::to_string(line.size() - shown) +
         " more bytes)";
}

}  // namespace

bool isObeyed(char32_t character) {
  const bool isControl = character < 0x20 || (character >= 0x7F && character < 0xA0);
  return (isControl && character != '\t') || rearranges(character);
}

std::string visibleText(std::string_view text) {
  const std::string valid = toValidUtf8(text);
  std::string result;
  result.reserve(valid.size());
  for (std::size_t i = 0; i < valid.size(); ++i) {
    if (isLowerControl(valid[i])) {
      appendCode(result, valid[i]);
    } else if (isUpperControl(std::string_view(valid).substr(i))) {
      appendCode(result, valid[++i]);
    } else if (valid[i] == kRearrangingLead) {
      const Utf8Character character = firstUtf8Character(std::string_view(valid).substr(i));
      result += rearranges(character.codePoint) ? writtenOut(character.codePoint)
                                                : valid.substr(i, character.length);
      i += character.length - 1;
    } else {
      result += valid[i];
    }
  }
  return result;
}

std::string writtenOut(char32_t character) {
  std::string code;
  for (char32_t rest = character; rest > 0; rest >>= 4U) {
    code.insert(code.begin(), kHexadecimalDigits[rest & 0xFU]);
  }
  return "\\u{" + code + "}";
}

std::string visibleLines(std::string_view text) {
  std::string result;
  for (;;) {
    const std::size_t end = text.find_first_of("\r\n");
    result += visibleLine(text.substr(0, end));
    if (end == std::string_view::npos) {
      return result;
    }
    result += '\n';
    text.remove_prefix(end + (text.substr(end, 2) == "\r\n" ? 2 : 1));
  }
}

}  // namespace quorbind
