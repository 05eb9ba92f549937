#include "tests/support/other_program.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <optional>
#include <stdexcept>

namespace quorbind::testing {

namespace {

std::string besideThisProgram(const std::string& name) {
  return std::filesystem::read_symlink("/proc/self/exe").parent_path() / name;
}

pid_t start(std::vector<std::string> words) {
  std::vector<char*> pointers;
  for (std::string& word : words) {
    pointers.push_back(word.data());
  }
  pointers.push_back(nullptr);
  pid_t process = 0;
  if (posix_spawn(&process, pointers.front(), nullptr, nullptr, pointers.data(), environ) != 0) {
    throw std::runtime_error("can't start " + words.front());
  }
  return process;
}

}  // namespace

class OtherProgram::Process {
 public:
  explicit Process(pid_t id) : id_(id) {}
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;
  ~Process() { wait(); }

  int wait() {
    if (!status_) {
      int status = 0;
      waitpid(id_, &status, 0);
      status_ = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    return *status_;
  }

 private:
  pid_t id_;
  std::optional<int> status_;
};

OtherProgram::OtherProgram(const std::string& name, const std::vector<std::string>& arguments) {
  std::vector<std::string> words{besideThisProgram(name)};
  words.insert(words.end(), arguments.begin(), arguments.end());
  process_ = std::make_unique<Process>(start(std::move(words)));
}

OtherProgram::OtherProgram(OtherProgram&&) noexcept = default;
OtherProgram& OtherProgram::operator=(OtherProgram&&) noexcept = default;
OtherProgram::~OtherProgram() = default;

int OtherProgram::wait() {
  return process_->wait();
}

}  // namespace quorbind::testing
