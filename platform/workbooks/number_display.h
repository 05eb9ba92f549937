#pragma once

#include <string>

#include "platform/workbooks/format_code.h"

namespace quorbind {

/// A number as a cell without a format shows it: at most eleven characters and a sign, in powers of
/// ten where that is not enough.
std::string generalNumber(double value);

/// The size of `value` as a section without dates shows it; its sign is not shown.
std::string displayNumber(const FormatSection& section, double value);

}  // namespace quorbind
