#include "platform/windows/win32_path.h"

#include <windows.h>

#include <algorithm>

#include "platform/runtime_error.h"
#include "platform/windows/com_types.h"
#include "platform/windows/system_error.h"

namespace quorbind {

namespace {

constexpr wchar_t kSeparator = L'\\';
constexpr std::wstring_view kExtended = LR"(\\?\)";
constexpr std::wstring_view kExtendedNetwork = LR"(\\?\UNC\)";
constexpr std::wstring_view kNetwork = LR"(\\)";
constexpr std::wstring_view kDevice = LR"(\\.\)";
/// The length of the root of a drive, as in `C:\`.
constexpr std::size_t kDriveRoot = 3;
constexpr std::size_t kLongestPart = 255;

/// Asked here, since not every system refuses such a name as one.
bool hasTooLongPart(std::wstring_view path) {
  while (!path.empty()) {
    const std::size_t length = std::min(path.find(kSeparator), path.size());
    if (length > kLongestPart) {
      return true;
    }
    path.remove_prefix(std::min(length + 1, path.size()));
  }
  return false;
}

}  // namespace

std::wstring fullPath(std::string_view name) {
  if (name.empty() || name.find('\0') != std::string_view::npos) {
    raise(ErrorNumber::kBadFileName);
  }
  const std::wstring wide = toWide(name);
  std::wstring full(MAX_PATH, L'\0');
  DWORD length = 0;
  // The working folder may change between the two calls, so that one more is needed.
  while ((length = ::GetFullPathNameW(
              wide.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr)) >=
         full.size()) {
    full.resize(length);
  }
  full.resize(length);
  if (full.empty() || full.starts_with(kDevice)) {
    raise(ErrorNumber::kBadFileName);
  }
  return full;
}

namespace {

/// The full name of something that can be there.
std::wstring possiblePath(std::string_view name) {
  std::wstring full = fullPath(name);
  if (hasTooLongPart(full)) {
    raise(ErrorNumber::kBadFileName);
  }
  return full;
}

}  // namespace

std::wstring extendedPath(std::wstring_view fullPath) {
  if (fullPath.starts_with(kExtended)) {
    return std::wstring(fullPath);
  }
  const bool isNetwork = fullPath.starts_with(kNetwork);
  std::wstring result(isNetwork ? kExtendedNetwork : kExtended);
  return result.append(fullPath.substr(isNetwork ? kNetwork.size() : 0));
}

std::wstring_view withoutTrailingSeparator(std::wstring_view fullPath) {
  while (fullPath.size() > kDriveRoot && fullPath.ends_with(kSeparator)) {
    fullPath.remove_suffix(1);
  }
  return fullPath;
}

std::wstring pathOf(std::string_view name) {
  return extendedPath(withoutTrailingSeparator(possiblePath(name)));
}

std::wstring pathOfFile(std::string_view name) {
  const std::wstring full = possiblePath(name);
  if (full.ends_with(kSeparator)) {
    raise(ErrorNumber::kPathFileAccessError);
  }
  return extendedPath(full);
}

}  // namespace quorbind
