#include "tests/bad_input/library_states.h"

#include <algorithm>

#include "platform/abandoned.h"
#include "tests/bad_input/library_tree.h"

namespace quorbind::testing {

namespace {

using Tree = WholeLibrary::Tree;

Tree stateAt(std::size_t call, const LibraryOperation& operation, WholeLibrary& library) {
  library.calls.stopAt(call);
  try {
    endOf(operation, library);
  } catch (const Abandoned&) {
  }
  library.calls.reset();
  return library.files.contents();
}

}  // namespace

LibraryStates::LibraryStates(const LibraryOperation& operation,
                             WholeLibrary& library,
                             const Tree& before) {
  library.files.restore(before);
  library.calls.reset();
  end_ = endOf(operation, library);
  calls_ = library.calls.calls();
  for (std::size_t call = 0; call <= calls_.size(); ++call) {
    library.files.restore(before);
    states_.push_back(stateAt(call, operation, library));
  }
}

std::vector<std::string> LibraryStates::strangersIn(const Tree& tree) const {
  std::vector<std::string> names = differences(states_.front(), tree);
  for (const std::string& name : differences(states_.back(), tree)) {
    names.push_back(name);
  }
  std::erase_if(names, [&](const std::string& name) { return isKnown(name, tree); });
  return names;
}

bool LibraryStates::isKnown(const std::string& name, const Tree& tree) const {
  return std::any_of(states_.begin(), states_.end(), [&](const Tree& state) {
    const auto known = state.find(name);
    const auto found = tree.find(name);
    return known == state.end() || found == tree.end() ? known == state.end() && found == tree.end()
                                                       : known->second == found->second;
  });
}

}  // namespace quorbind::testing
