#pragma once

#include <cstdint>
#include <exception>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "cli/exit_status.h"
#include "cli/line_place.h"
#include "platform/filled_text.h"
#include "resources/rule_texts.h"

namespace quorbind {

class FileSystem;
class UserInterface;
struct XmlLoadResult;

/// Ends a subcommand with a message to the user and an exit status. Messages name files as this
/// machine does: `FILE: what is wrong`, with the line as `FILE:LINE:`.
class CommandFailure : public std::runtime_error {
 public:
  /// `line` is shown under the message, with a mark.
  CommandFailure(ExitStatus status,
                 const std::string& message,
                 std::optional<FaultyLine> line = std::nullopt)
      : std::runtime_error(message), status_(status), line_(std::move(line)) {}

  [[nodiscard]] ExitStatus status() const noexcept { return status_; }
  [[nodiscard]] const std::optional<FaultyLine>& line() const noexcept { return line_; }

 private:
  ExitStatus status_;
  std::optional<FaultyLine> line_;
};

/// The failure by a rule of the command's own, told by the text of `rule` with `words` put in.
CommandFailure brokenRule(RuleText rule,
                          const TextWords& words,
                          ExitStatus status = ExitStatus::kRefused);

/// Ends a subcommand whose user has been told why, by a box of the component or by an own answer.
class AlreadyTold : public std::exception {
 public:
  explicit AlreadyTold(ExitStatus status) : status_(status) {}

  [[nodiscard]] ExitStatus status() const noexcept { return status_; }
  [[nodiscard]] const char* what() const noexcept override { return "the user has been told"; }

 private:
  ExitStatus status_;
};

/// Whether a run-time error of this number says that something could not be written.
bool isWriteError(std::int32_t number);
/// Whether one says, of a step that reads, that what is there can't be read.
bool isReadError(std::int32_t number);

/// Runs a step that reads from the file that the user knows as `name`. A run-time error in it is a
/// CommandFailure: the input can't be read.
void readingInput(std::string_view name, const std::function<void()>& step);

/// Runs a step that writes to the file that the user knows as `name`. A run-time error in it is a
/// CommandFailure: the write failed.
void writingOutput(std::string_view name, const std::function<void()>& step);

/// What is wrong in the file that the user knows as `name`, with the place, as far as it is known.
std::string faultIn(const std::string& name, const LinePlace& place, const std::string& what);

/// The failure to load the XML file at `path`, which the component names so. It shows the line to
/// blame with a mark under it; without such a line it is not the contents that are wrong: the file
/// can't be read.
CommandFailure loadFailure(const Platform& platform,
                           const std::string& path,
                           const XmlLoadResult& result);

/// Fails unless there is a file at `path` that can be read. `name` is the user's name for it.
void requireReadable(FileSystem& files, std::string_view path, std::string_view name);

/// How an exception that nobody expects is told, and how it ends the command.
struct UnexpectedEnd {
  std::string note;
  ExitStatus status;
};

/// A lack of memory says that a file is over a limit, that of the machine. Anything else is told by
/// what it says of itself.
UnexpectedEnd endBy(const std::exception& error);

/// Whether a run-time error of this number says that there was not enough memory.
bool isLackOfMemory(std::int32_t number);

/// Runs a subcommand. A CommandFailure is shown in a critical box and ends it with its status, any
/// other exception but `AlreadyTold` and `Abandoned` likewise as `endBy` says. The line to blame
/// goes to `blamed` as well, where there is one and it is asked for.
ExitStatus reportingFailures(UserInterface& ui,
                             const std::function<ExitStatus()>& subcommand,
                             std::optional<FaultyLine>* blamed = nullptr);

}  // namespace quorbind
