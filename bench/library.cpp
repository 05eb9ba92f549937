#include "bench/library.h"

#include <filesystem>

namespace quorbind::bench {

namespace {

constexpr const char* kNewBookFolder = "Docs/Plant/REN";

}  // namespace

Library::Library(std::size_t bookCount)
    : books(bookCount),
      catalogue_(catalogueOf(books, kCategoriesOfBook, "")),
      lastBookFile_(contentOfBook(lastBook())),
      largeBookFile_(bookFileOf(books)) {
  world.disk.write(kSelectionListFile, selectionListOf(books));
  world.disk.write(kOtherCatalogueFile, catalogueOf(books, kCategoriesOfBook, kLink));
  world.disk.write(kDocumentFile, "");
  for (std::size_t number = 0; number < books; ++number) {
    world.disk.write(fileOfBook(number), contentOfBook(number));
  }
  reset();
  resetLargeBook();
}

void Library::reset() {
  std::filesystem::remove_all(systemPath(kLibraryFolder + acronymOfBook(lastBook())));
  std::filesystem::remove_all(systemPath(kNewBookFolder));
  world.disk.write(fileOfBook(lastBook()), lastBookFile_);
  world.disk.write(kLibraryCatalogueFile, catalogue_);
  world.user.forget();
  world.state() = {};
}

void Library::resetLargeBook() {
  world.disk.write(kLargeBookFile, largeBookFile_);
  world.user.forget();
}

}  // namespace quorbind::bench
