#pragma once

// The examination of a server: its list of libraries first, then each library.

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "cli/doctor/finding.h"
#include "platform/platform.h"

namespace quorbind {

/// What was found in one library.
struct LibraryDiagnosis {
  std::string library;
  std::size_t books = 0;
  std::size_t headings = 0;
  Findings findings;
};

/// What was found on a server.
struct ServerDiagnosis {
  /// Of the server itself, and of files of libraries that were not examined.
  Findings findings;
  std::vector<LibraryDiagnosis> libraries;

  [[nodiscard]] std::size_t count(Severity severity) const;
};

/// Examines the server in that folder, which is named in full as this machine does: all libraries
/// that its list has or whose catalogues lie there, or the one named. A server without its folder
/// of libraries, and a library that is nowhere, is a CommandFailure.
ServerDiagnosis examineServer(const Platform& platform,
                              const std::string& server,
                              const std::optional<std::string>& library);

}  // namespace quorbind
