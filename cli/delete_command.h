#pragma once

#include <string>

#include "cli/arguments.h"
#include "cli/exit_status.h"
#include "cli/library_change.h"

namespace quorbind {

struct DeleteArguments {
  LibraryArguments place;
  ChangeFlags change;
  /// As it is typed.
  std::string name;
};

/// Takes a book out of the catalogue; its files stay.
ExitStatus runDelete(const DeleteArguments& arguments);

}  // namespace quorbind
