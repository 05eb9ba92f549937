#include "tests/support/other_program.h"

#include <stdexcept>
#include <utility>

#include "platform/windows/com_types.h"

namespace quorbind::testing {

namespace {

std::wstring besideThisProgram(const std::wstring& name) {
  std::wstring path(32768, L'\0');
  path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path.substr(0, path.rfind(L'\\') + 1) + name;
}

std::wstring quoted(const std::wstring& word) {
  return L'"' + word + L'"';
}

Handle start(std::wstring commandLine) {
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION started{};
  if (::CreateProcessW(nullptr,
                       commandLine.data(),
                       nullptr,
                       nullptr,
                       TRUE,
                       0,
                       nullptr,
                       nullptr,
                       &startup,
                       &started) == 0) {
    throw std::runtime_error("can't start " + toUtf8(commandLine));
  }
  const Handle thread(started.hThread);
  return Handle(started.hProcess);
}

}  // namespace

class OtherProgram::Process {
 public:
  explicit Process(Handle handle) : handle_(std::move(handle)) {}
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;
  ~Process() { wait(); }

  int wait() {
    DWORD status = 0;
    ::WaitForSingleObject(handle_.get(), INFINITE);
    ::GetExitCodeProcess(handle_.get(), &status);
    return static_cast<int>(status);
  }

 private:
  Handle handle_;
};

OtherProgram::OtherProgram(const std::string& name, const std::vector<std::string>& arguments) {
  std::wstring commandLine = quoted(besideThisProgram(toWide(name) + L".exe"));
  for (const std::string& argument : arguments) {
    commandLine += L' ' + quoted(toWide(argument));
  }
  process_ = std::make_unique<Process>(start(std::move(commandLine)));
}

OtherProgram::OtherProgram(OtherProgram&&) noexcept = default;
OtherProgram& OtherProgram::operator=(OtherProgram&&) noexcept = default;
OtherProgram::~OtherProgram() = default;

int OtherProgram::wait() {
  return process_->wait();
}

}  // namespace quorbind::testing
