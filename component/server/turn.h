#pragma once

#include <windows.h>

#include <atomic>
#include <utility>

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

/// Runs a call in this thread's turn and answers its result, RPC_E_WRONG_THREAD where another
/// thread has the turn.
template <typename Call>
HRESULT inTurn(Call&& call) {
  const Turn turn;
  return turn.isOurs() ? std::forward<Call>(call)() : RPC_E_WRONG_THREAD;
}

}  // namespace quorbind
