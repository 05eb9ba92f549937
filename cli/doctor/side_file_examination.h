#pragma once

#include "cli/doctor/examined_library.h"

namespace quorbind {

/// Holds the library's categories file and its catalogue against each other.
void examineCategories(ExaminedLibrary& library);

/// Looks whether the library has the books whose search keywords it has.
void examineKeywords(ExaminedLibrary& library);

}  // namespace quorbind
