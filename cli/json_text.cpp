#include "cli/json_text.h"

#include <iostream>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "platform/portable/visible_text.h"
#include "platform/text_encoding.h"

namespace quorbind {

namespace {

void appendEscaped(std::string& target, char32_t character) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  target += "\\u";
  for (const unsigned shift : {12U, 8U, 4U, 0U}) {
    target += kDigits[(character >> shift) & 0xFU];
  }
}

/// The same object with every character escaped that a terminal would obey; outside of its texts it
/// has none but line ends.
std::string showable(std::string_view json) {
  std::string result;
  result.reserve(json.size());
  while (!json.empty()) {
    const Utf8Character character = firstUtf8Character(json);
    if (isObeyed(character.codePoint) && character.codePoint != '\n') {
      appendEscaped(result, character.codePoint);
    } else {
      result.append(json, 0, character.length);
    }
    json.remove_prefix(character.length);
  }
  return result;
}

}  // namespace

// Texts come out of files and off the command line; one that is no valid UTF-8 must not end the
// report.
void printJson(const Json& members) {
  constexpr int kIndent = 2;
  Json object = {{"format", kJsonFormat}};
  object.update(members);
  std::cout << showable(object.dump(kIndent, ' ', false, Json::error_handler_t::replace)) << '\n';
}

Json toJson(const std::vector<ShownMessage>& messages) {
  Json list = Json::array();
  for (const ShownMessage& message : messages) {
    list.push_back({{"icon", wordFor(message.icon)},
                    {"title", message.title},
                    {"text", message.text},
                    {"clipboard", message.clipboard ? Json(*message.clipboard) : Json(nullptr)}});
  }
  return list;
}

}  // namespace quorbind
