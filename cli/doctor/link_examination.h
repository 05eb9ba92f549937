#pragma once

#include "cli/doctor/examined_library.h"
#include "cli/doctor/server_links.h"

namespace quorbind {

/// Looks whether the library's link identifiers stand once on the server, and whether they lead to
/// something. The catalogue has been examined.
void examineLinks(ExaminedLibrary& library, const ServerLinks& links);

}  // namespace quorbind
