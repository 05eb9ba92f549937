#pragma once

#include <string>
#include <string_view>

namespace quorbind {

/// `value` between two `quote` characters, as a literal of an XPath query. A value that holds the
/// quote character itself raises kInvalidQueryError, so that no value ever widens a query.
std::string quotedForQuery(std::string_view value, char quote);

}  // namespace quorbind
