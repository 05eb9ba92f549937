#pragma once

#include "cli/arguments.h"
#include "cli/exit_status.h"

namespace quorbind {

/// Prints the catalogue of a library, or the headings of one of its books.
ExitStatus runShow(const ShowArguments& arguments);

}  // namespace quorbind
