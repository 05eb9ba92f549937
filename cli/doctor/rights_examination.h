#pragma once

#include "cli/doctor/examined_library.h"

namespace quorbind {

/// Looks whether this user may replace the library's files. The files of the run are asked for it,
/// which has to be one that changes nothing. The catalogue has been examined.
void examineRights(ExaminedLibrary& library);

}  // namespace quorbind
