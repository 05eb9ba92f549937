#include "cli/doctor/entry_index.h"

#include "platform/locale.h"
#include "platform/paths.h"
#include "platform/text.h"
#include "platform/toolset.h"

namespace quorbind {

namespace {

template <typename Entries>
std::optional<EntryIndex::Entry> find(const Entries& entries, const std::string& text) {
  const auto found = entries.find(text);
  return found == entries.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace

EntryIndex::EntryIndex(const Platform& platform, const std::vector<ListedBook>& books)
    : platform_(platform), books_(books) {
  for (Entry entry = 0; entry < books.size(); ++entry) {
    const ListedBook& book = books[entry];
    names_.emplace(book.name, entry);
    acronyms_.emplace(book.acronym, entry);
    typedNames_.emplace(readableName(book.name), entry);
    upperNames_.emplace(platform.locale.upperCase(book.name), entry);
    upperAcronyms_.emplace(platform.locale.upperCase(book.acronym), entry);
    if (!book.fileType) {
      bookFiles_.emplace(placeOf(book), entry);
    }
  }
}

std::optional<EntryIndex::Entry> EntryIndex::withName(std::string_view name) const {
  return find(upperNames_, platform_.locale.upperCase(name));
}

std::optional<EntryIndex::Entry> EntryIndex::withAcronym(std::string_view acronym) const {
  return find(upperAcronyms_, platform_.locale.upperCase(acronym));
}

std::optional<EntryIndex::Entry> EntryIndex::withBookFileOf(const ListedBook& book) const {
  return find(bookFiles_, placeOf(book));
}

std::string EntryIndex::placeOf(const ListedBook& book) const {
  return platform_.locale.upperCase(joinedPath(book.folder, book.bookFile));
}

std::optional<EntryIndex::Entry> EntryIndex::withExactName(const std::string& name) const {
  return find(names_, name);
}

std::optional<EntryIndex::Entry> EntryIndex::withExactAcronym(const std::string& acronym) const {
  return find(acronyms_, acronym);
}

EntryIndex::Entry EntryIndex::namesake(Entry entry) const {
  return typedNames_.at(readableName(books_[entry].name));
}

bool EntryIndex::isDeletedByName(Entry entry) const {
  const std::string& name = books_[entry].name;
  return namesake(entry) == entry && !trimBlanks(name).empty() && !contains(name, "'");
}

/// A rename looks for the replaced form of the name, and for the acronym by itself.
bool EntryIndex::isRenamedByName(Entry entry) const {
  const ListedBook& book = books_[entry];
  const std::string lookedUp =
      platform_.toolset.createXmlTextRules()->mstrCheckSpecialCharecters(readableName(book.name));
  return namesake(entry) == entry && book.name == lookedUp && !trimBlanks(book.name).empty() &&
         acronyms_.at(book.acronym) == entry && !trimBlanks(book.acronym).empty();
}

}  // namespace quorbind
