#pragma once

#include <functional>
#include <string_view>

#include "cli/toc_file.h"
#include "platform/platform.h"

namespace quorbind {

/// Writes the entries of a text table of contents in the form that both the check and the generator
/// read: each line holds the quoted fields, and behind them the same fields between marks. A
/// bookmark in a file name moves to the sub link where that is empty. Lines end with LF. The table
/// must be one that its survey accepted. One that can't be read is a CommandFailure, and so must a
/// failure of the sink be.
void writePreparedToc(const Platform& platform,
                      const TocFile& toc,
                      const std::function<void(std::string_view)>& sink);

}  // namespace quorbind
