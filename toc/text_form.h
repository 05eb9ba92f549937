#pragma once

// The intermediate text form of a table of contents: what HTML pages and workbooks are exported to,
// and what the book XML generator reads. Line 1 is a header; in every further line each field
// stands between two markers, and neighbouring fields are a blank apart.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/file_system.h"
#include "platform/locale.h"

namespace quorbind::text_form {

inline constexpr std::string_view kMarker = "$@@$";
/// The FLinkValue of an entry that has none.
inline constexpr std::string_view kNoLink = "#NoLink#";
/// The BookLinkValue of an entry that can't be linked to from other books.
inline constexpr std::string_view kNoBookLink = "#NO_BOOKLINK#";

/// The extension of an HTML page in an upper-cased path.
inline constexpr std::string_view kHtmlExtension = ".HTM";

/// Where the fields are found in a line that was cut at every marker.
enum Piece : std::size_t {
  kLevel = 1,
  kName = 3,
  kFile = 5,
  kSubLink = 7,
  kFLinkValue = 9,
  kBookLinkValue = 11,
};

/// The fields of one entry.
struct Entry {
  std::int32_t level = 0;
  std::string_view name = {};
  std::string_view file = {};
  /// A bookmark with its `#`, or empty.
  std::string_view subLink = {};
  std::string_view fLinkValue = kNoLink;
  std::string_view bookLinkValue = kNoBookLink;
};

/// One line of the form, without its line end.
std::string lineOf(const Entry& entry);

/// The file that a table of contents is exported to: its upper-cased path with every `extension`
/// as `_Temp.txt`. Of a longer extension such as `.HTML` the last letter stays behind.
std::string exportPathOf(const Locale& locale, std::string_view tocPath, std::string_view extension);

/// The line that describes the book itself.
struct BookEntry {
  std::size_t line = 0;  ///< counted from 1; 0 for an empty file
  std::string text;      ///< with every `/` as `\`
};

/// Reads it: the last of the first three lines of the file. Raises what opening the file raises.
BookEntry readBookEntry(FileSystem& files, const Locale& locale, std::string_view path);

}  // namespace quorbind::text_form
