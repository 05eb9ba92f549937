#include "platform/portable/text_cells.h"

#include <unicode/uchar.h>

#include <utility>

#include "platform/portable/visible_text.h"
#include "platform/text_encoding.h"

namespace quorbind {

namespace {

TextCell asItIsShown(std::string shown) {
  const std::size_t width = shown.size();
  return {std::move(shown), width};
}

TextCell cellOf(std::string_view bytes, char32_t character) {
  const auto code = static_cast<UChar32>(character);
  switch (u_charType(code)) {
    case U_CONTROL_CHAR:
      return character == U'\t' ? asItIsShown(std::string(kTabWidth, ' '))
                                : asItIsShown(visibleText(bytes));
    case U_FORMAT_CHAR:
    case U_LINE_SEPARATOR:
    case U_PARAGRAPH_SEPARATOR:
      return asItIsShown(writtenOut(character));
    case U_NON_SPACING_MARK:
    case U_ENCLOSING_MARK:
      return {std::string(bytes), 0};
    default:
      break;
  }
  const int width = u_getIntPropertyValue(code, UCHAR_EAST_ASIAN_WIDTH);
  const bool isWide = width == U_EA_WIDE || width == U_EA_FULLWIDTH;
  return {std::string(bytes), isWide ? 2U : 1U};
}

}  // namespace

std::string writtenOut(char32_t character) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string code;
  for (char32_t rest = character; rest > 0; rest >>= 4U) {
    code.insert(code.begin(), kDigits[rest & 0xFU]);
  }
  return "\\u{" + code + "}";
}

std::vector<TextCell> cellsOf(std::string_view text) {
  const std::string valid = toValidUtf8(text);
  std::vector<TextCell> cells;
  for (std::string_view rest = valid; !rest.empty();) {
    const Utf8Character character = firstUtf8Character(rest);
    cells.push_back(cellOf(rest.substr(0, character.length), character.codePoint));
    rest.remove_prefix(character.length);
  }
  return cells;
}

}  // namespace quorbind
