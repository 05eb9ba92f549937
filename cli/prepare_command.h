#pragma once

#include "cli/arguments.h"
#include "cli/exit_status.h"

namespace quorbind {

/// Writes a text table of contents in the form that can be checked and converted.
ExitStatus runPrepare(const PrepareArguments& arguments);

}  // namespace quorbind
