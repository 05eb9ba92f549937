#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace quorbind::testing {

/// A categories file in UTF-8 as a save lays it out, but for its LF line ends.
inline std::string categoriesWith(std::string_view categories) {
  return "<BookSet_Categories>\n" + std::string(categories) + "</BookSet_Categories>\n";
}

/// One category of it, with the acronyms given.
inline std::string category(std::string_view name,
                            std::initializer_list<std::string_view> acronyms = {}) {
  std::string text = "\t<Category>\n\t\t<CategoryName>" + std::string(name) + "</CategoryName>\n";
  for (const std::string_view acronym : acronyms) {
    text += "\t\t<BookAcro>" + std::string(acronym) + "</BookAcro>\n";
  }
  return text + "\t</Category>\n";
}

}  // namespace quorbind::testing
