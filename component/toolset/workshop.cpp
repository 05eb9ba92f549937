#include "component/toolset/workshop.h"

#include <string>

#include "component/server/own_module.h"
#include "platform/text_file.h"

namespace quorbind {

namespace {

constexpr const wchar_t* kServerVariable = L"QUOR_SERVER";
constexpr const wchar_t* kServerFile = L"QuorServer.txt";

std::string environmentValue(const wchar_t* name) {
  std::wstring value(::GetEnvironmentVariableW(name, nullptr, 0), L'\0');
  const DWORD length =
      ::GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size()));
  value.resize(length < value.size() ? length : 0);
  return toUtf8(value);
}

std::string serverFilePath() {
  const std::wstring dll = ownModulePath();
  return toUtf8(dll.substr(0, dll.rfind(L'\\') + 1) + kServerFile);
}

std::string serverRoot(FileSystem& files, const Locale& locale) {
  std::string root = environmentValue(kServerVariable);
  const std::string path = serverFilePath();
  if (root.empty() && files.fileExists(path)) {
    TextReader lines(files, locale, path);
    return lines.atEnd() ? root : std::string(lines.readLine());
  }
  return root;
}

}  // namespace

Workshop::Workshop() : components_({files_, xml_, ui_, locale_}, serverRoot(files_, locale_)) {}

}  // namespace quorbind
