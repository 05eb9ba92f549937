#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

#include "tests/bad_input/whole_library.h"
#include "workflow/driver/book_valuator.h"
#include "workflow/forms/module.h"

namespace quorbind::testing {

/// One published operation on the library `Plant` of a WholeLibrary, with arguments with which it
/// has something to do there.
struct LibraryOperation {
  std::string name;
  /// What the operation answers is noted in the user's record behind the boxes that it showed.
  std::function<void(Module&, ScriptedUserInterface&)> run;
};

void PrintTo(const LibraryOperation& operation, std::ostream* out);
/// Its name as a part of a test's name.
std::string identifierOf(const ::testing::TestParamInfo<LibraryOperation>& parameter);

/// The arguments that add the table of contents `toc`, of that kind, to the library, with all that
/// a host can give. A book file has a name of its own.
BookValuatorArguments additionOf(const std::string& toc, std::int16_t kind);

/// Every operation that reads or changes a file of a library, and the whole addition of a book.
const std::vector<LibraryOperation>& libraryOperations();

/// What an operation showed and answered, and what it left.
struct OperationEnd {
  std::vector<std::string> record;
  WholeLibrary::Tree tree;
};

/// Runs the operation in a component that has run nothing yet, on the library as it stands.
OperationEnd endOf(const LibraryOperation& operation, WholeLibrary& library);

}  // namespace quorbind::testing
