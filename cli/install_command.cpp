#include "cli/install_command.h"

#include <algorithm>
#include <vector>

#include "catalogue/book_config.h"
#include "cli/catalogue_reader.h"
#include "cli/component_call.h"
#include "cli/failure.h"
#include "cli/required_document.h"
#include "cli/side_file_reader.h"
#include "cli/side_file_rules.h"
#include "cli/text_list.h"
#include "platform/file_system.h"
#include "platform/paths.h"
#include "platform/text.h"

namespace quorbind {

namespace {

constexpr std::string_view kListSeparator = ";";

bool isBlank(const std::optional<std::string>& text) {
  return !text || trimBlanks(*text).empty();
}

/// A name and an acronym that are both given need no dialog.
bool dialogIsSpared(const BookNaming& naming) {
  return !isBlank(naming.name) && !isBlank(naming.acronym);
}

class Installation {
 public:
  Installation(const InstallArguments& arguments, LibraryChange& change)
      : arguments_(arguments),
        change_(change),
        document_(componentFile(arguments.file)),
        fileName_(arguments.fileName.value_or(std::string(fileNameOf(document_)))),
        keywords_(splitList(arguments.keywords)),
        categories_(splitList(arguments.categories)) {}

  std::string run() {
    change_.wiring().ui.showPathAs(document_, arguments_.file);
    booksBefore_ = readCatalogue(change_.platform(), change_.paths().catalogue);
    requireReadable(change_.platform().files, document_, arguments_.file);
    requireUsableFlags();
    requireUsableSideFiles();
    callAndSeeThatTheDocumentArrived();
    const auto books = readCatalogue(change_.platform(), change_.paths().catalogue);
    if (books.size() <= booksBefore_.size()) {
      // The person gave the dialog up.
      throw AlreadyTold(ExitStatus::kRefused);
    }
    return std::string(change_.said("Installed ", "Would install ")) + titleOf(books.back()) +
           " in " + change_.library() + ", " + placeOf(books.back()) + ": " + fileName_ + ".";
  }

 private:
  void requireUsableFlags() {
    if (!staysInFolder(fileName_)) {
      throw CommandFailure(ExitStatus::kRefused,
                           "--file-name " + fileName_ + " can not be the name of a file");
    }
    requireNameThatFits(fileName_, "--file-name");
    const BookNaming& naming = arguments_.naming;
    if (naming.name || naming.acronym) {
      requireUsableNaming(change_.wiring(), naming);
    }
    if (naming.acronym) {
      requireFreePlace(*naming.acronym);
    }
    requireKeywords(change_.wiring(), keywords_);
    requireCategoryNames(categories_);
  }

  /// The document gets a folder of its own, named by the acronym.
  void requireFreePlace(const std::string& acronym) {
    if (!staysInFolder(acronym)) {
      throw CommandFailure(ExitStatus::kRefused,
                           "--acro " + acronym + " can not be the name of a folder");
    }
    const std::string folder = change_.paths().folder + "\\" + acronym;
    const std::string target = folder + "\\" + fileName_;
    FileSystem& files = change_.platform().files;
    requireNoFile(folder);
    if (!files.sameFile(target, document_)) {
      requireNoFile(target);
    }
  }

  void requireNoFile(const std::string& path) {
    if (change_.platform().files.fileExists(path)) {
      throw CommandFailure(ExitStatus::kRefused,
                           nativeName(path) + ": the file is in the way; move it or delete it");
    }
  }

  void requireUsableSideFiles() {
    FileSystem& files = change_.platform().files;
    requireWritable(files, change_.paths().catalogue);
    if (!keywords_.empty()) {
      static_cast<void>(readKeywords(change_.platform(), change_.paths().searchKeywords));
      requireWritable(files, change_.paths().searchKeywords);
    }
    makesCategoriesFile_ =
        arguments_.createCategories && mayMakeCategories(change_.wiring(), change_.paths());
    if (!categories_.empty() && !makesCategoriesFile_) {
      considerCategoriesFile();
    }
  }

  void considerCategoriesFile() {
    const std::string& path = change_.paths().bookCategories;
    if (change_.platform().files.fileExists(path)) {
      static_cast<void>(readCategories(change_.platform(), path));
      requireWritable(change_.platform().files, path);
    } else {
      tell(change_.wiring(),
           "--categories goes into the entry alone: the library has no categories file");
    }
  }

  void callAndSeeThatTheDocumentArrived() {
    try {
      callComponent(change_.wiring(), [&] { callInstallation(); });
    } catch (const AlreadyTold&) {
      takeOutEntryWithoutDocument();
      throw;
    }
  }

  void callInstallation() {
    const BookNaming& naming = arguments_.naming;
    const bool isSpared = dialogIsSpared(naming);
    Book_Config(change_.module())
        .CreateQuorBookNodeForSEntry(document_,
                                     fileName_,
                                     "",
                                     arguments_.type,
                                     change_.library(),
                                     arguments_.installType,
                                     makesCategoriesFile_,
                                     {{isSpared ? *naming.name : "",
                                       isSpared ? *naming.acronym : "",
                                       joined(keywords_, kListSeparator),
                                       joined(categories_, kListSeparator)}});
  }

  /// Entries are found by their name: one whose name another book has stays, or that one would go.
  void takeOutEntryWithoutDocument() {
    const std::string& catalogue = change_.paths().catalogue;
    const auto books = readCatalogue(change_.platform(), catalogue);
    if (books.size() <= booksBefore_.size() ||
        change_.platform().files.fileExists(bookFileOf(change_.paths(), books.back()))) {
      return;
    }
    const std::string& name = books.back().name;
    const bool isAlone = std::none_of(booksBefore_.begin(),
                                      booksBefore_.end(),
                                      [&](const ListedBook& book) { return book.name == name; });
    if (isAlone) {
      Book_Config(change_.module()).DeleteQuorNode(catalogue, name);
      tell(change_.wiring(), "the entry of " + titleOf(books.back()) + " was taken out again");
    }
  }

  const InstallArguments& arguments_;
  LibraryChange& change_;
  const std::string document_;
  const std::string fileName_;
  const std::vector<std::string> keywords_;
  const std::vector<std::string> categories_;
  std::vector<ListedBook> booksBefore_;
  bool makesCategoriesFile_ = false;
};

}  // namespace

ExitStatus runInstall(const InstallArguments& arguments) {
  LibraryChange change(arguments.place,
                       arguments.change,
                       bookAnswers(arguments.naming, dialogIsSpared(arguments.naming)));
  return change.run([&] { return Installation(arguments, change).run(); });
}

}  // namespace quorbind
