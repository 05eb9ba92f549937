#pragma once

#include <functional>
#include <string_view>

#include "platform/platform.h"

namespace quorbind {

/// Writes the entries of the text table of contents at `path` in the form that both the check and
/// the generator read: each line holds the quoted fields, and behind them the same fields between
/// marks. A bookmark in a file name moves to the sub link where that is empty. Lines end with LF.
/// The table must be one that its survey accepted. Raises what reading it raises.
void writePreparedToc(const Platform& platform,
                      std::string_view path,
                      const std::function<void(std::string_view)>& sink);

}  // namespace quorbind
