#pragma once

#include <string>

#include "cli/doctor/examined_library.h"

namespace quorbind {

/// Looks into the book file of an entry: whether it says of its book what the catalogue says, and
/// whether its documents are there.
void examineBook(ExaminedLibrary& library, EntryIndex::Entry entry, const std::string& file);

}  // namespace quorbind
