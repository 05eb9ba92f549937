#include "platform/portable/text_cells.h"

#include <unicode/uchar.h>

#include <utility>

#include "platform/portable/visible_text.h"
#include "platform/text_encoding.h"

namespace quorbind {

namespace {

/// `text` is valid UTF-8.
template <typename Visitor>
void forEachCharacter(std::string_view text, Visitor&& visit) {
  while (!text.empty()) {
    const Utf8Character character = firstUtf8Character(text);
    visit(text.substr(0, character.length), character.codePoint);
    text.remove_prefix(character.length);
  }
}

TextCell asItIsShown(std::string shown) {
  const std::size_t width = shown.size();
  return {std::move(shown), width};
}

/// Of a character that is shown as it is.
std::size_t widthOf(UChar32 character) {
  switch (u_charType(character)) {
    case U_NON_SPACING_MARK:
    case U_ENCLOSING_MARK:
    case U_FORMAT_CHAR:
      return 0;
    default:
      break;
  }
  const int width = u_getIntPropertyValue(character, UCHAR_EAST_ASIAN_WIDTH);
  return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
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
    default:
      break;
  }
  return {std::string(bytes), widthOf(code)};
}

}  // namespace

std::vector<TextCell> cellsOf(std::string_view text) {
  const std::string valid = toValidUtf8(text);
  std::vector<TextCell> cells;
  forEachCharacter(valid, [&](std::string_view bytes, char32_t character) {
    cells.push_back(cellOf(bytes, character));
  });
  return cells;
}

std::size_t columnsOf(std::string_view text) {
  std::size_t columns = 0;
  forEachCharacter(text, [&](std::string_view /*bytes*/, char32_t character) {
    columns += widthOf(static_cast<UChar32>(character));
  });
  return columns;
}

}  // namespace quorbind
