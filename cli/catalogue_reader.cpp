#include "cli/catalogue_reader.h"

#include <array>
#include <utility>

#include "catalogue/names.h"
#include "cli/failure.h"
#include "cli/paths.h"
#include "platform/file_system.h"
#include "platform/text.h"
#include "platform/xml_document.h"

namespace quorbind {

namespace {

std::string textOf(const XmlNode& book, std::string_view element) {
  const XmlNode child = book.child(element);
  return child ? child.text() : std::string();
}

CatalogueEntry entryOf(const XmlNode& book) {
  using namespace catalogue_names;
  return {.name = textOf(book, kName),
          .acronym = textOf(book, kAcro),
          .folder = textOf(book, kFolder),
          .bookFile = textOf(book, kBookFile)};
}

}  // namespace

std::vector<CatalogueEntry> readCatalogue(const Platform& platform, const std::string& path) {
  requireReadable(platform.files, path, nativeName(path));
  const auto document = platform.xml.createDocument();
  if (const XmlLoadResult result = document->load(path); !result) {
    throw loadFailure(path, result);
  }
  const XmlNode books = document->select(catalogue_names::kBooksPath);
  if (!books) {
    throw CommandFailure(
        ExitStatus::kNotParseable,
        nativeName(path) + ": the element " + std::string(catalogue_names::kBooks) + " is missing");
  }
  std::vector<CatalogueEntry> entries;
  for (const XmlNode& child : books.children()) {
    if (child.name() == catalogue_names::kBook) {
      entries.push_back(entryOf(child));
    }
  }
  return entries;
}

std::string bookFileOf(const LibraryPaths& library, const CatalogueEntry& book) {
  const std::string file = book.folder.empty() ? book.bookFile : book.folder + "\\" + book.bookFile;
  if (!staysBelow(file)) {
    throw CommandFailure(
        ExitStatus::kRefused,
        nativeName(library.catalogue) + ": the book file " + file + " is not in the library");
  }
  return library.folder + "\\" + file;
}

std::string readableName(std::string_view stored) {
  constexpr std::array<std::pair<std::string_view, std::string_view>, 5> kReplacements{
      {{"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&apos;", "'"}, {"&amp;", "&"}}};
  std::string name(stored);
  for (const auto& [replacement, character] : kReplacements) {
    name = replaceAll(name, replacement, character);
  }
  return name;
}

}  // namespace quorbind
