#pragma once

#include <algorithm>
#include <string>
#include <vector>

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

/// Names of the files that differ between two trees, those that only one has included.
inline std::vector<std::string> differences(const WholeLibrary::Tree& left,
                                            const WholeLibrary::Tree& right) {
  std::vector<std::string> names;
  for (const WholeLibrary::Tree* tree : {&left, &right}) {
    for (const auto& [name, bytes] : *tree) {
      const bool isSame =
          left.contains(name) && right.contains(name) && left.at(name) == right.at(name);
      if (!isSame && std::find(names.begin(), names.end(), name) == names.end()) {
        names.push_back(name);
      }
    }
  }
  return names;
}

}  // namespace quorbind::testing
