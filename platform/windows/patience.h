#pragma once

#include <windows.h>

#include <cstddef>
#include <optional>
#include <string_view>

namespace quorbind {

/// Waits for files that another program holds open for a moment, as scanners, indexers and backups
/// do. Whatever of this system's adapter meets such a file waits here.
///
/// A call of the port waits for 2 seconds, whatever number of files it meets. A file that was
/// waited for in vain is only tried while further attempts at it follow at once: a list that is
/// done entry by entry waits once, not per entry.
class Patience {
 public:
  /// A call of the port begins, with all of its time.
  void beginCall() noexcept { endOfCall_.reset(); }

  /// Makes `attempt` at the file at `path` until it ends with anything but an error that says that
  /// somebody holds the file, or the time is over. An attempt answers an error of the system or
  /// ERROR_SUCCESS, and so does this: that of the last one.
  template <typename Attempt>
  DWORD whenFree(std::wstring_view path, Attempt&& attempt) {
    DWORD error = attempt();
    if (isHeld(error)) {
      for (const ULONGLONG end = endOfWaitFor(path); isHeld(error) && pauseBefore(end);) {
        error = attempt();
      }
    }
    note(path, error);
    return error;
  }

 private:
  static bool isHeld(DWORD error) noexcept;
  /// Waits a little; answers false at once when `end` has come.
  static bool pauseBefore(ULONGLONG end) noexcept;
  ULONGLONG endOfWaitFor(std::wstring_view path) noexcept;
  void note(std::wstring_view path, DWORD error) noexcept;

  /// When the call has waited long enough; nothing before its first wait.
  std::optional<ULONGLONG> endOfCall_;
  /// The file that was waited for in vain, by the hash of its name, and when it was tried last. A
  /// wrong one of the same hash costs a wait, or the lack of one.
  std::size_t givenUp_ = 0;
  ULONGLONG triedLast_ = 0;
};

/// What an attempt answers for a call of the system that says whether it succeeded.
inline DWORD errorOfCall(BOOL succeeded) noexcept {
  return succeeded != FALSE ? ERROR_SUCCESS : ::GetLastError();
}

}  // namespace quorbind
