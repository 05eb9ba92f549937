#pragma once

#include <string>
#include <string_view>

namespace quorbind::testing {

/// A file of link identifiers in UTF-8 as a save lays it out, but for its LF line ends.
inline std::string linksWith(std::string_view identifiers) {
  if (identifiers.empty()) {
    return "<LINKS>\n\t<IBD/>\n</LINKS>\n";
  }
  return "<LINKS>\n\t<IBD>\n" + std::string(identifiers) + "\t</IBD>\n</LINKS>\n";
}

/// One entry of it.
inline std::string link(std::string_view identifier,
                        std::string_view fullLink,
                        std::string_view source,
                        std::string_view acronym) {
  const auto field = [](std::string_view name, std::string_view text) {
    return "\t\t\t<" + std::string(name) + ">" + std::string(text) + "</" + std::string(name) +
           ">\n";
  };
  return "\t\t<ID>\n" + field("LinkID", identifier) + field("FullLink", fullLink) +
         field("LinkIDSourceFile", source) + field("BookAcro", acronym) + "\t\t</ID>\n";
}

}  // namespace quorbind::testing
