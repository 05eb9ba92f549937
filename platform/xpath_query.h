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

/// The query for those of the elements that `path` finds that have a child `child` with exactly the
/// text `value`. Raises as quotedForQuery does.
std::string elementsWith(std::string_view path,
                         std::string_view child,
                         std::string_view value,
                         char quote);

/// The query for the children of that name of all elements that `path` finds.
std::string childrenOf(std::string_view path, std::string_view child);

}  // namespace quorbind
