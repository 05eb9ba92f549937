#include "bench/side_files.h"

namespace quorbind::bench {

namespace {

/// Goes through all indices below `count` by steps that are no divisor of the sizes in use, so that
/// what is sorted begins in no order.
std::size_t shuffled(std::size_t index, std::size_t count) {
  constexpr std::size_t kStep = 7'919;
  return index * kStep % count;
}

}  // namespace

SideFiles::SideFiles(std::size_t entryCount)
    : entries(entryCount),
      keywords_{kKeywordsFile, keywordsFileOf(entries), keywordsFileOf(0)},
      links_{kLinksFile, linksFileOf(entries), linksFileOf(0)} {
  world.disk.write(kSelectionListFile, selectionListOf(1));
  world.disk.write(kDefaultsFile, defaultCategoriesOf(entries));
  world.disk.write(kExportFile, exportWithIdentifiers(entries));
  for (std::size_t index = 0; index < entries; ++index) {
    words_.texts.push_back(keywordOf(index));
  }
}

void SideFiles::write(bool filled) {
  for (const File* file : {&keywords_, &links_}) {
    world.disk.write(file->name, filled ? file->filled : file->empty);
  }
  world.user.forget();
  world.state() = {};
  world.state().currentBookName = nameOfBook(0);
  world.state().currentProductName = kLibrary;
}

Categories::Categories(std::size_t bookCount)
    : books(bookCount), filled_(categoriesFileOf(books)), empty_(categoriesFileOf(0)) {
  world.disk.write(kLibraryCatalogueFile, catalogueOf(books, kCategoryCount, ""));
  for (std::size_t index = 0; index < books; ++index) {
    acronyms_.texts.push_back(acronymOfBook(shuffled(index, books)));
  }
}

void Categories::write(const std::string& content) {
  world.disk.write(kCategoriesFile, content);
  world.user.forget();
  world.state() = {};
}

}  // namespace quorbind::bench
