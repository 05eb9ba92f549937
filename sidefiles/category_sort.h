#pragma once

#include <cstdint>

#include "platform/platform.h"
#include "platform/text_array.h"

namespace quorbind {

/// Sorts the names without regard to letter case, equal ones in their order, moves the acronyms
/// with them, and answers a copy of the acronyms.
///
/// The indices count as the caller's: those from 1 to the names' upper bound less their lower bound
/// are sorted, so that in an array from 0 the placeholder stays in front. Errors are ignored step
/// by step, and none is ever shown: an exchange that one of the arrays is too short for does not
/// take place there. `ivalue` is not used.
TextArray SortArray(const Platform& platform,
                    TextArray& rarrsBookNames,
                    TextArray& rarrsBookAcros,
                    std::int16_t ivalue = 0);

}  // namespace quorbind
