#pragma once

#include <string>
#include <vector>

namespace quorbind::testing {

/// Texts that are hard on names, keywords and identifiers. None holds an apostrophe, which no query
/// between such marks can look up.
inline std::vector<std::string> hardTexts() {
  return {"a & b",        "<tag>",    "say \"x\"",
          "]]>",          "&gt;",     "&amp;amp;",
          "&quote;",      "-->",      "##",
          "a##b",         "a  b",     "  blanks  ",
          "line\r\nline", "\ttab",    "目录 😀",
          "עברית",        "ÄÖÜß",     "e\u0301",
          "\x01\x02",     "\xFF\xFE", std::string(10'000, 'x'),
          "a;b,c",        "[1]",      "C:\\path/file"};
}

}  // namespace quorbind::testing
