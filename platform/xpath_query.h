#pragma once

#include <string>
#include <string_view>

namespace quorbind {

/// Raises kInvalidQueryError for a value that holds the quote character between which it would
/// stand in a query, so that no value ever widens a query, and for one with a character that XML
/// can't hold: no document has it.
void requireFitsQuery(std::string_view value, char quote);

/// `value` between two `quote` characters, as a literal of an XPath query. Raises as
/// requireFitsQuery does.
std::string quotedForQuery(std::string_view value, char quote);

}  // namespace quorbind
