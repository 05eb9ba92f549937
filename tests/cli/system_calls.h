#pragma once

#include <string>
#include <vector>

#include "tests/cli/command.h"

namespace quorbind::testing {

/// One system call of a command: which one of those of its name, counted from the start of the
/// process, and how the tracer wrote it down, arguments and result.
struct SystemCall {
  std::string name;
  int occurrence = 0;
  std::string text;
};

/// Runs `command` under a tracer, which writes to `traceFile`, and answers its calls in order.
/// Where processes can't be traced the test fails, and says so.
std::vector<SystemCall> callsOf(const Command& command,
                                const std::string& traceFile,
                                const std::vector<std::string>& tracerOptions = {});

/// The calls from the first one on in which the path `folder` is named: what comes before belongs
/// to the start of the process.
std::vector<SystemCall> callsSince(const std::string& folder, std::vector<SystemCall> calls);

/// `command` so that `call` is not made, and happens instead what `event` says in the tracer's
/// words, such as `signal=KILL` or `error=EIO`.
Command withEventAt(const SystemCall& call, const std::string& event, Command command);

/// Those of `all` that a run of the tests tries: all of them where it may take long, else every
/// tenth.
template <typename Point>
std::vector<Point> pointsToTry(std::vector<Point> all);

/// Whether this is a run of the tests that may take long.
bool isLongRun();

template <typename Point>
std::vector<Point> pointsToTry(std::vector<Point> all) {
  constexpr std::size_t kStep = 10;
  if (isLongRun()) {
    return all;
  }
  std::vector<Point> some;
  for (std::size_t i = 0; i < all.size(); i += kStep) {
    some.push_back(all[i]);
  }
  return some;
}

}  // namespace quorbind::testing
