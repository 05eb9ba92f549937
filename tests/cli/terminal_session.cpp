#include "tests/cli/terminal_session.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

#include "platform/text.h"

namespace quorbind::testing {

namespace {

constexpr int kPatienceInMilliseconds = 60'000;

[[noreturn]] void become(const Command& command) {
  std::vector<std::string> words = command.words;
  std::vector<char*> pointers;
  for (std::string& word : words) {
    pointers.push_back(word.data());
  }
  pointers.push_back(nullptr);
  unsetenv("NO_COLOR");
  setenv("TERM", "xterm", 1);
  for (const auto& [name, value] : command.environment) {
    setenv(name.c_str(), value.c_str(), 1);
  }
  if (chdir(command.folder.c_str()) == 0) {
    execvp(pointers.front(), pointers.data());
  }
  _exit(127);
}

}  // namespace

TerminalSession::TerminalSession(const Command& command) {
  process_ = forkpty(&terminal_, nullptr, nullptr, nullptr);
  if (process_ < 0) {
    throw std::runtime_error("can't make a terminal");
  }
  if (process_ == 0) {
    become(command);
  }
}

TerminalSession::~TerminalSession() {
  if (process_ > 0) {
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
  }
  close(terminal_);
}

void TerminalSession::waitFor(std::string_view text) {
  for (;;) {
    const std::size_t found = screen_.find(text, seen_);
    if (found != std::string::npos) {
      seen_ = found + text.size();
      return;
    }
    if (!readMore()) {
      ADD_FAILURE() << "'" << text << "' does not come; the screen shows\n" << screen_;
      return;
    }
  }
}

void TerminalSession::type(std::string_view keys) {
  if (write(terminal_, keys.data(), keys.size()) != static_cast<ssize_t>(keys.size())) {
    ADD_FAILURE() << "the terminal takes no input";
  }
}

Outcome TerminalSession::finish() {
  while (readMore()) {
  }
  Outcome outcome;
  outcome.out = screen_;
  int status = 0;
  waitpid(process_, &status, 0);
  process_ = 0;
  if (WIFEXITED(status)) {
    outcome.status = WEXITSTATUS(status);
  } else {
    outcome.signal = WTERMSIG(status);
  }
  return outcome;
}

bool TerminalSession::readMore() {
  pollfd wait{terminal_, POLLIN, 0};
  std::array<char, 4096> buffer{};
  if (poll(&wait, 1, kPatienceInMilliseconds) != 1) {
    return false;
  }
  // A terminal that nobody has open any more can't be read.
  const ssize_t count = read(terminal_, buffer.data(), buffer.size());
  if (count <= 0) {
    return false;
  }
  screen_ += replaceAll({buffer.data(), static_cast<std::size_t>(count)}, "\r\n", "\n");
  return true;
}

}  // namespace quorbind::testing
