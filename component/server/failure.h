#pragma once

#include <ole2.h>

#include <new>
#include <utility>

#include "platform/windows/com_types.h"

namespace quorbind {

/// Runs `body` at the edge of the DLL, which nothing that is thrown may cross, and answers the
/// result that tells how it ended.
template <typename Body>
HRESULT guarded(Body&& body) noexcept {
  try {
    std::forward<Body>(body)();
    return S_OK;
  } catch (const RunTimeError& error) {
    return resultOf(error);
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_UNEXPECTED;
  }
}

/// Leaves the error that is being handled behind for the caller of the interface `id`, and answers
/// the result that tells of it. Call from inside a catch block.
HRESULT leaveCurrentError(REFIID id) noexcept;

}  // namespace quorbind
