#pragma once

#include <cstdint>
#include <string_view>

#include "workflow/forms/module.h"

namespace quorbind {

/// Whether `path` may be a table of contents of kind `vintType`, by its name alone. False after the
/// user was told why not.
bool bCheckForValidInput(Module& module, std::string_view path, std::int16_t vintType);

}  // namespace quorbind
