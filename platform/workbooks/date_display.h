#pragma once

#include <optional>
#include <string>

#include "platform/workbooks/format_code.h"

namespace quorbind {

/// Which day a workbook counts its dates from.
enum class DateSystem {
  kFrom1900,  ///< 1 is the first of January 1900, and that year has a 29th of February
  kFrom1904,  ///< 0 is the first of January 1904
};

/// The moment `serial`, in days and parts of one, as a section of dates shows it, in English.
/// Nothing for a moment before the first day or after the year 9999, which no cell can show.
std::optional<std::string> displayDate(const FormatSection& section,
                                       double serial,
                                       DateSystem system);

}  // namespace quorbind
