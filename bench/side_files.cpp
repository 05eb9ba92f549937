#include "bench/side_files.h"

#include "tests/support/excel_sheets.h"

namespace quorbind::bench {

namespace {

/// Goes through all indices below `count` by steps that are no divisor of the sizes in use, so that
/// what is sorted begins in no order.
std::size_t shuffled(std::size_t index, std::size_t count) {
  constexpr std::size_t kStep = 7'919;
  return index * kStep % count;
}

constexpr const char* kBookOfLinks = "Pump";

/// A book whose headings all have an identifier.
std::vector<testing::HeadingRow> rowsWithIdentifiers(std::size_t identifiers) {
  std::vector<testing::HeadingRow> rows{{"1", kBookOfLinks, "page.htm"}};
  for (std::size_t index = 0; index < identifiers; ++index) {
    const std::string number = std::to_string(index);
    rows.push_back({"2", "Setting " + number, "page" + number + ".htm", "", identifierOf(index)});
  }
  return rows;
}

std::string listOfKeywords(std::size_t keywords) {
  std::string list;
  for (std::size_t index = 0; index < keywords; ++index) {
    list += keywordOf(index) + ";";
  }
  return list;
}

/// A line end more than the component writes.
std::string worn(const std::string& file) {
  constexpr std::string_view kLineEnd("\r\0\n\0", 4);
  return file + std::string(kLineEnd);
}

}  // namespace

SideFiles::SideFiles(std::size_t entryCount)
    : entries(entryCount),
      links({testing::headingSheet(rowsWithIdentifiers(entries)),
             testing::bookSheet({{kBookOfLinks, acronymOfBook(0)}})}),
      keywords_{kKeywordsFile, keywordsFileOf(entries), keywordsFileOf(0)},
      links_{kLinksFile, linksFileOf(entries), linksFileOf(0)},
      categories_{kCategoriesFile, categoriesFileOf(entries, 1), categoriesFileOf(entries, 0)} {
  world.disk.write(kSelectionListFile, selectionListOf(1));
  world.disk.write(kDefaultsFile, defaultCategoriesOf(entries));
  world.disk.write(kExportFile, exportWithIdentifiers(entries));
  world.disk.write(kOtherLinksFile, linksFileOf(entries));
  // What is in it stands on paper.
  world.disk.write(kKeywordsWorkbookFile, "");
  world.spreadsheets.put(
      kKeywordsWorkbook,
      {testing::headingSheet({{"1", kBookOfLinks, "page.htm"}}),
       testing::bookSheet({{nameOfBook(0), acronymOfBook(0), listOfKeywords(entries)}})});
  for (std::size_t index = 0; index < entries; ++index) {
    words_.texts.push_back(keywordOf(index));
    categoryNames_.push_back(nameOfCategory(index));
  }
}

void SideFiles::write(bool filled) {
  for (const File* file : {&keywords_, &links_, &categories_}) {
    world.disk.write(file->name, filled ? file->filled : file->empty);
  }
  world.user.forget();
  world.state() = {};
  world.state().currentBookName = nameOfBook(0);
  world.state().currentBookAcro = acronymOfBook(0);
  world.state().currentProductName = kLibrary;
  world.state().currentCategoriesPath = kCategoriesPath;
}

Categories::Categories(std::size_t bookCount)
    : books(bookCount),
      filled_(categoriesFileOf(kCategoryCount, books)),
      empty_(categoriesFileOf(kCategoryCount, 0)),
      worn_(worn(filled_)) {
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
