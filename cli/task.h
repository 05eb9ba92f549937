#pragma once

#include <functional>

#include "cli/exit_status.h"

namespace quorbind {

/// What a command line asks for: a subcommand with its arguments, ready to run.
struct Task {
  std::function<ExitStatus()> run;
  /// Whether its end is to be told as one JSON object.
  bool json = false;
};

}  // namespace quorbind
