#pragma once

// Where the documents that a library's files name are. Each is looked for in one way, whoever asks.

#include <string_view>

#include "cli/catalogue_reader.h"
#include "cli/document_finder.h"
#include "cli/paths.h"
#include "cli/side_file_reader.h"

namespace quorbind {

/// The document of a heading, in the book's folder. One of a book that leads out of the library is
/// missing.
FoundDocument findInBook(const LibraryPaths& paths,
                         const ListedBook& book,
                         std::string_view document,
                         std::string_view bookmark,
                         DocumentFinder& finder);

/// The document that an entry of a single document is.
FoundDocument findSingleDocument(const LibraryPaths& paths,
                                 const ListedBook& book,
                                 DocumentFinder& finder);

/// The document that a link identifier of the book leads to: below the library's folder or in the
/// book's, where its source says, or in the book's by its last name alone. None where it leads to
/// the book as a whole.
FoundDocument findLinkTarget(const LibraryPaths& paths,
                             const ListedBook& book,
                             const ListedLink& link,
                             DocumentFinder& finder);

}  // namespace quorbind
