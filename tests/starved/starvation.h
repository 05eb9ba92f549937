#pragma once

#include <array>
#include <atomic>

namespace quorbind::testing {

/// What a test tells the starved component, and what that tells back. It has one for all its
/// threads, which it exports under the name `starvation`.
///
/// Counted are the places where the component takes memory: C++ objects and texts, and the texts
/// and arrays of automation that it makes itself.
struct Starvation {
  /// How many allocations still succeed before one fails; negative: none fails. After that one
  /// the next ones succeed again.
  std::atomic<long> successesLeft{-1};
  /// Allocations asked for, since the test has put this back to 0.
  std::atomic<long> asked{0};
  /// C++ allocations that nobody has given back yet.
  std::atomic<long> alive{0};
  /// Message boxes that the component would have shown. None comes on the screen.
  std::atomic<long> boxes{0};
  /// What the last one would have said, as far as it fits.
  std::array<wchar_t, 256> lastBox{};
};

}  // namespace quorbind::testing
