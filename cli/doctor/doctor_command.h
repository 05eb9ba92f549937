#pragma once

#include <optional>
#include <string>

#include "cli/exit_status.h"

namespace quorbind {

struct DoctorArguments {
  std::string server;
  /// All libraries of the server without.
  std::optional<std::string> library;
  bool json = false;
};

/// Examines libraries of a server and tells what is wrong with them. An error: refused.
ExitStatus runDoctor(const DoctorArguments& arguments);

}  // namespace quorbind
