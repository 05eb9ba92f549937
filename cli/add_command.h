#pragma once

#include "cli/arguments.h"
#include "cli/exit_status.h"

namespace quorbind {

/// Adds a book to a library and reports how that ended.
ExitStatus runAdd(const AddArguments& arguments);

}  // namespace quorbind
