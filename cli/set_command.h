#pragma once

#include <optional>
#include <string>

#include "cli/arguments.h"
#include "cli/exit_status.h"
#include "cli/library_change.h"

namespace quorbind {

struct SetArguments {
  LibraryArguments place;
  ChangeFlags change;
  /// As it is typed.
  std::string name;
  // What is not given stays as it is.
  std::optional<std::string> folder;
  std::optional<std::string> categories;
  std::optional<std::string> link;
};

/// Gives a book another folder, other categories or another link.
ExitStatus runSet(const SetArguments& arguments);

}  // namespace quorbind
