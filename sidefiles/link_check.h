#pragma once

#include <string>
#include <vector>

#include "platform/platform.h"

namespace quorbind {

/// Whether the file of any product has the identifier, the blanks at the ends of both left out.
/// When one has, the user is told. False after an error, which is told.
bool CheckDuplicateLinkID(const Platform& platform, const std::string& identifier);

/// The files of link identifiers of all products, in the order of the server's list; those that are
/// there. Raises what the tool set raises.
std::vector<std::string> productLinkFiles(const Platform& platform);

/// The identifiers in the file at `path`, without blanks at their ends. None when it does not load.
std::vector<std::string> trimmedLinkIds(const Platform& platform, const std::string& path);

}  // namespace quorbind
