#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/text.h"
#include "tests/support/catalogue_text.h"

namespace quorbind::testing {

/// The lines of a list of categories, `depth` tabs deep.
inline std::string categoryLines(std::string_view element,
                                 const std::vector<std::string>& categories,
                                 int depth) {
  const std::string tabs(static_cast<std::size_t>(depth), '\t');
  if (categories.empty()) {
    return tabs + "<Book_Categories/>\n";
  }
  std::string lines = tabs + "<Book_Categories>\n";
  for (const std::string& category : categories) {
    lines +=
        tabs + "\t<" + std::string(element) + ">" + category + "</" + std::string(element) + ">\n";
  }
  return lines + tabs + "</Book_Categories>\n";
}

/// A book as its library has it.
struct BookCase {
  std::string name;
  std::string acronym;
  std::string link;
  std::vector<std::string> categories;
};

/// Its entry in a catalogue.
inline std::string entryOf(const BookCase& book) {
  std::string entry = bookEntry(book.name, book.acronym);
  entry = replaceAll(entry, "id=\"\"", "id=\"" + book.link + "\"");
  return replaceAll(
      entry, "\t\t\t<Book_Categories/>\n", categoryLines("Book_Category", book.categories, 3));
}

/// Its book XML file in UTF-8, as a save lays it out, but for its LF line ends.
inline std::string bookXmlOf(const BookCase& book) {
  return "<Book_Master>\n"
         "\t<Book>\n"
         "\t\t<Book_Name>" +
         book.name +
         "</Book_Name>\n"
         "\t\t<Book_Acro>" +
         book.acronym +
         "</Book_Acro>\n"
         "\t\t<Book_Key id=\"" +
         book.link + "\">Prod</Book_Key>\n" + categoryLines("Category", book.categories, 2) +
         "\t</Book>\n"
         "\t<Book_Headings/>\n"
         "</Book_Master>\n";
}

}  // namespace quorbind::testing
