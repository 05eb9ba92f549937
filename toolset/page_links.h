#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorbind {

/// What the `src` and `href` attributes of an HTML page name, in the order of the page: relative
/// and absolute names alike, without query and bookmark, and with what is written as `&amp;` or
/// `%20` turned back into its character. Values that name only a bookmark are left out.
///
/// The page is not parsed. Whatever looks like one of these attributes counts, in any letter case
/// and with either quote or none, also inside a comment, a script or a quoted value.
std::vector<std::string> linksIn(std::string_view page);

}  // namespace quorbind
