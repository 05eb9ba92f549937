#include "cli/set_command.h"

#include <vector>

#include "catalogue/book_config.h"
#include "cli/book_file.h"
#include "cli/book_flags.h"
#include "cli/catalogue_reader.h"
#include "cli/component_call.h"
#include "cli/failure.h"
#include "cli/kept_text.h"
#include "cli/required_document.h"
#include "cli/text_list.h"
#include "platform/text.h"

namespace quorbind {

namespace {

class PropertiesChange {
 public:
  PropertiesChange(const SetArguments& arguments, LibraryChange& change)
      : arguments_(arguments),
        change_(change),
        catalogue_(change.paths().catalogue),
        books_(readCatalogue(change.platform(), catalogue_)),
        book_(requireBookNamed(books_, arguments.name, change.library())),
        bookFile_(bookFileOf(change.paths(), book_)) {}

  std::string run() {
    requireUsableFlags();
    planChange();
    requireWritableFiles();
    bool answer = false;
    callComponent(change_.wiring(), [&] {
      answer = Book_Config(change_.module())
                   .mbsetQuorBookProperties(
                       catalogue_, book_.name, {wanted_.categories}, wanted_.folder, wanted_.link);
    });
    requireChanged(answer);
    return sentence();
  }

 private:
  void requireUsableFlags() {
    if (arguments_.folder) {
      requireUsableFolder(change_.wiring(), *arguments_.folder);
    }
    requireKeptText(arguments_.link.value_or(""));
    for (const std::string& category : splitList(arguments_.categories.value_or(""))) {
      requireKeptText(category);
    }
    if (arguments_.link && book_.fileType) {
      throw brokenRule(RuleText::kHoldsNoLink, {{"BOOK", titleOf(book_)}});
    }
  }

  /// The operation sets all three; what is not given is set to what it is. It makes nothing of an
  /// empty category.
  void planChange() {
    wanted_ = book_;
    std::erase(wanted_.categories, std::string());
    wanted_.link = currentLink();
    if (arguments_.folder && trimBlanks(*arguments_.folder) != trimBlanks(book_.folder)) {
      wanted_.folder = trimBlanks(*arguments_.folder);
    }
    if (arguments_.categories) {
      wanted_.categories = splitList(*arguments_.categories);
    }
    if (arguments_.link) {
      wanted_.link = *arguments_.link;
    }
  }

  [[nodiscard]] bool isCopied() const { return wanted_.folder != book_.folder; }

  /// The catalogue does not follow when a link is set: the book file knows the one in use. The
  /// component passes over a book file that does not load, so this one has to.
  [[nodiscard]] std::string currentLink() const {
    if (book_.fileType) {
      requireReadable(change_.platform().files, bookFile_, nativeName(bookFile_));
      return book_.link;
    }
    return readBookLink(change_.platform(), bookFile_);
  }

  void requireWritableFiles() {
    requireWritable(change_.platform().files, catalogue_);
    if (!book_.fileType && !isCopied()) {
      requireWritable(change_.platform().files, bookFile_);
    }
  }

  /// Elements that an entry or a book file lacks take nothing, and the component does not tell.
  void requireChanged(bool answer) const {
    if (!answer) {
      throw CommandFailure(ExitStatus::kWriteFailed,
                           nativeName(bookFile_) + ": the file could not be copied");
    }
    const auto books = readCatalogue(change_.platform(), catalogue_);
    if (requireBookNamed(books, arguments_.name, change_.library()).categories !=
        wanted_.categories) {
      throw brokenRule(RuleText::kEntryWithoutCategories,
                       {{"FILE", nativeName(catalogue_)}, {"BOOK", titleOf(book_)}},
                       ExitStatus::kNotParseable);
    }
    const std::string changedFile = bookFileOf(change_.paths(), wanted_);
    if (!book_.fileType && readBookLink(change_.platform(), changedFile) != wanted_.link) {
      throw brokenRule(RuleText::kBookWithoutLink,
                       {{"FILE", nativeName(changedFile)}},
                       ExitStatus::kNotParseable);
    }
  }

  [[nodiscard]] std::string sentence() const {
    std::vector<std::string> what;
    if (isCopied()) {
      what.emplace_back("folder");
    }
    if (arguments_.categories) {
      what.emplace_back("categories");
    }
    if (arguments_.link) {
      what.emplace_back("link");
    }
    std::string text = std::string(change_.said("Set ", "Would set ")) +
                       (what.empty() ? "nothing" : joined(what, " and ")) + " of " +
                       titleOf(book_) + " in " + change_.library() + ".";
    return isCopied() ? text + " The catalogue goes on naming " + placeOf(book_) + "." : text;
  }

  const SetArguments& arguments_;
  LibraryChange& change_;
  const std::string& catalogue_;
  const std::vector<ListedBook> books_;
  const ListedBook& book_;
  const std::string bookFile_;
  /// What the book is to be.
  ListedBook wanted_;
};

}  // namespace

ExitStatus runSet(const SetArguments& arguments) {
  LibraryChange change(arguments.place, arguments.change);
  return change.run([&] { return PropertiesChange(arguments, change).run(); });
}

}  // namespace quorbind
