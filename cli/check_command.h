#pragma once

#include "cli/arguments.h"
#include "cli/exit_status.h"

namespace quorbind {

/// Holds a table of contents against the rules and looks for the documents that it names. Writes
/// nothing but its report.
ExitStatus runCheck(const CheckArguments& arguments);

}  // namespace quorbind
