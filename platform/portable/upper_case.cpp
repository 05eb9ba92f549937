#include "platform/portable/upper_case.h"

#include <unicode/uchar.h>

#include "platform/text.h"
#include "platform/text_encoding.h"

namespace quorbind {

std::string simpleUpperCase(std::string_view text) {
  if (isAscii(text)) {
    return upperCaseAscii(text);
  }
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const Utf8Character character = firstUtf8Character(text);
    if (character.length == 0) {
      result.push_back(text.front());
      text.remove_prefix(1);
    } else {
      const UChar32 upper = u_toupper(static_cast<UChar32>(character.codePoint));
      appendUtf8(result, static_cast<char32_t>(upper));
      text.remove_prefix(character.length);
    }
  }
  return result;
}

}  // namespace quorbind
