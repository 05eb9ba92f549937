#include "platform/windows/patience.h"

#include <functional>

namespace quorbind {

namespace {

constexpr ULONGLONG kLongest = 2000;  // milliseconds, as the next
/// Short, to find the gap between others that hold the file in turn.
constexpr DWORD kPause = 5;

std::size_t markOf(std::wstring_view path) noexcept {
  return std::hash<std::wstring_view>()(path);
}

}  // namespace

bool Patience::isHeld(DWORD error) noexcept {
  return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION ||
         error == ERROR_USER_MAPPED_FILE || error == ERROR_DELETE_PENDING;
}

bool Patience::pauseBefore(ULONGLONG end) noexcept {
  if (::GetTickCount64() >= end) {
    return false;
  }
  ::Sleep(kPause);
  return true;
}

ULONGLONG Patience::endOfWaitFor(std::wstring_view path) noexcept {
  const ULONGLONG now = ::GetTickCount64();
  const bool isGivenUp = markOf(path) == givenUp_ && now - triedLast_ < kLongest;
  if (isGivenUp) {
    return now;
  }
  if (!endOfCall_) {
    endOfCall_ = now + kLongest;
  }
  return *endOfCall_;
}

void Patience::note(std::wstring_view path, DWORD error) noexcept {
  if (isHeld(error)) {
    givenUp_ = markOf(path);
    triedLast_ = ::GetTickCount64();
  } else if (markOf(path) == givenUp_) {
    givenUp_ = 0;
  }
}

}  // namespace quorbind
