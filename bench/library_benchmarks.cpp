// What a host does with a library's catalogue, and with the list of libraries.

#include <array>
#include <string>

#include "bench/benchmarks.h"
#include "bench/store.h"
#include "bookxml/names.h"
#include "catalogue/names.h"

namespace quorbind::bench {

namespace {

constexpr const char* kNewName = "Renamed";
constexpr const char* kNewAcronym = "REN";
constexpr const char* kNewCategory = "New";

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

bool checkForBook(Library& library) {
  return library.book.mbCheckQuorTOCForBook(kLibraryCatalogue, kNewName, kNewAcronym) &&
         library.isQuiet();
}

/// How a catalogue states a book's link.
std::string linkedTo(const std::string& link) {
  return std::string(catalogue_names::kKeyId).append("=\"").append(link).append("\"");
}

/// Both are known, so that the dialog stays away.
bool askForBook(Library& library) {
  library.world.state().currentBookName = kNewName;
  library.world.state().currentBookAcro = kNewAcronym;
  return library.book.mbGetFormInput(kLibraryCatalogue, TocCheck::kText) && library.isQuiet();
}

void fillForm(Library& library) {
  frmBookInfo& form = library.world.module.bookInfo;
  form.txtBookName().setText(kNewName);
  form.txtBookAcro().setText(kNewAcronym);
}

bool renameInBookFile(Library& library) {
  fillForm(library);
  library.config.UpdateBookNameAcro(kLargeBook, nameOfBook(0), acronymOfBook(0));
  return library.isQuiet();
}

bool renameBook(Library& library) {
  fillForm(library);
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
                                                {{kNewCategory, ""}, 0},
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

// What the changes leave.

bool isRenamed(const Library& library) {
  using namespace catalogue_names;
  return library.catalogueSays(element(kName, kNewName)) &&
         !library.catalogueSays(element(kName, library.lastName()));
}

bool isRenamedInBookFile(const Library& library) {
  return fileSays(library.world, kLargeBookFile, element(book_names::kName, kNewName));
}

bool isDeleted(const Library& library) {
  using namespace catalogue_names;
  return library.catalogueSays(element(kName, nameOfBook(0))) &&
         !library.catalogueSays(element(kName, library.lastName()));
}

bool hasProperties(const Library& library) {
  return library.catalogueSays(element(catalogue_names::kCategory, kNewCategory)) &&
         fileSays(library.world, fileOfBook(library.lastBook()), linkedTo(kLink));
}

bool isInstalled(const Library& library) {
  return library.catalogueSays(element(catalogue_names::kName, kNewName)) &&
         library.world.disk.has(std::string(kLibraryFolder) + kNewAcronym + "/" + kDocumentFile);
}

/// All books have the link of the other catalogue.
bool isMerged(const Library& library) {
  return library.catalogueSays(linkedTo(kLink)) && !library.catalogueSays(linkedTo(""));
}

using LibraryOperation = Operation<Library>;
constexpr auto reset = [](Library& library) { library.reset(); };
constexpr auto isQuiet = [](const Library& library) { return library.isQuiet(); };
constexpr std::array kOperations{
    LibraryOperation{"component/library/BookInfo", bookInfo},
    LibraryOperation{"component/library/CategorieInfo", categorieInfo},
    LibraryOperation{"component/library/strFolderLinkInfo", folderLinkInfo},
    LibraryOperation{"component/library/GetBookAcro", getBookAcro},
    LibraryOperation{"component/library/QuorNames", quorNames},
    LibraryOperation{"component/library/QuorLocation", quorLocation},
    LibraryOperation{"component/library/mbCheckQuorTOCForBook", checkForBook},
    LibraryOperation{"component/library/mbGetFormInput", askForBook},
    LibraryOperation{"component/library/strBookAcroInfo", renameBook, reset, isQuiet, isRenamed},
    LibraryOperation{"component/library/UpdateBookNameAcro",
                     renameInBookFile,
                     [](Library& library) { library.resetLargeBook(); },
                     isQuiet,
                     isRenamedInBookFile},
    LibraryOperation{"component/library/DeleteQuorNode", deleteBook, reset, isQuiet, isDeleted},
    LibraryOperation{
        "component/library/mbsetQuorBookProperties", setProperties, reset, isQuiet, hasProperties},
    LibraryOperation{
        "component/library/CreateQuorBookNodeForSEntry", installBook, reset, isQuiet, isInstalled},
    LibraryOperation{
        "component/library/strMatchingBooksInfo", mergeBooks, reset, isQuiet, isMerged},
};

}  // namespace

void registerLibraryOperations(const Store& store) {
  registerOperations(store.libraries, kOperations, kSizes);
}

}  // namespace quorbind::bench
