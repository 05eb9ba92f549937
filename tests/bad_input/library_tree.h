#pragma once

#include <string>

#include "tests/bad_input/whole_library.h"

namespace quorbind::testing {

/// Takes `name`, and what is in it when it is a folder, out of a tree.
inline void erase(WholeLibrary::Tree& tree, const std::string& name) {
  std::erase_if(tree, [&](const auto& entry) {
    return entry.first == name || entry.first.starts_with(name + "/");
  });
}

/// Makes `name` in `tree` what it is in `source`.
inline void take(WholeLibrary::Tree& tree,
                 const std::string& name,
                 const WholeLibrary::Tree& source) {
  erase(tree, name);
  if (const auto found = source.find(name); found != source.end()) {
    tree.insert(*found);
  }
}

}  // namespace quorbind::testing
