#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/platform.h"

namespace quorbind {

/// Between the identifier and the document in a book-link field.
inline constexpr std::string_view kBookLinkSeparator = "@@@";

/// The link identifier that stands between `<IBD>` and `</IBD>`, in any letter case, with one more
/// character on each side of it. Nothing without both tags. A single character between them raises
/// 5.
std::optional<std::string> linkIdentifierIn(std::string_view anchorText);

/// The book-link field of an entry in the intermediate text form, from the anchor that the entry
/// stands in: identifier, separator and the document that it is found in. No identifier:
/// text_form::kNoBookLink. After an error, which is told, the answer is empty.
///
/// `curFile` and `curBookMark` are the document of the current entry and `#` with its bookmark, as
/// the path check left them.
std::string mstrCheckBookLink(const Platform& platform,
                              std::string_view anchorText,
                              std::string_view curFile,
                              std::string_view curBookMark);

}  // namespace quorbind
