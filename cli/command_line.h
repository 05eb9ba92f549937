#pragma once

#include <variant>

#include "cli/exit_status.h"
#include "cli/task.h"

namespace quorbind {

/// Reads the command line. The exit status instead when there is nothing left to do: help was asked
/// for and given, or the command line is wrong and the user was told.
std::variant<Task, ExitStatus> readCommandLine(int count, const char* const* arguments);

}  // namespace quorbind
