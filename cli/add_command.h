#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/arguments.h"
#include "cli/exit_status.h"

namespace quorbind {

/// What is added, and with which flags: those of the command line are for every table of contents,
/// whose own name is filled in for each.
struct AddRequest : AddArguments {
  std::vector<std::string> tocs;
  /// A file that names the tables of contents instead.
  std::optional<std::string> job;
  bool stopsAtFirst = false;
};

/// Adds books to a library and reports how that ended.
ExitStatus runAdd(const AddRequest& request);

}  // namespace quorbind
