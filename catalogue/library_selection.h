#pragma once

#include <string>
#include <vector>

#include "platform/platform.h"

namespace quorbind {

/// The full path of the catalogue of the library of exactly that name, which need not exist. Empty
/// after the user was told why there is none.
std::string QuorLocation(const Platform& platform, const std::string& vstrQuorName);

/// The names of the server's libraries, and an empty entry. Nothing at all after the user was told
/// that the list does not load.
std::vector<std::string> QuorNames(const Platform& platform);

}  // namespace quorbind
