#pragma once

#include <string>

#include "platform/platform.h"

namespace quorbind {

/// Brings an existing book file and the documents that its headings name from the folder of
/// `tocPath` into the folder `destination`, which is made when it is missing. Documents that stand
/// there already stay as they are; the others go through the copying component one by one, each to
/// its place below the folder.
///
/// The book file arrives under its own name and under `bookFileName`, the name by which the
/// catalogue will know it, and replaces what stood there. Under a name that the library's own files
/// have it does not arrive.
///
/// All errors are ignored, and a file that does not load brings nothing. Names in it that lead out
/// of the folder, or that the library's own files have, are never looked at.
void copyBookFile(const Platform& platform,
                  const std::string& tocPath,
                  const std::string& destination,
                  const std::string& bookFileName);

}  // namespace quorbind
