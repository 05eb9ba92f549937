#pragma once

// Arrays of entries as the category operations take and give them: the first element is an empty
// placeholder, and the entries follow it.

#include <span>
#include <string>

#include "platform/text_array.h"

namespace quorbind {

/// An array without entries: the placeholder alone, at index 0.
inline TextArray noEntries() {
  return {{std::string()}};
}

/// The elements behind the first. Raises 9 for an array that was never set.
inline std::span<const std::string> entriesOf(const TextArray& array) {
  array.requireSet();
  const std::span<const std::string> all(array.texts);
  return all.empty() ? all : all.subspan(1);
}

}  // namespace quorbind
