#include "cli/library_documents.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "platform/paths.h"

namespace quorbind {

namespace {

/// The folder that holds a book's documents, below the server's. Nothing for one that leads out of
/// the library.
std::optional<std::string> folderBelowServer(const LibraryPaths& paths, const ListedBook& book) {
  if (book.folder.empty()) {
    return paths.location;
  }
  const auto below = nameBelow(book.folder);
  return below ? std::optional(joinedPath(paths.location, *below)) : std::nullopt;
}

/// The identifier of a whole book has the book's table of contents for its source, in full; that
/// does not come into the library.
bool isNamedInFull(std::string_view document) {
  return document.starts_with('\\') || document.substr(0, 2).ends_with(':');
}

}  // namespace

FoundDocument findInBook(const LibraryPaths& paths,
                         const ListedBook& book,
                         std::string_view document,
                         std::string_view bookmark,
                         DocumentFinder& finder) {
  const auto folder = folderBelowServer(paths, book);
  return folder ? finder.find(*folder, document, bookmark)
                : FoundDocument{.state = FoundDocument::State::kMissing};
}

FoundDocument findSingleDocument(const LibraryPaths& paths,
                                 const ListedBook& book,
                                 DocumentFinder& finder) {
  return findInBook(paths, book, book.bookFile, "", finder);
}

FoundDocument findLinkTarget(const LibraryPaths& paths,
                             const ListedBook& book,
                             const ListedLink& link,
                             DocumentFinder& finder) {
  const std::string source = withBackslashes(documentOf(link));
  const std::size_t mark = std::min(source.find('#'), source.size());
  const std::string_view document = std::string_view(source).substr(0, mark);
  const std::string_view bookmark = documentOf(link).substr(mark);
  if (isNamedInFull(document)) {
    return {};
  }
  FoundDocument target = finder.find(paths.location, document, bookmark);
  // The folders of a source are the author's, and not all of them come into the library.
  for (const std::string_view name : std::array{document, fileNameOf(document)}) {
    if (target.isMissing()) {
      target = findInBook(paths, book, name, bookmark, finder);
    }
  }
  return target;
}

}  // namespace quorbind
