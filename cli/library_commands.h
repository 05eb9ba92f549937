#pragma once

#include <string>

#include "cli/exit_status.h"

namespace quorbind {

struct LibrariesArguments {
  std::string server;
  bool json = false;
};

struct WhereArguments {
  std::string server;
  std::string library;
  bool json = false;
};

/// Prints the names of the server's libraries.
ExitStatus runLibraries(const LibrariesArguments& arguments);

/// Prints where the catalogue of a library lies.
ExitStatus runWhere(const WhereArguments& arguments);

}  // namespace quorbind
