#include "cli/doctor/examined_library.h"

#include <utility>

#include "bookxml/names.h"
#include "catalogue/names.h"
#include "cli/doctor/mending_command.h"
#include "cli/failure.h"
#include "platform/file_system.h"
#include "platform/locale.h"
#include "platform/paths.h"
#include "platform/text.h"

namespace quorbind {

bool isNamedAsBookFile(std::string_view name) {
  return startsIgnoringAsciiCase(name, book_names::kFilePrefix) &&
         endsIgnoringAsciiCase(name, book_names::kFileExtension);
}

ExaminedLibrary::ExaminedLibrary(const Platform& platformOfRun, LibraryArguments placeOnServer)
    : platform(platformOfRun),
      place(std::move(placeOnServer)),
      paths(place.server, place.library),
      listings_(platform.files, platform.locale),
      lines_(platform.xml, paths.catalogue, std::string(catalogue_names::kBookPath)) {}

bool ExaminedLibrary::hasFile(const std::string& path) {
  return listings_.hasFile(platform.files.absolutePath(path));
}

std::string ExaminedLibrary::upperCase(std::string_view text) const {
  return platform.locale.upperCase(text);
}

std::optional<std::string> ExaminedLibrary::fileOf(const ListedBook& book) const {
  try {
    return bookFileOf(paths, book);
  } catch (const CommandFailure&) {
    return std::nullopt;
  }
}

void ExaminedLibrary::claim(const std::string& path) {
  if (!isNamedAsBookFile(fileNameOf(path))) {
    return;
  }
  claimed_.insert(upperCase(platform.files.absolutePath(path)));
}

bool ExaminedLibrary::isClaimed(const std::string& path) const {
  return claimed_.contains(upperCase(platform.files.absolutePath(path)));
}

FindingPlace ExaminedLibrary::placeOf(EntryIndex::Entry entry) {
  return {paths.catalogue, lines_.lineOf(entry)};
}

std::string ExaminedLibrary::deletionOf(EntryIndex::Entry entry) const {
  if (!entries->isDeletedByName(entry)) {
    return {};
  }
  return mendingCommand("delete", {readableName(books[entry].name)}, {}, place);
}

std::string ExaminedLibrary::renamingOf(EntryIndex::Entry entry, bool keepsNames) const {
  if (!entries->isRenamedByName(entry)) {
    return {};
  }
  const std::string name = readableName(books[entry].name);
  std::vector<MendingFlag> flags;
  if (keepsNames) {
    flags = {{"--name", name}, {"--acro", readableName(books[entry].acronym)}};
  }
  return mendingCommand("rename", {name}, flags, place);
}

}  // namespace quorbind
