#pragma once

#include <string>
#include <string_view>

namespace quorbind::testing {

/// What a run with --json that only shows something answers where one critical box, whose text has
/// nothing to be escaped in it, says why it shows nothing.
inline std::string refusalObject(int status, std::string_view text) {
  return "{\n"
         "  \"format\": 1,\n"
         "  \"status\": " +
         std::to_string(status) +
         ",\n"
         "  \"messages\": [\n"
         "    {\n"
         "      \"icon\": \"critical\",\n"
         "      \"title\": \"Quorbind\",\n"
         "      \"text\": \"" +
         std::string(text) +
         "\",\n"
         "      \"clipboard\": null\n"
         "    }\n"
         "  ],\n"
         "  \"note\": \"nothing was shown\"\n"
         "}\n";
}

}  // namespace quorbind::testing
