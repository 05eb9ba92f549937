#include "platform/windows/system_error.h"

#include "platform/runtime_error.h"

namespace quorbind {

namespace {

/// Not in every set of headers.
constexpr DWORD kDiskQuotaExceeded = 1295;

bool isFolder(const std::wstring& path) {
  const DWORD attributes = ::GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::wstring folderOf(const std::wstring& path) {
  return path.substr(0, path.rfind(L'\\') + 1);
}

ErrorNumber errorNumberOf(DWORD error, const std::wstring& path) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
      // Not every system tells a missing drive from a missing file.
      return isFolder(folderOf(path)) ? ErrorNumber::kFileNotFound : ErrorNumber::kPathNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_NOT_READY:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
      return ErrorNumber::kPathNotFound;
    case ERROR_ACCESS_DENIED:
      return isFolder(path) ? ErrorNumber::kPathFileAccessError : ErrorNumber::kPermissionDenied;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
    case ERROR_USER_MAPPED_FILE:
    case ERROR_DELETE_PENDING:
    case ERROR_NETWORK_ACCESS_DENIED:
    case ERROR_PRIVILEGE_NOT_HELD:
      return ErrorNumber::kPermissionDenied;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      return ErrorNumber::kFileAlreadyExists;
    case ERROR_DIRECTORY:
      return ErrorNumber::kPathFileAccessError;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case kDiskQuotaExceeded:
      return ErrorNumber::kDiskFull;
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_FILENAME_EXCED_RANGE:
      return ErrorNumber::kBadFileName;
    default:
      return ErrorNumber::kDeviceIoError;
  }
}

}  // namespace

void raiseSystemError(DWORD error, const std::wstring& path) {
  raise(errorNumberOf(error, path));
}

void raiseLastError(const std::wstring& path) {
  raiseSystemError(::GetLastError(), path);
}

}  // namespace quorbind
