#include "tests/cli/command.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <stdexcept>

namespace quorbind::testing {

namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::minutes kTimeLimit{2};

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() { close(); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  [[nodiscard]] int number() const { return number_; }
  [[nodiscard]] bool isOpen() const { return number_ >= 0; }
  void close() {
    if (isOpen()) {
      ::close(number_);
      number_ = -1;
    }
  }

 private:
  int number_;
};

/// One end for the child, the other for the test.
struct Pipe {
  static std::array<int, 2> make() {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
      throw std::runtime_error("can't make a pipe");
    }
    return ends;
  }
  explicit Pipe(std::array<int, 2> ends = make()) : readEnd(ends[0]), writeEnd(ends[1]) {}

  Descriptor readEnd;
  Descriptor writeEnd;
};

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts) {
    pointers.push_back(text.data());
  }
  pointers.push_back(nullptr);
  return pointers;
}

bool isReadByTheCommand(const std::string& variable) {
  for (const char* name : {"QUOR_SERVER=", "NO_COLOR=", "TERM="}) {
    if (variable.rfind(name, 0) == 0) {
      return true;
    }
  }
  return false;
}

std::vector<std::string> environmentFor(const Command& command) {
  std::vector<std::string> variables;
  for (char** variable = environ; *variable != nullptr; ++variable) {
    if (!isReadByTheCommand(*variable)) {
      variables.emplace_back(*variable);
    }
  }
  for (const auto& [name, value] : command.environment) {
    variables.push_back(name + "=" + value);
  }
  return variables;
}

/// What a child's standard streams are.
class SpawnActions {
 public:
  explicit SpawnActions(const std::string& folder) {
    posix_spawn_file_actions_init(&actions_);
    posix_spawn_file_actions_addchdir_np(&actions_, folder.c_str());
    open(STDIN_FILENO, O_RDONLY);
  }
  ~SpawnActions() { posix_spawn_file_actions_destroy(&actions_); }
  SpawnActions(const SpawnActions&) = delete;
  SpawnActions& operator=(const SpawnActions&) = delete;

  void connect(int target, const Descriptor& source) {
    posix_spawn_file_actions_adddup2(&actions_, source.number(), target);
  }
  void discard(int target) { open(target, O_WRONLY); }

  [[nodiscard]] pid_t spawn(const Command& command) const {
    std::vector<std::string> words = command.words;
    std::vector<std::string> variables = environmentFor(command);
    pid_t process = 0;
    if (posix_spawnp(&process,
                     words.front().c_str(),
                     &actions_,
                     nullptr,
                     pointersTo(words).data(),
                     pointersTo(variables).data()) != 0) {
      throw std::runtime_error("can't start " + words.front());
    }
    return process;
  }

 private:
  void open(int target, int mode) {
    posix_spawn_file_actions_addopen(&actions_, target, "/dev/null", mode, 0);
  }

  posix_spawn_file_actions_t actions_ = {};
};

/// Appends what has come; at the end of the stream closes it.
void readInto(std::string& text, Descriptor& source) {
  std::array<char, 65536> buffer{};
  const ssize_t count = read(source.number(), buffer.data(), buffer.size());
  if (count > 0) {
    text.append(buffer.data(), static_cast<std::size_t>(count));
  } else {
    source.close();
  }
}

/// Reads both streams to their ends; false when the time is up.
bool collect(Outcome& outcome, Descriptor& out, Descriptor& err) {
  const auto deadline = Clock::now() + kTimeLimit;
  while (out.isOpen() || err.isOpen()) {
    // A closed descriptor is -1, which poll passes over.
    std::array<pollfd, 2> waits{{{out.number(), POLLIN, 0}, {err.number(), POLLIN, 0}}};
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
    if (left.count() <= 0 ||
        poll(waits.data(), waits.size(), static_cast<int>(left.count())) == 0) {
      return false;
    }
    if (waits[0].revents != 0) {
      readInto(outcome.out, out);
    }
    if (waits[1].revents != 0) {
      readInto(outcome.err, err);
    }
  }
  return true;
}

void noteEnd(Outcome& outcome, pid_t process) {
  int status = 0;
  waitpid(process, &status, 0);
  if (WIFEXITED(status)) {
    outcome.status = WEXITSTATUS(status);
  } else {
    outcome.signal = WTERMSIG(status);
  }
}

}  // namespace

std::string quorbindExecutable() {
  return QUORBIND_EXECUTABLE;
}

Outcome run(const Command& command) {
  Pipe out;
  Pipe err;
  SpawnActions actions(command.folder);
  actions.connect(STDOUT_FILENO, out.writeEnd);
  actions.connect(STDERR_FILENO, err.writeEnd);
  const pid_t process = actions.spawn(command);
  out.writeEnd.close();
  err.writeEnd.close();

  Outcome outcome;
  if (!collect(outcome, out.readEnd, err.readEnd)) {
    kill(process, SIGKILL);
    ADD_FAILURE() << "the command does not end";
  }
  noteEnd(outcome, process);
  return outcome;
}

pid_t start(const Command& command) {
  SpawnActions actions(command.folder);
  actions.discard(STDOUT_FILENO);
  actions.discard(STDERR_FILENO);
  return actions.spawn(command);
}

Outcome waitFor(pid_t process) {
  Outcome outcome;
  noteEnd(outcome, process);
  return outcome;
}

std::vector<std::string> asNobody(std::vector<std::string> words) {
  const std::vector<std::string> prefix{
      "setpriv", "--reuid=65534", "--regid=65534", "--clear-groups", "--"};
  words.insert(words.begin(), prefix.begin(), prefix.end());
  return words;
}

}  // namespace quorbind::testing
