#pragma once

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "cli/exit_status.h"

namespace quorbind {

class FileSystem;
class RunTimeError;
class UserInterface;
struct XmlLoadResult;

/// Ends a subcommand with a message to the user and an exit status. Messages name files as this
/// machine does: `FILE: what is wrong`, with the line as `FILE:LINE:`.
class CommandFailure : public std::runtime_error {
 public:
  CommandFailure(ExitStatus status, const std::string& message)
      : std::runtime_error(message), status_(status) {}

  [[nodiscard]] ExitStatus status() const noexcept { return status_; }

 private:
  ExitStatus status_;
};

/// Whether a run-time error of this number says that something could not be written.
bool isWriteError(std::int32_t number);

/// The failure to write the file that the user knows as `name`.
CommandFailure writeFailure(std::string_view name, const RunTimeError& error);

/// The failure to load the XML file at `path`, which the component names so.
CommandFailure loadFailure(std::string_view path, const XmlLoadResult& result);

/// Fails unless there is a file at `path` that can be read. `name` is the user's name for it.
void requireReadable(FileSystem& files, std::string_view path, std::string_view name);

/// Runs a subcommand. A CommandFailure is shown in a critical box and ends it with its status.
ExitStatus reportingFailures(UserInterface& ui, const std::function<ExitStatus()>& subcommand);

}  // namespace quorbind
