#pragma once

#include <optional>
#include <string>

#include "cli/arguments.h"
#include "cli/exit_status.h"

namespace quorbind {

struct BooksArguments {
  LibraryArguments place;
  /// The workbook whose books are asked for instead.
  std::optional<std::string> workbook;
  bool json = false;
};

/// Prints the names of a library's books, or the books of a workbook with their places.
ExitStatus runBooks(const BooksArguments& arguments);

}  // namespace quorbind
