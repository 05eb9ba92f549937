#pragma once

#include <string>
#include <string_view>

#include "platform/text.h"

namespace quorbind::book_names {

// The names in a book XML file, written down once: docs/formats/book-xml.md tells what they hold.

inline constexpr std::string_view kFilePrefix = "Book_";
inline constexpr std::string_view kFileExtension = ".xml";
inline constexpr std::string_view kMaster = "Book_Master";
inline constexpr std::string_view kBook = "Book";
inline constexpr std::string_view kName = "Book_Name";
inline constexpr std::string_view kAcro = "Book_Acro";
inline constexpr std::string_view kKey = "Book_Key";
inline constexpr std::string_view kKeyId = "id";
inline constexpr std::string_view kPath = "Book_Path";
inline constexpr std::string_view kBuildDate = "Book_BuildDate";
inline constexpr std::string_view kBookFile = "Book_File";
inline constexpr std::string_view kType = "type";
inline constexpr std::string_view kCategories = "Book_Categories";
inline constexpr std::string_view kCategory = "Category";
inline constexpr std::string_view kHeadings = "Book_Headings";
inline constexpr std::string_view kHeading = "Heading";
inline constexpr std::string_view kLevel = "level";
inline constexpr std::string_view kHeadingName = "HName";
inline constexpr std::string_view kFLinkValue = "FLinkValue";
inline constexpr std::string_view kHeadingFile = "HFile";
inline constexpr std::string_view kBookMark = "BookMark";
inline constexpr std::string_view kBookPath = "Book_Master/Book";

// Where what describes the book stands, as queries.
inline constexpr std::string_view kNamePath = "Book_Master/Book/Book_Name";
inline constexpr std::string_view kAcroPath = "Book_Master/Book/Book_Acro";
inline constexpr std::string_view kKeyPath = "Book_Master/Book/Book_Key";
inline constexpr std::string_view kPathPath = "Book_Master/Book/Book_Path";

/// The name of the book XML file of the book with that acronym.
inline std::string fileOf(std::string_view acronym) {
  return std::string(kFilePrefix).append(acronym).append(kFileExtension);
}

/// Whether the name is that of an XML file. As with a table of contents, the extension counts
/// wherever it stands, so that a `pumps.xml.bak` is one, and a page `pumps.xml.htm` as well.
inline bool isXmlFile(std::string_view name) {
  return findIgnoringAsciiCase(name, kFileExtension) != std::string_view::npos;
}

/// Whether the name is that of a page.
inline bool isPage(std::string_view name) {
  return endsIgnoringAsciiCase(name, ".htm") || endsIgnoringAsciiCase(name, ".html");
}

/// Whether a file of that name may be a book XML file, which no page is.
inline bool mayBeFile(std::string_view name) {
  return isXmlFile(name) && !isPage(name);
}

}  // namespace quorbind::book_names
