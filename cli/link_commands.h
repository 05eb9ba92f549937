#pragma once

#include <string>

#include "cli/arguments.h"
#include "cli/exit_status.h"
#include "cli/library_change.h"

namespace quorbind {

struct ListLinksArguments {
  LibraryArguments place;
  bool json = false;
};

struct AddLinkArguments {
  LibraryArguments place;
  ChangeFlags change;
  std::string identifier;
  std::string fullLink;
  std::string source;
  std::string acronym;
};

struct CheckLinksArguments {
  LibraryArguments place;
  bool json = false;
};

struct MergeLinksArguments {
  LibraryArguments place;
  ChangeFlags change;
  /// The other library's file, as this machine names it.
  std::string from;
};

/// Prints a library's link identifiers.
ExitStatus runListLinks(const ListLinksArguments& arguments);
ExitStatus runAddLink(const AddLinkArguments& arguments);
/// Looks for identifiers of the library that stand more than once on the server. Some: refused.
ExitStatus runCheckLinks(const CheckLinksArguments& arguments);
/// Takes over what the library lacks of another one's identifiers.
ExitStatus runMergeLinks(const MergeLinksArguments& arguments);

}  // namespace quorbind
