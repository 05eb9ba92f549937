#include "cli/rename_command.h"

#include <algorithm>
#include <vector>

#include "bookxml/names.h"
#include "catalogue/book_config.h"
#include "cli/book_file.h"
#include "cli/book_traces.h"
#include "cli/catalogue_reader.h"
#include "cli/component_call.h"
#include "cli/failure.h"
#include "cli/kept_text.h"
#include "cli/required_document.h"
#include "platform/file_system.h"
#include "platform/paths.h"
#include "platform/text.h"
#include "platform/toolset.h"
#include "workflow/driver/quor_book.h"

namespace quorbind {

namespace {

/// With this kind the dialog keeps what its boxes hold.
constexpr std::int16_t kXmlKind = 1;

class Renaming {
 public:
  Renaming(const RenameArguments& arguments, LibraryChange& change)
      : arguments_(arguments),
        change_(change),
        catalogue_(change.paths().catalogue),
        books_(readCatalogue(change.platform(), catalogue_)),
        book_(requireBookNamed(books_, arguments.name, change.library())) {}

  std::string run() {
    requireLookedUpForm();
    requireWritable(change_.platform().files, catalogue_);
    requireUsableBookFile();
    askForNaming();
    requireFreeBookFile();
    const std::string what = titleOf(book_) + " to " + name_ + " (" + acronym_ + ")";
    change_.confirm("Rename " + what + " in " + change_.library() + "?");
    callComponentOrMoveBack();
    requireRenamed();
    tellTraces(change_.wiring(), change_.paths(), book_);
    return std::string(change_.said("Renamed ", "Would rename ")) + what + " in " +
           change_.library() + ".";
  }

 private:
  /// The component's name for the book file, were that the acronym. It is made of the acronym, also
  /// where the entry names another file.
  [[nodiscard]] std::string bookFileWith(const std::string& acronym) const {
    ListedBook book = book_;
    book.bookFile = book_names::fileOf(acronym);
    return bookFileOf(change_.paths(), book);
  }

  /// The component looks the name up in its stored form, which may be another book's.
  void requireLookedUpForm() {
    const auto rules = change_.platform().toolset.createXmlTextRules();
    if (book_.name != rules->mstrCheckSpecialCharecters(arguments_.name)) {
      throw brokenRule(RuleText::kNameNotLookedUp, {{"BOOK", titleOf(book_)}});
    }
  }

  /// The component passes over a book file that does not load.
  void requireUsableBookFile() {
    const std::string file = bookFileWith(book_.acronym);
    if (change_.platform().files.fileExists(file)) {
      static_cast<void>(readBookLink(change_.platform(), file));
      requireWritable(change_.platform().files, file);
    } else if (!book_.fileType) {
      tell(change_.wiring(), nativeName(file) + ": the book file is not there");
    }
  }

  /// The host's part of a rename: the dialog is filled in, by the flags or by a person, who finds
  /// in it what the book is called now.
  void askForNaming() {
    Module& module = change_.module();
    frmBookInfo& form = module.bookInfo;
    form.setFileNameLabel(titleOf(book_));
    form.type("txtBookName", readableName(book_.name));
    form.type("txtBookAcro", readableName(book_.acronym));
    // Typing makes them the current ones, and with these known the dialog is not shown.
    module.state.currentBookName.clear();
    module.state.currentBookAcro.clear();
    static_cast<void>(Quor_Book(module).mbGetFormInput("", kXmlKind));
    // Its answer does not count: a dialog that was cancelled is empty.
    name_ = form.boxText("txtBookName");
    acronym_ = form.boxText("txtBookAcro");
    if (trimBlanks(name_).empty() || trimBlanks(acronym_).empty()) {
      throw AlreadyTold(ExitStatus::kRefused);
    }
    requireKeptText(name_);
    requireKeptText(acronym_);
    requireNameThatFits(book_names::fileOf(acronym_), "--acro");
  }

  void requireFreeBookFile() {
    FileSystem& files = change_.platform().files;
    const std::string oldFile = bookFileWith(book_.acronym);
    const std::string newFile = bookFileWith(acronym_);
    if (files.fileExists(oldFile) && files.fileExists(newFile) &&
        !files.sameFile(oldFile, newFile)) {
      throw brokenRule(RuleText::kFileInTheWay, {{"FILE", nativeName(newFile)}});
    }
  }

  void callComponentOrMoveBack() {
    try {
      callComponent(change_.wiring(), [&] {
        Book_Config(change_.module()).strBookAcroInfo(catalogue_, arguments_.name);
      });
    } catch (const AlreadyTold&) {
      moveBack();
      throw;
    }
  }

  /// The component moves the book file before it writes the first file. With a disk that is full it
  /// would stay where no entry looks for it.
  void moveBack() {
    FileSystem& files = change_.platform().files;
    const auto& changes = change_.wiring().files.changes();
    const bool onlyMoved = changes.size() == 1 && changes[0].kind == FileChange::Kind::kMoved;
    if (onlyMoved) {
      writingOutput(nativeName(changes[0].target),
                    [&] { files.moveFile(bookFileWith(acronym_), bookFileWith(book_.acronym)); });
    }
  }

  void requireRenamed() const {
    const auto books = readCatalogue(change_.platform(), catalogue_);
    const bool isThere = std::any_of(books.begin(), books.end(), [&](const ListedBook& book) {
      return readableName(book.name) == name_ && readableName(book.acronym) == acronym_;
    });
    if (!isThere) {
      throw CommandFailure(ExitStatus::kInternal, "the book has kept its name");
    }
  }

  const RenameArguments& arguments_;
  LibraryChange& change_;
  const std::string& catalogue_;
  const std::vector<ListedBook> books_;
  const ListedBook& book_;
  std::string name_;
  std::string acronym_;
};

}  // namespace

ExitStatus runRename(const RenameArguments& arguments) {
  LibraryChange change(arguments.place, arguments.change, bookAnswers(arguments.naming));
  return change.run([&] { return Renaming(arguments, change).run(); });
}

}  // namespace quorbind
