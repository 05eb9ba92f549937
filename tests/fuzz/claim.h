#pragma once

#include <stdexcept>

namespace quorbind::testing {

/// What a fuzz target claims of its input does not hold.
class BrokenClaim : public std::logic_error {
 public:
  using std::logic_error::logic_error;
};

/// Throws BrokenClaim with `claimed`, a sentence, unless it holds. To be called outside of what the
/// component traps, where no exception would come through.
inline void claim(bool holds, const char* claimed) {
  if (!holds) {
    throw BrokenClaim(claimed);
  }
}

}  // namespace quorbind::testing
