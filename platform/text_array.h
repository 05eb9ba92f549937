#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/runtime_error.h"

namespace quorbind {

/// A one-dimensional array of texts as hosts hand it over: its first element has whatever index the
/// caller gave it. One without elements still has its bounds, which one that the caller never set
/// has not.
struct TextArray {
  std::vector<std::string> texts;
  std::int32_t lowerBound = 0;
  bool isSet = true;

  /// An array that the caller never set. It has no elements either.
  static TextArray unset() { return {.texts = {}, .lowerBound = 0, .isSet = false}; }
  /// Raises 9 for an array that was never set, as asking for its bounds does in a host.
  void requireSet() const {
    if (!isSet) {
      raise(ErrorNumber::kSubscriptOutOfRange);
    }
  }

  /// The index of the last element; one below `lowerBound` when there is none.
  [[nodiscard]] std::int64_t upperBound() const {
    return lowerBound + static_cast<std::int64_t>(texts.size()) - 1;
  }
  /// The element with that index, as the caller counts. Raises 9 outside the bounds.
  [[nodiscard]] std::string& at(std::int64_t index) { return texts[positionOf(index)]; }
  [[nodiscard]] const std::string& at(std::int64_t index) const { return texts[positionOf(index)]; }

 private:
  [[nodiscard]] std::size_t positionOf(std::int64_t index) const {
    if (index < lowerBound || index > upperBound()) {
      raise(ErrorNumber::kSubscriptOutOfRange);
    }
    return static_cast<std::size_t>(index - lowerBound);
  }
};

}  // namespace quorbind
