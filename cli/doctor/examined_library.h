#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "cli/arguments.h"
#include "cli/catalogue_reader.h"
#include "cli/doctor/entry_index.h"
#include "cli/doctor/entry_lines.h"
#include "cli/doctor/finding.h"
#include "cli/paths.h"
#include "platform/folder_listings.h"
#include "platform/platform.h"

namespace quorbind {

/// Whether a file of that name would be taken for the book file of a book.
bool isNamedAsBookFile(std::string_view name);

/// One library while it is examined: what is known of it, and what was found.
class ExaminedLibrary {
 public:
  /// The platform is kept by reference. The server of `place` is named in full.
  ExaminedLibrary(const Platform& platform, LibraryArguments place);

  /// Whether there is such a file. Folders are listed once.
  [[nodiscard]] bool hasFile(const std::string& path);
  [[nodiscard]] std::string upperCase(std::string_view text) const;

  /// The component's name of an entry's file; nothing where the entry leads out of the library.
  [[nodiscard]] std::optional<std::string> fileOf(const ListedBook& book) const;

  /// Remembers that the file at `path` belongs to a book. Only those that are named as book files
  /// are of interest.
  void claim(const std::string& path);
  [[nodiscard]] bool isClaimed(const std::string& path) const;

  /// The line of an entry in the catalogue.
  [[nodiscard]] FindingPlace placeOf(EntryIndex::Entry entry);
  /// The command lines that delete an entry and that rename its book; empty where a subcommand
  /// would take another entry, or none.
  [[nodiscard]] std::string deletionOf(EntryIndex::Entry entry) const;
  [[nodiscard]] std::string renamingOf(EntryIndex::Entry entry, bool keepsNames = false) const;

  const Platform& platform;
  const LibraryArguments place;
  const LibraryPaths paths;
  Findings findings;
  std::vector<ListedBook> books;
  /// Null where the catalogue can't be read: then nothing can be said of the books.
  std::unique_ptr<EntryIndex> entries;
  std::size_t headings = 0;

 private:
  FolderListings listings_;
  EntryLines lines_;
  /// In upper case.
  std::unordered_set<std::string> claimed_;
};

}  // namespace quorbind
