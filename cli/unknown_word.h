#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>
#include <vector>

namespace quorbind {

/// The first subcommand or flag among the words of a command line, without the command's own name,
/// that `app` does not have, told to the user with those that are near. Nothing when it has them
/// all. A parser of command lines misses what is required before it sees what is misspelt.
std::optional<std::string> unknownWordIn(const CLI::App& app,
                                         const std::vector<std::string>& words);

}  // namespace quorbind
