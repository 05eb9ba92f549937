#pragma once

#include <windows.h>

#include <vector>

namespace quorbind {

/// While it lives, no window of this thread takes input but `owner`, which the modal window that is
/// about to be shown sees to itself. So the host can't be entered again while it waits for the
/// answer, whichever of its windows the user turns to.
class OtherWindowsDisabled {
 public:
  explicit OtherWindowsDisabled(HWND owner);
  ~OtherWindowsDisabled();
  OtherWindowsDisabled(const OtherWindowsDisabled&) = delete;
  OtherWindowsDisabled& operator=(const OtherWindowsDisabled&) = delete;

 private:
  std::vector<HWND> windows_;
};

}  // namespace quorbind
