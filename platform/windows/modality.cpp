#include "platform/windows/modality.h"

#include <utility>

namespace quorbind {

namespace {

struct Search {
  HWND owner;
  std::vector<HWND> found;
};

BOOL CALLBACK collect(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  const bool takesInput = ::IsWindowVisible(window) != FALSE && ::IsWindowEnabled(window) != FALSE;
  if (window != search.owner && takesInput) {
    search.found.push_back(window);
  }
  return TRUE;
}

std::vector<HWND> otherWindows(HWND owner) {
  Search search{.owner = owner, .found = {}};
  ::EnumThreadWindows(::GetCurrentThreadId(), collect, reinterpret_cast<LPARAM>(&search));
  return std::move(search.found);
}

}  // namespace

OtherWindowsDisabled::OtherWindowsDisabled(HWND owner) : windows_(otherWindows(owner)) {
  for (const HWND window : windows_) {
    ::EnableWindow(window, FALSE);
  }
}

OtherWindowsDisabled::~OtherWindowsDisabled() {
  for (const HWND window : windows_) {
    ::EnableWindow(window, TRUE);
  }
}

}  // namespace quorbind
