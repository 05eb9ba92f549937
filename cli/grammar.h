#pragma once

// How subcommands are declared on the command line: each group has a file of its own, which lists
// the flags of its subcommands and names the function that runs each.

#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <string>

#include "cli/arguments.h"
#include "cli/exit_status.h"
#include "cli/library_change.h"
#include "cli/task.h"

namespace quorbind {

/// A subcommand that is being declared, and the values that its flags fill.
template <typename Arguments>
struct Offer {
  CLI::App& command;
  Arguments& arguments;
};

template <typename Arguments>
bool wantsJson(const Arguments& arguments) {
  if constexpr (requires { arguments.json; }) {
    return arguments.json;
  } else if constexpr (requires { arguments.change; }) {
    return arguments.change.json;
  } else {
    return false;
  }
}

/// Declares a subcommand. When the command line asks for it, `task` runs it with what was read.
template <typename Arguments>
Offer<Arguments> offer(CLI::App& parent,
                       Task& task,
                       const std::string& name,
                       const std::string& description,
                       ExitStatus (*run)(const Arguments&)) {
  const auto arguments = std::make_shared<Arguments>();
  CLI::App& command = *parent.add_subcommand(name, description);
  command.callback([&task, arguments, run] {
    task = {.run = [arguments, run] { return run(*arguments); }, .json = wantsJson(*arguments)};
  });
  return {command, *arguments};
}

/// Declares a word under which subcommands of its own stand.
CLI::App& offerGroup(CLI::App& app, const std::string& name, const std::string& description);

/// Refusals of values, empty when the value will do.
std::string refusalOfLibraryName(const std::string& name);
std::string refusalOfEmptyText(const std::string& text);
std::string refusalOfBlankText(const std::string& text);

// Flags that several subcommands share.
/// The variable of the environment that names the server where the command line does not.
inline constexpr const char* kServerVariable = "QUOR_SERVER";
void addServer(CLI::App& command, std::string& server);
void addPlace(CLI::App& command, LibraryArguments& place);
/// The library's name alone, which need not be given.
void addOptionalLibrary(CLI::App& command, std::optional<std::string>& library);
void addJson(CLI::App& command, bool& json);
/// Those of a subcommand that changes a library.
void addChange(CLI::App& command, ChangeFlags& change);
/// Those of one that asks whether to go on.
void addConfirmation(CLI::App& command, ChangeFlags& change);
void addNoInput(CLI::App& command, bool& noInput);
void addInstallType(CLI::App& command, std::int32_t& installType);

/// A value that stands on the command line by itself and must not be blank.
void addWord(CLI::App& command,
             const std::string& name,
             std::string& value,
             const std::string& description);

/// Declares the whole command, which is the groups below and what stands beside them.
void declareCommand(CLI::App& app, Task& task);

// The groups. Each declares its subcommands; see the files of the same names.
void offerTocSubcommands(CLI::App& app, Task& task);
void offerLibrarySubcommands(CLI::App& app, Task& task);
void offerBookSubcommands(CLI::App& app, Task& task);
void offerCategorySubcommands(CLI::App& app, Task& task);
void offerKeywordSubcommands(CLI::App& app, Task& task);
void offerLinkSubcommands(CLI::App& app, Task& task);
void offerExplanations(CLI::App& app, Task& task);
void offerDoctor(CLI::App& app, Task& task);

}  // namespace quorbind
