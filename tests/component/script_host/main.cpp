// Runs a script as cscript does, but with events, and with an answer that tells when it failed:
//   script_host SCRIPT [ARGUMENT...]
// The file's extension names the engine. Ends with 1 when the script does not come to its end.

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "platform/windows/com_types.h"
#include "tests/component/script_host/script.h"

namespace quorbind::testing {
namespace {

std::wstring textIn(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
  return toWide(bytes);
}

int runFile(const std::filesystem::path& file, std::vector<std::string> arguments) {
  const ComApartment apartment;
  const wchar_t* engine = file.extension() == ".js" ? L"JScript" : L"VBScript";
  const std::string failure = runScript(engine, textIn(file), std::move(arguments));
  if (failure.empty()) {
    return 0;
  }
  std::printf("%s, %s\n", file.filename().string().c_str(), failure.c_str());
  return 1;
}

}  // namespace
}  // namespace quorbind::testing

int wmain(int count, wchar_t** arguments) {
  using quorbind::toUtf8;
  if (count < 2) {
    std::fputs("usage: script_host SCRIPT [ARGUMENT...]\n", stderr);
    return 2;
  }
  std::vector<std::string> given;
  for (int index = 2; index < count; ++index) {
    given.push_back(toUtf8(arguments[index]));
  }
  try {
    return quorbind::testing::runFile(arguments[1], std::move(given));
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
