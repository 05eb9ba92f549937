#pragma once

#include "cli/catalogue_reader.h"
#include "cli/paths.h"
#include "cli/wiring.h"

namespace quorbind {

/// Tells the user which of the library's side files go on naming a book by its name or acronym. The
/// component leaves them alone when it renames a book or takes it out of the catalogue. One that
/// does not load is passed over.
void tellTraces(Wiring& wiring, const LibraryPaths& library, const ListedBook& book);

}  // namespace quorbind
