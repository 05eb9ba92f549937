#include "tests/cli/system_calls.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <map>

namespace quorbind::testing {

namespace {

Command traced(Command command, std::vector<std::string> options) {
  options.insert(options.begin(), "strace");
  command.words.insert(command.words.begin(), options.begin(), options.end());
  // What looks for leaks at the end of a process traces it, too, and only one can.
  command.environment["ASAN_OPTIONS"] = "detect_leaks=0";
  return command;
}

bool isNameOfACall(const std::string& name) {
  return !name.empty() && std::all_of(name.begin(), name.end(), [](char c) {
    return c == '_' || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
  });
}

}  // namespace

bool isLongRun() {
  return std::getenv("QUORBIND_LONG") != nullptr;
}

std::vector<SystemCall> callsOf(const Command& command,
                                const std::string& traceFile,
                                const std::vector<std::string>& tracerOptions) {
  std::vector<std::string> options{"-o", traceFile};
  options.insert(options.end(), tracerOptions.begin(), tracerOptions.end());
  const Outcome outcome = run(traced(command, options));
  std::vector<SystemCall> calls;
  std::map<std::string, int> occurrences;
  std::ifstream trace(traceFile);
  for (std::string line; std::getline(trace, line);) {
    const std::string name = line.substr(0, line.find('('));
    if (isNameOfACall(name)) {
      calls.push_back({name, ++occurrences[name], line});
    }
  }
  EXPECT_FALSE(calls.empty()) << "a process can't be traced here: " << outcome.err;
  return calls;
}

std::vector<SystemCall> callsSince(const std::string& folder, std::vector<SystemCall> calls) {
  const auto first = std::find_if(calls.begin(), calls.end(), [&](const SystemCall& call) {
    return call.text.find('"' + folder) != std::string::npos;
  });
  calls.erase(calls.begin(), first);
  return calls;
}

Command withEventAt(const SystemCall& call, const std::string& event, Command command) {
  return traced(std::move(command),
                {"-o",
                 "/dev/null",
                 "-e",
                 "trace=" + call.name,
                 "-e",
                 "inject=" + call.name + ":" + event + ":when=" + std::to_string(call.occurrence)});
}

}  // namespace quorbind::testing
