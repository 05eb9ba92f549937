#pragma once

#include <windows.h>

#include <atomic>

namespace quorbind {

/// The turn of one thread in this DLL, from the beginning of its outermost call to that call's end.
/// A call from another thread meanwhile has none and must be refused: nothing here is made for two
/// threads at once, and waiting would stop a host whose threads wait for each other.
class Turn {
 public:
  Turn() noexcept
      : isOurs_(holder_.compare_exchange_strong(before_, ::GetCurrentThreadId()) ||
                before_ == ::GetCurrentThreadId()) {}
  ~Turn() {
    if (isOurs_ && before_ == kNobody) {
      holder_ = kNobody;
    }
  }
  Turn(const Turn&) = delete;
  Turn& operator=(const Turn&) = delete;

  [[nodiscard]] bool isOurs() const noexcept { return isOurs_; }

 private:
  static constexpr DWORD kNobody = 0;

  inline static std::atomic<DWORD> holder_{kNobody};

  /// Who had the turn when this one was asked for.
  DWORD before_ = kNobody;
  bool isOurs_;
};

}  // namespace quorbind
