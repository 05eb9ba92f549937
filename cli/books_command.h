#pragma once

#include "cli/arguments.h"
#include "cli/exit_status.h"

namespace quorbind {

struct BooksArguments {
  LibraryArguments place;
  bool json = false;
};

/// Prints the names of a library's books.
ExitStatus runBooks(const BooksArguments& arguments);

}  // namespace quorbind
