#pragma once

#include <string>
#include <vector>

#include "tests/bad_input/library_operations.h"

namespace quorbind::testing {

/// The states of a library that one operation takes it through, from the first to the last: before
/// each of its calls that change something, and at its end. The operation may as well be one that
/// is not published.
class LibraryStates {
 public:
  LibraryStates(const LibraryOperation& operation,
                WholeLibrary& library,
                const WholeLibrary::Tree& before);

  [[nodiscard]] const std::vector<WholeLibrary::Tree>& states() const { return states_; }
  /// The calls of a run that nothing happens to.
  [[nodiscard]] const std::vector<ChangingCall>& calls() const { return calls_; }
  /// How that run ends.
  [[nodiscard]] const OperationEnd& end() const { return end_; }

  /// Names of the files that are in none of the states that they are taken through; one that is
  /// missing is in the state of a missing file.
  [[nodiscard]] std::vector<std::string> strangersIn(const WholeLibrary::Tree& tree) const;

 private:
  [[nodiscard]] bool isKnown(const std::string& name, const WholeLibrary::Tree& tree) const;

  OperationEnd end_;
  std::vector<ChangingCall> calls_;
  std::vector<WholeLibrary::Tree> states_;
};

}  // namespace quorbind::testing
