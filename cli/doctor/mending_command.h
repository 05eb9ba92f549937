#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cli/arguments.h"

namespace quorbind {

/// A text as one word of a shell's command line.
std::string shellWord(std::string_view text);

/// A value of a flag on the command line.
struct MendingFlag {
  std::string_view flag;
  std::string value;
};

/// The command line that runs a subcommand of `quorbind` in a library: ready to be copied into a
/// shell, in whatever folder.
std::string mendingCommand(std::string_view subcommand,
                           const std::vector<std::string>& operands,
                           const std::vector<MendingFlag>& flags,
                           const LibraryArguments& place);

/// The one that deletes a file, which the component names so.
std::string deletingCommand(std::string_view file);

}  // namespace quorbind
