#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "cli/arguments.h"
#include "cli/book_flags.h"
#include "cli/exit_status.h"
#include "cli/library_change.h"

namespace quorbind {

struct InstallArguments {
  LibraryArguments place;
  ChangeFlags change;
  /// The document, as this machine names it.
  std::string file;
  /// Its name in the library; its own when not given.
  std::optional<std::string> fileName;
  std::string type;
  BookNaming naming;
  std::string keywords;
  std::string categories;
  std::int32_t installType = 0;
  bool createCategories = false;
};

/// Installs a single document as a book.
ExitStatus runInstall(const InstallArguments& arguments);

}  // namespace quorbind
