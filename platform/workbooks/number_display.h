#pragma once

#include <string>

#include "platform/workbooks/format_code.h"

namespace quorbind {

/// The size of `value` as a section without dates shows it; its sign is not shown.
std::string displayNumber(const FormatSection& section, double value);

}  // namespace quorbind
