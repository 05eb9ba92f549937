#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/doctor/finding.h"
#include "cli/paths.h"
#include "platform/platform.h"

namespace quorbind {

/// The names of a server's libraries that have a folder: those of its list, and behind them those
/// whose catalogues lie beside. Tells what is wrong with the list; with `only`, of that library's
/// entries alone. Answers all libraries in either case.
///
/// `server` is the folder, named in full as this machine does. Fails where there is none for
/// libraries.
std::vector<std::string> findLibraries(const Platform& platform,
                                       const std::string& server,
                                       const std::optional<std::string>& only,
                                       Findings& findings);

}  // namespace quorbind
