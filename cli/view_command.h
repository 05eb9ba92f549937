#pragma once

#include <string>
#include <string_view>

#include "cli/arguments.h"
#include "cli/exit_status.h"

namespace quorbind {

/// What stands for the standard output in place of a file.
inline constexpr std::string_view kStandardOutput = "-";

struct ViewArguments {
  /// Without a library: all of the server.
  LibraryArguments place;
  std::string output = "library.html";
  bool json = false;
};

/// Writes an HTML page of a library, or of all libraries of a server.
ExitStatus runView(const ViewArguments& arguments);

}  // namespace quorbind
