#pragma once

#include <ole2.h>

#include <algorithm>
#include <initializer_list>
#include <type_traits>
#include <utility>

#include "component/component_module.h"
#include "component/server/conversion.h"
#include "component/server/turn.h"
#include "platform/error_trap.h"

namespace quorbind {

/// In the place of an error source: nothing is told of errors.
struct IgnoringErrors {};
inline constexpr IgnoringErrors kIgnoringErrors;

/// One call of a published operation, from the host's side of the edge to the core's.
///
/// Nothing that is thrown gets out. An error that the core has not reported itself, such as an
/// array of the wrong kind, is reported in the operation's own box, and the call succeeds with the
/// operation's failure value: False, 0, an empty text, an array without bounds. A call fails only
/// when the caller gives no place for something (E_POINTER), when another thread is in the middle
/// of a call (RPC_E_WRONG_THREAD), or when there is no memory even for the box (E_OUTOFMEMORY).
class Operation {
 public:
  /// `source` words the box. `references` are the places that parameters are passed by.
  explicit Operation(const ErrorSource& source, std::initializer_list<const void*> references = {})
      : Operation(&source, references) {}
  explicit Operation(IgnoringErrors /*noSource*/,
                     std::initializer_list<const void*> references = {})
      : Operation(static_cast<const ErrorSource*>(nullptr), references) {}

  /// Runs an operation without a result.
  template <typename Body>
  HRESULT run(Body&& body) const noexcept {
    if (!placesGiven_) {
      return E_POINTER;
    }
    return inTurn([&]() noexcept { return reportingErrors(std::forward<Body>(body)); });
  }

  /// Runs an operation and gives its result to the caller.
  template <typename Result, typename Body>
  HRESULT answer(Result* result, Body&& body) const noexcept {
    if (result == nullptr) {
      return E_POINTER;
    }
    *result = {};
    if constexpr (std::is_void_v<std::invoke_result_t<Body>>) {
      return run(std::forward<Body>(body));
    } else {
      return run([&] { give(result, body()); });
    }
  }

 private:
  template <typename Body>
  HRESULT reportingErrors(Body&& body) const noexcept {
    try {
      if (source_ == nullptr) {
        ignoringErrors(std::forward<Body>(body));
      } else {
        trapped(componentModule().platform.ui, *source_, std::forward<Body>(body));
      }
      return S_OK;
    } catch (...) {
      return E_OUTOFMEMORY;
    }
  }

  Operation(const ErrorSource* source, std::initializer_list<const void*> references)
      : source_(source), placesGiven_(std::ranges::find(references, nullptr) == references.end()) {}

  /// Null for an operation that ignores errors.
  const ErrorSource* source_;
  bool placesGiven_;
};

}  // namespace quorbind
