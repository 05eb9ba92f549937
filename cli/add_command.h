#pragma once

#include <functional>
#include <optional>
#include <set>
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
  /// The flags that stand on the command line, without their hyphens in front. The server may be
  /// the environment's.
  std::set<std::string, std::less<>> given;
  bool stopsAtFirst = false;
};

/// Adds books to a library and reports how that ended.
ExitStatus runAdd(const AddRequest& request);

}  // namespace quorbind
