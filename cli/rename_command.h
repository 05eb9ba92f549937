#pragma once

#include <string>

#include "cli/arguments.h"
#include "cli/book_flags.h"
#include "cli/exit_status.h"
#include "cli/library_change.h"

namespace quorbind {

struct RenameArguments {
  LibraryArguments place;
  ChangeFlags change;
  /// What the book is called, as it is typed.
  std::string name;
  BookNaming naming;
};

/// Gives a book another name and another acronym.
ExitStatus runRename(const RenameArguments& arguments);

}  // namespace quorbind
