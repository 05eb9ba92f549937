#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace quorbind::testing {

/// A keywords file in UTF-8 as a save lays it out, but for its LF line ends.
inline std::string keywordsWith(std::string_view books) {
  return "<Books>\n" + std::string(books) + "</Books>\n";
}

/// The keywords of one book in it.
inline std::string keywordsOf(std::string_view book,
                              std::initializer_list<std::string_view> words) {
  std::string text = "\t<Book Book_Name=\"" + std::string(book) + "\">\n\t\t<Keywords>\n";
  for (const std::string_view word : words) {
    text += "\t\t\t<Keyword>" + std::string(word) + "</Keyword>\n";
  }
  return text + "\t\t</Keywords>\n\t</Book>\n";
}

}  // namespace quorbind::testing
