#include "cli/json_text.h"

#include <iostream>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <utility>

#include "cli/message_story.h"
#include "platform/portable/visible_text.h"
#include "platform/text.h"
#include "platform/text_encoding.h"

namespace quorbind {

namespace {

constexpr std::size_t kIndent = 2;

std::string escaped(char32_t character) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string escape = "\\u";
  for (const unsigned shift : {12U, 8U, 4U, 0U}) {
    escape += kDigits[(character >> shift) & 0xFU];
  }
  return escape;
}

/// Every character that a terminal would obey is escaped; outside of its texts an object has none
/// but line ends.
void printShowable(std::string_view json) {
  std::size_t plain = 0;
  while (plain < json.size()) {
    const Utf8Character character = firstUtf8Character(json.substr(plain));
    if (isObeyed(character.codePoint) && character.codePoint != '\n') {
      std::cout << json.substr(0, plain) << escaped(character.codePoint);
      json.remove_prefix(plain + character.length);
      plain = 0;
    } else {
      plain += character.length;
    }
  }
  std::cout << json;
}

// Texts come out of files and off the command line; one that is no valid UTF-8 must not end the
// report.
std::string textOf(const Json& json) {
  return json.dump(static_cast<int>(kIndent), ' ', false, Json::error_handler_t::replace);
}

/// As it stands in the list of a member of the object. A text has no line ends of its own.
std::string textOfEntry(const Json& entry) {
  const std::string lineStart = "\n" + std::string(2 * kIndent, ' ');
  return lineStart + replaceAll(textOf(entry), "\n", lineStart);
}

void printList(const LongList& list) {
  std::cout << '[';
  for (std::size_t number = 0; number < list.size; ++number) {
    printShowable((number == 0 ? "" : ",") + textOfEntry(list.entry(number)));
  }
  std::cout << (list.size == 0 ? "]" : "\n" + std::string(kIndent, ' ') + "]");
}

}  // namespace

void printJson(Json members) {
  printJson(std::move(members), {});
}

void printJson(Json members, const std::vector<LongList>& lists) {
  Json object = {{"format", kJsonFormat}};
  for (auto member = members.begin(); member != members.end(); ++member) {
    object[member.key()] = std::move(member.value());
  }
  const std::string text = textOf(object);
  std::string_view rest = text;
  for (const LongList& list : lists) {
    constexpr std::string_view kPlaceholder = "null";
    // What stands deeper is indented more.
    const std::string before =
        "\n" + std::string(kIndent, ' ') + "\"" + std::string(list.member) + "\": ";
    const std::size_t at = rest.find(before + std::string(kPlaceholder)) + before.size();
    printShowable(rest.substr(0, at));
    printList(list);
    rest.remove_prefix(at + kPlaceholder.size());
  }
  printShowable(rest);
  std::cout << '\n';
}

Json toJson(const std::vector<ShownMessage>& messages) {
  Json list = Json::array();
  for (const ShownMessage& message : messages) {
    Json object = {{"icon", wordFor(message.icon)},
                   {"title", message.title},
                   {"text", message.text},
                   {"clipboard", message.clipboard ? Json(*message.clipboard) : Json(nullptr)}};
    if (const std::string_view accepted = acceptedInsteadOf(message.text); !accepted.empty()) {
      object["expected"] = accepted;
    }
    list.push_back(std::move(object));
  }
  return list;
}

}  // namespace quorbind
