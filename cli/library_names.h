#pragma once

#include <string>
#include <vector>

#include "cli/paths.h"
#include "cli/wiring.h"

namespace quorbind {

/// The names of the server's libraries, in the order of its list, each once in whatever letter
/// case; without a list those of the folders that hold a catalogue. Names that lead elsewhere are
/// left out. A list that can't be read is a CommandFailure.
std::vector<std::string> libraryNames(Wiring& wiring, const LibraryPaths& server);

}  // namespace quorbind
