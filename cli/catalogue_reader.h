#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cli/paths.h"
#include "platform/platform.h"

namespace quorbind {

/// One book of a catalogue, every text as it is stored.
struct CatalogueEntry {
  std::string name;
  std::string acronym;
  std::string folder;
  std::string bookFile;
};

/// The books of the catalogue at `path`, in its order. A catalogue that is not there or can't be
/// read, does not parse, or lacks the list of books is a CommandFailure that says which and where.
std::vector<CatalogueEntry> readCatalogue(const Platform& platform, const std::string& path);

/// The component's name of the entry's book file. An entry that leads out of the library is a
/// CommandFailure.
std::string bookFileOf(const LibraryPaths& library, const CatalogueEntry& book);

/// A stored name as it was typed: without the replacements for markup characters.
std::string readableName(std::string_view stored);

}  // namespace quorbind
