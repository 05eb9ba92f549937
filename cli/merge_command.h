#pragma once

#include <string>

#include "cli/arguments.h"
#include "cli/exit_status.h"
#include "cli/library_change.h"

namespace quorbind {

struct MergeArguments {
  LibraryArguments place;
  ChangeFlags change;
  /// The other catalogue, as this machine names it.
  std::string from;
};

/// Takes links and categories of the books that both catalogues have over from another one.
ExitStatus runMerge(const MergeArguments& arguments);

}  // namespace quorbind
