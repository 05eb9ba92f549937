#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/paths.h"
#include "platform/text.h"

// The names in a server's two lists, written down once: docs/formats/ tells what they hold.

namespace quorbind {

/// How a documentation server's folder is laid out.
namespace server_names {
/// What the names of the server's and the libraries' own files begin with.
inline constexpr std::string_view kFilePrefix = "Quor_";
inline constexpr std::string_view kDocsFolder = "Docs";
inline constexpr std::string_view kSelectionFile = "Quor_Selection.xml";
inline constexpr std::string_view kDefaultCategoriesFile = "Quor_DefaultCategories.xml";

/// The short names that Windows gives to the files of that prefix: `QUOR_T~1.XML`, or with a number
/// made of the long name, `QU3F2A~1.XML`.
inline constexpr std::string_view kShortPrefix = "QU";
inline constexpr std::size_t kLongestShortName = 12;

/// Whether a file of that name is one of those that a server and its libraries keep their books in,
/// or may be taken for one by Windows. A book's folder can be the library's own, and nothing of a
/// book may take the place of the catalogue.
inline bool isLibraryFile(std::string_view name) {
  const std::string_view own = withoutDotsAtEnd(fileNameOf(name));
  const bool mayBeShort = own.size() <= kLongestShortName &&
                          startsIgnoringAsciiCase(own, kShortPrefix) && contains(own, "~");
  return (mayBeShort || startsIgnoringAsciiCase(own, kFilePrefix)) &&
         endsIgnoringAsciiCase(own, ".xml");
}
}  // namespace server_names

/// A library's master catalogue.
namespace catalogue_names {
inline constexpr std::string_view kFile = "Quor_TOC.xml";
inline constexpr std::string_view kMaster = "Quor_Master";
inline constexpr std::string_view kBooks = "Quor_Books";
inline constexpr std::string_view kBook = "Book";
inline constexpr std::string_view kName = "Book_Name";
inline constexpr std::string_view kAcro = "Book_Acro";
inline constexpr std::string_view kKey = "Book_Key";
inline constexpr std::string_view kKeyId = "id";
inline constexpr std::string_view kFolder = "Book_Folder";
inline constexpr std::string_view kBookFile = "Book_File";
inline constexpr std::string_view kBookFileType = "type";
inline constexpr std::string_view kCategories = "Book_Categories";
inline constexpr std::string_view kCategory = "Book_Category";
inline constexpr std::string_view kBooksPath = "Quor_Master/Quor_Books";
inline constexpr std::string_view kBookPath = "Quor_Master/Quor_Books/Book";

/// Whether the folder, or the file, that an entry states for its book stays below the folder that
/// it is put behind. A file that leads elsewhere counts as missing and is never looked for. An
/// empty folder is the library's own.
inline bool staysInLibrary(std::string_view stated) {
  return stated.empty() || nameBelow(stated);
}
}  // namespace catalogue_names

/// The list of a server's libraries.
namespace selection_names {
inline constexpr std::string_view kList = "Quor_Selection_List";
inline constexpr std::string_view kQuors = "Quors";
inline constexpr std::string_view kQuor = "Quor";
inline constexpr std::string_view kName = "Quor_Name";
inline constexpr std::string_view kLocation = "Quor_Location";
inline constexpr std::string_view kQuorPath = "Quor_Selection_List/Quors/Quor";
}  // namespace selection_names

}  // namespace quorbind
