// Hosts in other languages, as programs of their own.

#include <array>

#include "tests/component/component_test.h"

namespace quorbind::testing {
namespace {

struct Finished {
  DWORD exitCode = 0;
  std::string output;
};

std::string readAll(HANDLE pipe) {
  std::string text;
  std::array<char, 4096> buffer{};
  DWORD count = 0;
  while (::ReadFile(pipe, buffer.data(), buffer.size(), &count, nullptr) != FALSE && count > 0) {
    text.append(buffer.data(), count);
  }
  std::erase(text, '\r');
  return text;
}

Finished run(std::wstring commandLine) {
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  HANDLE readEnd = nullptr;
  HANDLE writeEnd = nullptr;
  EXPECT_TRUE(::CreatePipe(&readEnd, &writeEnd, &inherited, 0));
  const Handle reader(readEnd);
  Handle writer(writeEnd);
  ::SetHandleInformation(reader.get(), HANDLE_FLAG_INHERIT, 0);

  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdOutput = writer.get();
  startup.hStdError = writer.get();
  PROCESS_INFORMATION started{};
  EXPECT_TRUE(::CreateProcessW(
      nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &started))
      << toUtf8(commandLine);
  const Handle process(started.hProcess);
  const Handle thread(started.hThread);
  writer.close();

  Finished finished;
  finished.output = readAll(reader.get());
  ::WaitForSingleObject(process.get(), INFINITE);
  ::GetExitCodeProcess(process.get(), &finished.exitCode);
  return finished;
}

Finished runScript(const std::wstring& name) {
  return run(L"cscript.exe //nologo \"" + besideThisProgram(L"clients\\" + name) + L"\"");
}

using Clients = ComponentTest;

TEST_F(Clients, InVbscriptSortNamesAndReadThem) {
  EXPECT_EQ(runScript(L"sort.vbs").output, "passed\n");
}

TEST_F(Clients, InJscriptSortNamesAndReadThem) {
  EXPECT_EQ(runScript(L"sort.js").output, "passed\n");
}

TEST_F(Clients, InVbscriptCallTheDriversOperations) {
  EXPECT_EQ(runScript(L"check_book.vbs").output, "passed\n");
}

TEST_F(Clients, InJscriptCallTheDriversOperationsAndTheToolset) {
  EXPECT_EQ(runScript(L"check_book.js").output, "passed\n");
}

}  // namespace
}  // namespace quorbind::testing
