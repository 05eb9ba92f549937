#pragma once

#include <string>
#include <string_view>

namespace quorbind {

/// A text as it stands in an HTML page, between tags or in a quoted attribute: markup characters
/// are replaced, control characters written out (`\x1B`), and so are those that begin or end a
/// change of direction (`\u{202E}`): one that ends it would end the page's own.
std::string htmlText(std::string_view text);

/// The same for a text that comes from a file: set apart, so that its direction of writing ends
/// with it.
std::string isolatedText(std::string_view text);

/// A piece of a link, such as the name of a file: whatever has a meaning in a link is written as
/// `%XX`, and so is everything beyond ASCII.
std::string linkPiece(std::string_view text);

/// A path as a link: `\` and `/` separate its pieces.
std::string linkPath(std::string_view path);

}  // namespace quorbind
