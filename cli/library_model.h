#pragma once

// A whole library as its files tell of it, read once: the books with their headings and documents,
// the categories, the search keywords and the link identifiers. What can't be read is told in the
// model and stops nothing but itself.

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "cli/book_file.h"
#include "cli/catalogue_reader.h"
#include "cli/document_finder.h"
#include "cli/paths.h"
#include "cli/side_file_reader.h"
#include "platform/platform.h"

namespace quorbind {

struct LibraryHeading {
  BookHeading heading;
  FoundDocument document;
};

struct LibraryBook {
  ListedBook entry;
  /// As they were typed.
  std::vector<std::string> keywords = {};
  /// None of a single document.
  std::vector<LibraryHeading> headings = {};
  /// Of a single document, which is the whole book.
  FoundDocument document = {};
  /// How many documents are not there, each counted once.
  std::size_t missing = 0;
  /// Why its book file can't be read; empty when it can.
  std::string failure = {};
};

/// A category, and the books that stand under it: those that the categories file files there, and
/// behind them those whose entries name it.
struct LibraryCategory {
  std::string name;
  /// Indices of books, each once.
  std::vector<std::size_t> books = {};
  /// Acronyms that are filed there and that no book has.
  std::vector<std::string> unknownAcronyms = {};
};

struct LibraryLink {
  ListedLink entry;
  /// The index of the book that it leads to; nothing when the library has none with its acronym.
  std::optional<std::size_t> book = std::nullopt;
  /// None where it leads to the book as a whole.
  FoundDocument document = {};

  [[nodiscard]] bool isDangling() const { return !book || document.isMissing(); }
};

struct LibraryModel {
  std::string name;
  /// In the order of the catalogue.
  std::vector<LibraryBook> books;
  /// In the order of the categories file; categories that only entries name stand in front of the
  /// one for all other books, as filing would put them.
  std::vector<LibraryCategory> categories;
  /// Indices of the books that stand under none.
  std::vector<std::size_t> uncategorised;
  std::vector<LibraryLink> links;
  /// Why the catalogue or a side file can't be read, each with its file, named from the library's
  /// folder.
  std::vector<std::string> failures;
};

/// Reads a library.
LibraryModel readLibrary(const Platform& platform,
                         const LibraryPaths& paths,
                         const std::string& name);

/// The headings of a book with their documents. Fails as readHeadings does, and as bookFileOf. A
/// single document has none.
std::vector<LibraryHeading> readLibraryHeadings(const Platform& platform,
                                                const LibraryPaths& paths,
                                                const ListedBook& book,
                                                DocumentFinder& finder);

/// What a library has, and what is wrong in it.
struct LibraryCounts {
  std::size_t books = 0;
  std::size_t headings = 0;
  /// Documents that are not there, each once for a book and in whatever letter case.
  std::size_t missing = 0;
  /// Books and files that can't be read.
  std::size_t unreadable = 0;
  /// Link identifiers that lead to no document.
  std::size_t dangling = 0;

  LibraryCounts& operator+=(const LibraryCounts& more);
};

LibraryCounts countsOf(const LibraryModel& library);

}  // namespace quorbind
