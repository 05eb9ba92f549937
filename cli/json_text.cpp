#include "cli/json_text.h"

#include <iostream>
#include <nlohmann/json.hpp>

namespace quorbind {

// Texts come out of files and off the command line; one that is no valid UTF-8 must not end the
// report.
void printJson(const Json& members) {
  constexpr int kIndent = 2;
  Json object = {{"format", kJsonFormat}};
  object.update(members);
  std::cout << object.dump(kIndent, ' ', false, Json::error_handler_t::replace) << '\n';
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
