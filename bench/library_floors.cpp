// The floors under what a host does with a library's catalogue.

#include <array>
#include <string>

#include "bench/benchmarks.h"
#include "bench/floor.h"
#include "bench/store.h"
#include "catalogue/names.h"

namespace quorbind::bench {

namespace {

/// The books of the catalogue that a condition holds of.
std::string booksWith(const std::string& condition) {
  return std::string(catalogue_names::kBookPath) + "[" + condition + "]";
}

std::string bookNamed(const std::string& name) {
  return booksWith(std::string(catalogue_names::kName) + "='" + name + "'");
}

bool finds(Library& library, const char* file, const std::string& query, std::size_t count) {
  return counted(floorQuery(library.systemPath(file).c_str(), query.c_str()), count);
}

bool findNames(Library& library) {
  return finds(library,
               kLibraryCatalogueFile,
               std::string(catalogue_names::kBookPath).append("/").append(catalogue_names::kName),
               library.books);
}

bool findCategories(Library& library) {
  return finds(library,
               kLibraryCatalogueFile,
               bookNamed(library.lastName()) + "/Book_Categories/Book_Category",
               kCategoriesOfBook);
}

bool findFolderAndLink(Library& library) {
  const std::string book = bookNamed(library.lastName());
  return finds(library, kOtherCatalogueFile, book + "/Book_Folder|" + book + "/Book_Key/@id", 2);
}

bool findAcronym(Library& library) {
  return finds(library, kLibraryCatalogueFile, bookNamed(library.lastName()) + "/Book_Acro", 1);
}

bool findNobody(Library& library) {
  const std::string either = bookNamed("Renamed") + "|" + booksWith("Book_Acro='REN'");
  return finds(library, kLibraryCatalogueFile, either, 0);
}

bool findLibraries(Library& library) {
  return finds(library,
               kSelectionListFile,
               std::string(selection_names::kQuorPath).append("/").append(selection_names::kName),
               library.books);
}

bool findLocation(Library& library) {
  return finds(
      library,
      kSelectionListFile,
      std::string(selection_names::kQuorPath) + "[Quor_Name='" + kLibrary + "']/Quor_Location",
      1);
}

bool loadCatalogue(Library& library) {
  return counted(floorLoad(library.systemPath(kLibraryCatalogueFile).c_str()), library.books);
}

bool saveCatalogue(Library& library) {
  return counted(floorLoadAndSave(library.systemPath(kLibraryCatalogueFile).c_str()),
                 library.books);
}

bool saveLastBook(Library& library) {
  return floorLoadAndSave(library.systemPath(fileOfBook(library.lastBook())).c_str()) >= 0;
}

bool copyDocument(Library& library) {
  return counted(floorCopy(library.systemPath(kDocumentFile).c_str(),
                           library.systemPath(std::string(kLibraryFolder) + kDocumentFile).c_str()),
                 0);
}

bool saveLargeBook(Library& library) {
  return floorLoadAndSave(library.systemPath(kLargeBookFile).c_str()) >= 0;
}

/// Documents are found to be no XML.
bool saveBooks(Library& library) {
  for (std::size_t book = 0; book < library.books; ++book) {
    const bool isSaved = floorLoadAndSave(library.systemPath(fileOfBook(book)).c_str()) >= 0;
    if (isSaved != hasBookXml(book)) {
      return false;
    }
  }
  return true;
}

using Floor = Operation<Library>;
constexpr std::array kFloors{
    Floor{"floor/library/BookInfo", findNames},
    Floor{"floor/library/CategorieInfo", findCategories},
    Floor{"floor/library/strFolderLinkInfo", findFolderAndLink},
    Floor{"floor/library/GetBookAcro", findAcronym},
    Floor{"floor/library/mbCheckQuorTOCForBook", findNobody},
    Floor{"floor/library/QuorNames", findLibraries},
    Floor{"floor/library/QuorLocation", findLocation},
    Floor{"floor/library/load", loadCatalogue},
    Floor{"floor/library/load-and-save", saveCatalogue},
    Floor{"floor/library/book", saveLastBook},
    Floor{"floor/library/large-book", saveLargeBook},
    Floor{"floor/library/books", saveBooks},
    Floor{"floor/library/document", copyDocument},
};

}  // namespace

void registerLibraryFloors(const Store& store) {
  registerOperations(store.libraries, kFloors, kSizes);
}

}  // namespace quorbind::bench
