#pragma once

#include <cstdint>
#include <utility>

#include "platform/runtime_error.h"

namespace quorbind::testing {

/// The number of the run-time error that `statement` ends with, 0 when it ends well. Any other
/// exception comes out of it, since no port may throw one.
template <typename Statement>
std::int32_t errorRaisedBy(Statement&& statement) {
  try {
    std::forward<Statement>(statement)();
    return 0;
  } catch (const RunTimeError& error) {
    return error.number();
  }
}

}  // namespace quorbind::testing
