#pragma once

#include <string>

#include "platform/platform.h"

namespace quorbind {

/// From where to where a book file goes.
struct BookFileWay {
  const std::string& tocPath;
  /// The folder of the book.
  const std::string& destination;
  /// Of the library; where it lies in the folder of the book, so do the library's other files.
  const std::string& catalogue;
};

/// Brings an existing book file and the documents that its headings name from the folder of the
/// book file into its destination, which is made when it is missing. Documents that stand there
/// already stay as they are, and of what they link to comes what does not stand there; the others
/// go through the copying component one by one, each to its place below the folder. One that is a
/// book file itself is copied without it, because the component would bring the documents of that
/// book as well.
///
/// The book file arrives under its own name and under `bookFileName`, the name by which the
/// catalogue will know it, and replaces what stood there. Beside the catalogue nothing arrives
/// under a name that the library's own files have.
///
/// All errors of copying are ignored, and a file that does not load brings nothing. Raises 61 or 57
/// when the documents that came could not be flushed. Names in the file that lead out of the folder
/// are never looked at.
void copyBookFile(const Platform& platform,
                  const BookFileWay& way,
                  const std::string& bookFileName);

}  // namespace quorbind
