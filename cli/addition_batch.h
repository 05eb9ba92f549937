#pragma once

#include <string>
#include <vector>

#include "cli/arguments.h"
#include "cli/exit_status.h"

namespace quorbind {

/// Adds several tables of contents, one after the other, each as if it were added by a process of
/// its own, and reports how that ended. One that fails stops the others only where `stopsAtFirst`;
/// the status is that of the first that failed.
ExitStatus addAll(const std::vector<AddArguments>& additions, bool stopsAtFirst, bool json);

}  // namespace quorbind
