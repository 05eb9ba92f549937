#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>

#include "tests/cli/command.h"

namespace quorbind::testing {

/// A command on a terminal of its own, with a person in front of it. Everything that it writes
/// comes to the screen, line ends as LF.
class TerminalSession {
 public:
  explicit TerminalSession(const Command& command);
  ~TerminalSession();
  TerminalSession(const TerminalSession&) = delete;
  TerminalSession& operator=(const TerminalSession&) = delete;

  /// Waits until `text` is on the screen behind what was waited for before. A text that doesn't
  /// come within a minute fails the test.
  void waitFor(std::string_view text);
  void type(std::string_view keys);
  void typeLine(std::string_view line) { type(std::string(line) + "\n"); }
  /// Ctrl-D.
  void endInput() { type("\x04"); }
  /// Ctrl-C.
  void interrupt() { type("\x03"); }

  /// Waits until the command ends; `out` of the outcome is the whole screen.
  Outcome finish();

 private:
  /// Reads what has come; false at the end, and when nothing comes for a minute.
  bool readMore();

  int terminal_ = -1;
  pid_t process_ = 0;
  std::string screen_;
  std::size_t seen_ = 0;
};

}  // namespace quorbind::testing
