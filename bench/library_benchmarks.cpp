// What a host does with a library's catalogue, and with the list of libraries.

#include <array>
#include <filesystem>
#include <memory>
#include <string>

#include "bench/benchmarks.h"
#include "bench/floor.h"
#include "bench/library_sample.h"
#include "catalogue/book_config.h"
#include "catalogue/names.h"

namespace quorbind::bench {

namespace {

constexpr std::array<std::size_t, 3> kSizes{100, 1'000, 10'000};
constexpr std::size_t kCategoriesOfBook = 3;
constexpr const char* kLink = "service.htm";
constexpr const char* kNewName = "Renamed";
constexpr const char* kNewAcronym = "REN";
constexpr const char* kNewBookFolder = "Docs/Plant/REN";

/// A server with as many libraries as one of them has books, and that library with its book files.
class Library {
 public:
  explicit Library(std::size_t bookCount)
      : books(bookCount),
        catalogue_(catalogueOf(books, kCategoriesOfBook, "")),
        lastBookFile_(contentOfBook(lastBook())) {
    world.disk.write(kSelectionListFile, selectionListOf(books));
    world.disk.write(kOtherCatalogueFile, catalogueOf(books, kCategoriesOfBook, kLink));
    world.disk.write(kDocumentFile, "");
    for (std::size_t book = 0; book < books; ++book) {
      world.disk.write(fileOfBook(book), contentOfBook(book));
    }
    reset();
  }

  void reset() {
    std::filesystem::remove_all(systemPath(kLibraryFolder + acronymOfBook(lastBook())));
    std::filesystem::remove_all(systemPath(kNewBookFolder));
    world.disk.write(fileOfBook(lastBook()), lastBookFile_);
    world.disk.write(kLibraryCatalogueFile, catalogue_);
    world.user.forget();
    world.state() = {};
  }

  /// The one that a search comes to last.
  [[nodiscard]] std::size_t lastBook() const { return books - 1; }
  [[nodiscard]] std::string lastName() const { return nameOfBook(lastBook()); }
  [[nodiscard]] std::string systemPath(std::string_view name) const {
    return systemPathOf(world, name);
  }
  [[nodiscard]] bool isQuiet() const { return world.user.messages().empty(); }
  /// Whether the catalogue was saved, and nothing was told.
  [[nodiscard]] bool wasChanged() const {
    return isQuiet() && world.disk.read(kLibraryCatalogueFile) != catalogue_;
  }

  const std::size_t books;
  testing::World world;
  Book_Config config{world.module};

 private:
  const std::string catalogue_;
  const std::string lastBookFile_;
};

// The component's side

bool bookInfo(Library& library) {
  return library.config.BookInfo(kLibraryCatalogue).size() == library.books + 1;
}

bool categorieInfo(Library& library) {
  return library.config.CategorieInfo(kLibraryCatalogue, library.lastName()).size() ==
         kCategoriesOfBook + 1;
}

bool folderLinkInfo(Library& library) {
  std::string folder;
  std::string link;
  library.config.strFolderLinkInfo(kOtherCatalogue, library.lastName(), folder, link);
  return folder == acronymOfBook(library.lastBook()) && link == kLink;
}

bool getBookAcro(Library& library) {
  return library.config.GetBookAcro(kLibraryCatalogue, library.lastName()) ==
         acronymOfBook(library.lastBook());
}

bool quorNames(Library& library) {
  return library.config.QuorNames().size() == library.books + 1;
}

bool quorLocation(Library& library) {
  return library.config.QuorLocation(kLibrary) == kLibraryCatalogue;
}

bool renameBook(Library& library) {
  frmBookInfo& form = library.world.module.bookInfo;
  form.txtBookName().setText(kNewName);
  form.txtBookAcro().setText(kNewAcronym);
  library.config.strBookAcroInfo(kLibraryCatalogue, library.lastName());
  return library.isQuiet();
}

bool deleteBook(Library& library) {
  library.config.DeleteQuorNode(kLibraryCatalogue, library.lastName());
  return library.isQuiet();
}

bool setProperties(Library& library) {
  return library.config.mbsetQuorBookProperties(kLibraryCatalogue,
                                                library.lastName(),
                                                {{nameOfCategory(7), ""}, 0},
                                                acronymOfBook(library.lastBook()),
                                                kLink) &&
         library.isQuiet();
}

bool installBook(Library& library) {
  library.config.CreateQuorBookNodeForSEntry(kDocument,
                                             kDocumentFile,
                                             /*vstrFolder=*/"",
                                             /*vstrType=*/"pdf",
                                             kLibrary,
                                             /*vlngInstallType=*/0,
                                             /*vblnChkCateFlag=*/false,
                                             {{kNewName, kNewAcronym, "", ""}, 0});
  return library.isQuiet();
}

bool mergeBooks(Library& library) {
  library.config.strMatchingBooksInfo(kLibraryCatalogue, kOtherCatalogue);
  return library.isQuiet();
}

// The floor's side

bool loadCatalogue(Library& library) {
  return counted(floorLoad(library.systemPath(kLibraryCatalogueFile).c_str()), library.books);
}

bool queryCatalogue(Library& library) {
  const std::string query = std::string(catalogue_names::kBookPath) + "[" +
                            std::string(catalogue_names::kName) + "=\"" + library.lastName() +
                            "\"]";
  return counted(floorQuery(library.systemPath(kLibraryCatalogueFile).c_str(), query.c_str()), 1);
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

bool loadSelectionList(Library& library) {
  return counted(floorLoad(library.systemPath(kSelectionListFile).c_str()), library.books);
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

struct Operation {
  const char* name;
  bool (*run)(Library&);
};

constexpr std::array kOperations{
    Operation{"component/library/BookInfo", bookInfo},
    Operation{"component/library/CategorieInfo", categorieInfo},
    Operation{"component/library/strFolderLinkInfo", folderLinkInfo},
    Operation{"component/library/GetBookAcro", getBookAcro},
    Operation{"component/library/QuorNames", quorNames},
    Operation{"component/library/QuorLocation", quorLocation},
    Operation{"component/library/strBookAcroInfo", renameBook},
    Operation{"component/library/DeleteQuorNode", deleteBook},
    Operation{"component/library/mbsetQuorBookProperties", setProperties},
    Operation{"component/library/CreateQuorBookNodeForSEntry", installBook},
    Operation{"component/library/strMatchingBooksInfo", mergeBooks},
    Operation{"floor/library/load", loadCatalogue},
    Operation{"floor/library/query", queryCatalogue},
    Operation{"floor/library/load-and-save", saveCatalogue},
    Operation{"floor/library/book", saveLastBook},
    Operation{"floor/library/books", saveBooks},
    Operation{"floor/library/document", copyDocument},
    Operation{"floor/library/selection", loadSelectionList},
};

}  // namespace

void registerLibraryOperations() {
  const auto libraries = std::make_shared<MadeOnce<Library>>();
  for (const Operation& operation : kOperations) {
    for (const std::size_t books : kSizes) {
      registerWork(
          operation.name,
          books,
          {.reset = [libraries, books] { libraries->at(books).reset(); },
           .run = [libraries, &operation, books] { return operation.run(libraries->at(books)); }});
    }
  }
}

}  // namespace quorbind::bench
