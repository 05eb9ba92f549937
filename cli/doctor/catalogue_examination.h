#pragma once

#include "cli/doctor/examined_library.h"

namespace quorbind {

/// Reads the library's catalogue and holds its entries against each other, and each against its
/// folder and its book file.
void examineCatalogue(ExaminedLibrary& library);

}  // namespace quorbind
