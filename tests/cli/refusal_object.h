#pragma once

#include <string>
#include <string_view>

namespace quorbind::testing {

/// What a run with --json that only shows something answers where one critical box, whose text has
/// nothing to be escaped in it, says why it shows nothing. `expected` is what would be accepted
/// instead, where that is known.
inline std::string refusalObject(int status,
                                 std::string_view text,
                                 std::string_view expected = "") {
  const std::string advice =
      expected.empty() ? "" : ",\n      \"expected\": \"" + std::string(expected) + "\"";
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
         "      \"clipboard\": null" +
         advice +
         "\n"
         "    }\n"
         "  ],\n"
         "  \"note\": \"nothing was shown\"\n"
         "}\n";
}

}  // namespace quorbind::testing
