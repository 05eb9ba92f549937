#pragma once

#include "cli/arguments.h"
#include "cli/exit_status.h"

namespace quorbind {

/// Makes the files of a library that are not there yet.
ExitStatus runInit(const InitArguments& arguments);

}  // namespace quorbind
