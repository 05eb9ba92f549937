#pragma once

#include <sys/types.h>

#include <map>
#include <string>
#include <vector>

namespace quorbind::testing {

/// How a process ended, and what it wrote.
struct Outcome {
  /// The exit status; -1 for a process that a signal ended.
  int status = -1;
  int signal = 0;
  std::string out;
  std::string err;
  /// The lines of `err` that help to mend a table of contents, where a test looks at them apart.
  std::string help = {};
};

/// A command to be run in a folder of its own choice, without a terminal.
struct Command {
  std::vector<std::string> words;
  std::string folder;
  /// Set in addition to the environment of the test, from which everything is taken that the
  /// command reads.
  std::map<std::string, std::string> environment;
};

/// The executable under test.
std::string quorbindExecutable();

/// Runs a command to its end. One that takes longer than two minutes is killed, and the test fails.
Outcome run(const Command& command);

/// Starts a command whose output is of no interest.
pid_t start(const Command& command);
/// Waits until it ends.
Outcome waitFor(pid_t process);

/// The words that run a command as a user without any rights of its own.
std::vector<std::string> asNobody(std::vector<std::string> words);

}  // namespace quorbind::testing
