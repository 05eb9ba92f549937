#pragma once

#include <string>
#include <string_view>

namespace quorbind::testing {

/// A master catalogue, in UTF-8, laid out as a save lays it out but for its LF line ends.
inline std::string catalogueWith(std::string_view books) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
         "<Quor_Master>\n"
         "\t<Quor_Books>\n" +
         std::string(books) +
         "\t</Quor_Books>\n"
         "</Quor_Master>\n";
}

inline std::string bookEntry(std::string_view name, std::string_view acronym) {
  return "\t\t<Book>\n"
         "\t\t\t<Book_Name>" +
         std::string(name) +
         "</Book_Name>\n"
         "\t\t\t<Book_Acro>" +
         std::string(acronym) +
         "</Book_Acro>\n"
         "\t\t\t<Book_Key id=\"\">Prod</Book_Key>\n"
         "\t\t\t<Book_Folder>Manual</Book_Folder>\n"
         "\t\t\t<Book_File>Book_" +
         std::string(acronym) +
         ".xml</Book_File>\n"
         "\t\t\t<Book_Categories/>\n"
         "\t\t</Book>\n";
}

}  // namespace quorbind::testing
