#include "cli/install_command.h"

#include <sstream>
#include <vector>

#include "bookxml/names.h"
#include "catalogue/book_config.h"
#include "catalogue/book_installation.h"
#include "cli/catalogue_reader.h"
#include "cli/component_call.h"
#include "cli/failure.h"
#include "cli/kept_text.h"
#include "cli/required_document.h"
#include "cli/side_file_reader.h"
#include "cli/side_file_rules.h"
#include "cli/text_list.h"
#include "platform/file_system.h"
#include "platform/paths.h"
#include "platform/text.h"
#include "workflow/driver/quor_book.h"

namespace quorbind {

namespace {

constexpr std::string_view kListSeparator = ";";

/// The list with a separator behind each entry: the component neither splits a single one at its
/// commas nor puts an empty one in front of it.
std::string closedList(const std::vector<std::string>& entries) {
  std::string list;
  for (const std::string& entry : entries) {
    list.append(entry).append(kListSeparator);
  }
  return list;
}

/// In the list of categories a separator at the end would stand for an empty one. Without it one
/// category alone is split at its commas.
void requireCategoryThatStaysOne(const std::vector<std::string>& categories) {
  if (categories.size() == 1 && contains(categories[0], ",")) {
    throw brokenRule(RuleText::kCategoryWithComma, {{"CATEGORY", categories[0]}});
  }
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
    askForNaming();
    requireFreePlace();
    callAndSeeThatTheDocumentArrived();
    const auto added = newEntries();
    if (added.empty()) {
      throw CommandFailure(ExitStatus::kInternal, "the book is not in the catalogue");
    }
    return std::string(change_.said("Installed ", "Would install ")) + titleOf(added.back()) +
           " in " + change_.library() + ", " + placeOf(added.back()) + ": " + fileName_ + ".";
  }

 private:
  void requireUsableFlags() {
    if (!staysInFolder(fileName_)) {
      throw brokenRule(RuleText::kNoNameOfFile, {{"NAME", fileName_}});
    }
    requireNameThatFits(fileName_, "--file-name");
    requireKeptText(fileName_);
    requireKeptText(arguments_.type);
    const BookNaming& naming = arguments_.naming;
    if (naming.name || naming.acronym) {
      requireUsableNaming(change_.wiring(), naming);
    }
    requireKeywords(change_.wiring(), keywords_);
    requireCategoryNames(categories_);
    requireCategoryThatStaysOne(categories_);
  }

  /// The component would ask in the middle of its work, and take what is entered after a duplicate
  /// without another look. Here every answer is looked at until nothing is said against it.
  void askForNaming() {
    Module& module = change_.module();
    module.state.installationType = arguments_.installType;
    module.bookInfo.setFileNameLabel(document_);
    holdDialogsTo(change_.wiring(), change_.paths().catalogue);
    const auto& boxes = change_.wiring().ui.shown();
    std::size_t boxesBefore = 0;
    do {
      boxesBefore = boxes.size();
      if (!Quor_Book(module).mbGetFormInput(change_.paths().catalogue, kSingleDocument)) {
        throw AlreadyTold(ExitStatus::kRefused);
      }
    } while (boxes.size() > boxesBefore);
    name_ = module.state.currentBookName;
    acronym_ = module.state.currentBookAcro;
  }

  /// The document gets a folder of its own, named by the acronym. Whatever comes there must not
  /// take the place of another file.
  void requireFreePlace() const {
    if (!staysInFolder(acronym_)) {
      throw brokenRule(RuleText::kNoNameOfFolder, {{"NAME", acronym_}});
    }
    requireNameThatFits(book_names::fileOf(acronym_), "--acro");
    const std::string folder =
        change_.platform().files.absolutePath(change_.paths().folder + "\\" + acronym_);
    requireNoFile(folder);
    for (const FileChange& change : rehearse()) {
      if (change.kind == FileChange::Kind::kWritten && change.path.starts_with(folder + "\\")) {
        requireNoFile(change.path);
      }
    }
  }

  /// What the component would change. Only it knows what a page brings along.
  [[nodiscard]] std::vector<FileChange> rehearse() const {
    std::ostringstream unseen;
    Wiring rehearsal(change_.paths().serverRoot, {.output = unseen}, {}, RunKind::kRehearsal);
    callInstallation(rehearsal.module);
    return rehearsal.files.changes();
  }

  void requireNoFile(const std::string& path) const {
    if (change_.platform().files.fileExists(path)) {
      throw brokenRule(RuleText::kFileInTheWay, {{"FILE", nativeName(path)}});
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
      callComponent(change_.wiring(), [&] { callInstallation(change_.module()); });
    } catch (const AlreadyTold&) {
      takeOutEntryWithoutDocument();
      throw;
    }
  }

  void callInstallation(Module& module) const {
    Book_Config(module).CreateQuorBookNodeForSEntry(
        document_,
        fileName_,
        "",
        arguments_.type,
        change_.library(),
        arguments_.installType,
        makesCategoriesFile_,
        {{name_, acronym_, closedList(keywords_), joined(categories_, kListSeparator)}});
  }

  void takeOutEntryWithoutDocument() {
    const auto added = newEntries();
    if (!added.empty() &&
        !change_.platform().files.fileExists(bookFileOf(change_.paths(), added.back()))) {
      // No other book has its name: the dialog was asked until it was free.
      Book_Config(change_.module()).DeleteQuorNode(change_.paths().catalogue, added.back().name);
      tell(change_.wiring(), "the entry of " + titleOf(added.back()) + " was taken out again");
    }
  }

  [[nodiscard]] std::vector<ListedBook> newEntries() const {
    return addedBooks(booksBefore_, readCatalogue(change_.platform(), change_.paths().catalogue));
  }

  const InstallArguments& arguments_;
  LibraryChange& change_;
  const std::string document_;
  const std::string fileName_;
  const std::vector<std::string> keywords_;
  const std::vector<std::string> categories_;
  std::vector<ListedBook> booksBefore_;
  bool makesCategoriesFile_ = false;
  /// In its stored form.
  std::string name_;
  std::string acronym_;
};

}  // namespace

ExitStatus runInstall(const InstallArguments& arguments) {
  LibraryChange change(arguments.place, arguments.change, bookAnswers(arguments.naming));
  return change.run([&] { return Installation(arguments, change).run(); });
}

}  // namespace quorbind
