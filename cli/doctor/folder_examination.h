#pragma once

#include "cli/doctor/examined_library.h"

namespace quorbind {

/// Walks through the library's folder and tells of what belongs to no book: files that killed runs
/// have left, book files and folders that no entry names. The catalogue has been examined.
void examineFolders(ExaminedLibrary& library);

}  // namespace quorbind
