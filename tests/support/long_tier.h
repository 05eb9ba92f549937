#pragma once

#include <cstdlib>
#include <string_view>

namespace quorbind::testing {

/// Whether the tests of this run may take hours: the environment holds QUORBIND_LONG=1. Those that
/// go through many cases go through all of them then.
inline bool isLongTier() {
  const char* given = std::getenv("QUORBIND_LONG");
  return given != nullptr && std::string_view(given) == "1";
}

/// How many of something this run tries.
inline int inThisTier(int ordinary, int inLongTier) {
  return isLongTier() ? inLongTier : ordinary;
}

}  // namespace quorbind::testing
