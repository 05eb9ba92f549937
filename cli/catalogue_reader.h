#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/paths.h"
#include "platform/platform.h"

namespace quorbind {

/// One book of a catalogue, every text as it is stored.
struct ListedBook {
  std::string name;
  std::string acronym;
  std::string folder;
  std::string bookFile;
  /// What kind of file that is; nothing for a book XML file.
  std::optional<std::string> fileType = std::nullopt;
  std::string link = {};
  std::vector<std::string> categories = {};

  bool operator==(const ListedBook&) const = default;
};

/// The books of the catalogue at `path`, in its order, as the component finds them. A catalogue
/// that is not there or can't be read, does not parse, or lacks the list of books is a
/// CommandFailure that says which and where.
std::vector<ListedBook> readCatalogue(const Platform& platform, const std::string& path);

/// The books that the component has put in between `before` and `after`: behind all others of the
/// first list of books, which need not be the only one. What another host changes in entries of
/// that list meanwhile is not taken for one of them.
std::vector<ListedBook> addedBooks(const std::vector<ListedBook>& before,
                                   const std::vector<ListedBook>& after);

/// Fails as readCatalogue does, and takes no memory for the books.
void requireCatalogue(const Platform& platform, const std::string& path);

/// The first book that is called so, as a name is typed. Without one: a CommandFailure.
const ListedBook& requireBookNamed(const std::vector<ListedBook>& books,
                                   const std::string& name,
                                   const std::string& library);
/// The first book with that acronym, as it is typed. Without one: a CommandFailure.
const ListedBook& requireBookWithAcronym(const std::vector<ListedBook>& books,
                                         const std::string& acronym,
                                         const std::string& library);

/// The component's name of the entry's book file. An entry that leads out of the library is a
/// CommandFailure.
std::string bookFileOf(const LibraryPaths& library, const ListedBook& book);

/// A stored name as it was typed: without the replacements for markup characters.
std::string readableName(std::string_view stored);

/// What a person is shown of a title or a name as it was typed: an empty one could not be seen.
std::string legibleName(const std::string& typed);

/// A book as messages call it: `NAME (ACRONYM)`, both as they were typed.
std::string titleOf(const ListedBook& book);

/// A folder of a library as messages call it: `folder NAME`, or the library's own.
std::string folderTitle(const std::string& folder);
/// The same of the book's folder.
std::string placeOf(const ListedBook& book);

}  // namespace quorbind
