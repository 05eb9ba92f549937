#pragma once

#include <windows.h>

#include <string>

namespace quorbind {

/// Raises the run-time error that the file-system port promises for `error`, which an operation on
/// `path` ended with.
[[noreturn]] void raiseSystemError(DWORD error, const std::wstring& path);

/// The same for the error of the call before.
[[noreturn]] void raiseLastError(const std::wstring& path);

}  // namespace quorbind
