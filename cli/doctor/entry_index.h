#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "cli/catalogue_reader.h"
#include "platform/platform.h"

namespace quorbind {

/// The entries of a catalogue by name and acronym, and which of them a subcommand would take: the
/// first that is called so. Entries are told by their index.
class EntryIndex {
 public:
  using Entry = std::size_t;

  /// Both are kept by reference.
  EntryIndex(const Platform& platform, const std::vector<ListedBook>& books);

  /// The first entry with that name or acronym in any letter case, each as it is stored.
  [[nodiscard]] std::optional<Entry> withName(std::string_view name) const;
  [[nodiscard]] std::optional<Entry> withAcronym(std::string_view acronym) const;
  /// The first entry with the same book file in the same folder, in any letter case; `book` is none
  /// of a single document.
  [[nodiscard]] std::optional<Entry> withBookFileOf(const ListedBook& book) const;
  /// The same for exactly that text.
  [[nodiscard]] std::optional<Entry> withExactName(const std::string& name) const;
  [[nodiscard]] std::optional<Entry> withExactAcronym(const std::string& acronym) const;

  /// The first entry whose name reads as this one's.
  [[nodiscard]] Entry namesake(Entry entry) const;
  /// Whether a subcommand that is given the entry's name takes this entry, and can do so.
  [[nodiscard]] bool isDeletedByName(Entry entry) const;
  [[nodiscard]] bool isRenamedByName(Entry entry) const;

 private:
  using Entries = std::unordered_map<std::string, Entry>;

  [[nodiscard]] std::string placeOf(const ListedBook& book) const;

  const Platform& platform_;
  const std::vector<ListedBook>& books_;
  /// The first entry of each text: as it is stored, as it is typed, and in upper case.
  Entries names_;
  Entries acronyms_;
  Entries typedNames_;
  Entries upperNames_;
  Entries upperAcronyms_;
  /// By folder and file in upper case.
  Entries bookFiles_;
};

}  // namespace quorbind
