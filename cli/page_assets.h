#pragma once

// What stands in a page besides the library: cli/view/page.css and cli/view/page.js, which the
// build puts into the command. A hash says to a browser which style and which script belong to the
// page; it refuses any other.

#include <string_view>

namespace quorbind::page_assets {

extern const std::string_view kStyle;
extern const std::string_view kScript;
/// As a Content-Security-Policy names them: `sha256-` and the hash in base 64.
extern const std::string_view kStyleHash;
extern const std::string_view kScriptHash;

}  // namespace quorbind::page_assets
