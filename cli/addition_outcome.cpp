#include "cli/addition_outcome.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "bookxml/names.h"
#include "catalogue/book_config.h"
#include "cli/failure.h"
#include "cli/text_list.h"
#include "platform/abandoned.h"
#include "platform/error_sources.h"
#include "platform/paths.h"
#include "platform/text.h"
#include "toc/toc_check.h"

namespace quorbind {

ExitStatus AdditionOutcome::judge(const TocFile& toc, bool finished) {
  const auto books = readCatalogue(run_.wiring.module.platform, run_.library.catalogue);
  const auto added = addedBooks(run_.booksBefore, books);
  if (added.empty()) {
    return judgeWithoutEntry(toc, finished);
  }
  const ListedBook& book = added.back();
  if (!hasArrived(book, toc)) {
    const std::string bookFile = nativeName(bookFileOf(run_.library, book));
    run_.report.note = takeOut(book, books) ? nothingAddedWithout(bookFile)
                                            : bookFile + std::string(kNotWritten) +
                                                  "; the entry of " + readableName(book.acronym) +
                                                  " is left in the catalogue without it";
    return ExitStatus::kWriteFailed;
  }
  run_.report.added = true;
  describeBook(book);
  if (const auto failed = failure(fileOfWriteError(book))) {
    run_.report.note = "the book was added, but " + failed->file + std::string(failed->what);
    return failed->status;
  }
  run_.report.note.clear();
  return ExitStatus::kDone;
}

/// An older file of the same name may stand where the new one should be. Of a generated book file
/// the copying component tells whether it was put there; an existing one is copied in another way,
/// and must have the headings of the one that was given.
bool AdditionOutcome::hasArrived(const ListedBook& book, const TocFile& toc) {
  const std::string bookFile = bookFileOf(run_.library, book);
  if (!run_.wiring.files.fileExists(bookFile)) {
    return false;
  }
  return run_.kind == TocCheck::kXml
             ? haveSameHeadings(run_.wiring.module.platform, toc.path, bookFile)
             : run_.wiring.toolset.hasArrived(book.bookFile);
}

ExitStatus AdditionOutcome::judgeBooks(const std::function<bool()>& call) {
  bool finished = false;
  try {
    finished = call();
  } catch (const Abandoned&) {
    static_cast<void>(lookForBooks());
    run_.report.note = countOfBooks();
    throw;
  }
  const std::optional<std::string> lost = lookForBooks();
  run_.report.added = run_.report.books.size() == run_.survey.books.size();
  const std::string written =
      run_.wiring.files.failedWrite().value_or(lost.value_or(run_.library.folder));
  auto failed = failure(written);
  if (lost && !failed) {
    failed = {nativeName(written), kNotWritten};
  }
  if (failed) {
    run_.report.note = failed->file + std::string(failed->what) + "; " + countOfBooks();
    return failed->status;
  }
  if (run_.report.added) {
    run_.report.note.clear();
    return ExitStatus::kDone;
  }
  run_.report.note = countOfBooks();
  return statusOfRefusal(finished);
}

/// Looks which books of the workbook are in the library, and takes out the entries of those whose
/// files are not. Answers such a file, if any.
std::optional<std::string> AdditionOutcome::lookForBooks() {
  std::optional<std::string> lost;
  const auto books = readCatalogue(run_.wiring.module.platform, run_.library.catalogue);
  for (const ListedBook& book : addedBooks(run_.booksBefore, books)) {
    const std::string bookFile = bookFileOf(run_.library, book);
    if (run_.wiring.files.fileExists(bookFile) && run_.wiring.toolset.hasArrived(book.bookFile)) {
      describeBook(book);
    } else {
      takeOut(book, books);
      lost = lost.value_or(bookFile);
    }
  }
  return lost;
}

std::string AdditionOutcome::countOfBooks() const {
  const std::size_t added = run_.report.books.size();
  return added == 0 ? std::string(kNothingAdded)
                    : std::to_string(added) + " of " +
                          counted(run_.survey.books.size(), "book", "books") + " added";
}

ExitStatus AdditionOutcome::judgeWithoutEntry(const TocFile& toc, bool finished) {
  const std::string beingWritten =
      finished ? run_.library.catalogue
               : run_.wiring.files.failedWrite().value_or(bookFileBeingMade());
  if (const auto failed = failure(beingWritten)) {
    run_.report.note = failed->file + std::string(failed->what) + "; " + std::string(kNothingAdded);
    return failed->status;
  }
  if (wasPlaceRefused()) {
    run_.blame(toc, run_.mainFilePlace);
  }
  return statusOfRefusal(finished);
}

/// The component tells of most failures in a box, which does not always name the file, and of some
/// nobody: it passes over documents that can't be copied, and over pages that can't be read for
/// what they link to.
std::optional<AdditionOutcome::FileFailure> AdditionOutcome::failure(
    const std::string& fileToWrite) const {
  const auto& written = run_.wiring.files.failedWrite();
  const auto& read = run_.wiring.files.failedRead();
  if (read && !written) {
    return FileFailure{nativeName(*read), kNotRead, ExitStatus::kInputMissing};
  }
  return written || wasWriteErrorShown()
             ? std::optional(FileFailure{nativeName(fileToWrite), kNotWritten})
             : std::nullopt;
}

ExitStatus AdditionOutcome::statusOfRefusal(bool finished) const {
  const auto& boxes = run_.wiring.ui.shown();
  if (std::any_of(boxes.begin(), boxes.end(), [](const ShownMessage& box) {
        return isLackOfMemory(box.errorNumber);
      })) {
    return ExitStatus::kNotParseable;
  }
  const bool hadError = std::any_of(
      boxes.begin(), boxes.end(), [](const ShownMessage& box) { return box.errorNumber != 0; });
  return finished && !hadError ? ExitStatus::kRefused : ExitStatus::kInternal;
}

/// Where a run that did not come to its end was to make the book file: the generator beside the
/// table of contents, an existing one in its place.
std::string AdditionOutcome::bookFileBeingMade() const {
  const ProcessState& state = run_.wiring.module.state;
  const std::string name = book_names::fileOf(state.acroOfBookFile());
  if (run_.kind == TocCheck::kXml) {
    const std::string folder = run_.statedPlace.folder.value_or("");
    return joinedPath(joinedPath(run_.library.folder, folder), name);
  }
  return std::string(folderPartOf(state.currentTocPath)) + name;
}

/// Takes the entry of a book whose file did not arrive out again. Entries are found by their name,
/// so one whose name another book has stays: the other's would go. Answers whether it is gone.
bool AdditionOutcome::takeOut(const ListedBook& book, const std::vector<ListedBook>& books) {
  const auto hasItsName = [&book](const ListedBook& other) { return other.name == book.name; };
  if (std::count_if(books.begin(), books.end(), hasItsName) == 1) {
    Book_Config(run_.wiring.module).DeleteQuorNode(run_.library.catalogue, book.name);
  }
  const auto left = readCatalogue(run_.wiring.module.platform, run_.library.catalogue);
  return left.size() < books.size();
}

void AdditionOutcome::describeBook(const ListedBook& book) {
  BookDocuments documents = documentsOf(book);
  AddedBook& added = run_.report.books.emplace_back();
  added.book = book;
  added.files.push_back(book.bookFile);
  added.files.insert(added.files.end(), documents.present.begin(), documents.present.end());
  added.missing = std::move(documents.missing);
}

/// A book file that was generated names in the library what it named where it was made; an existing
/// one is given another place, and with it another main file.
BookDocuments AdditionOutcome::documentsOf(const ListedBook& book) {
  const std::string bookFile = bookFileOf(run_.library, book);
  const auto named = run_.wiring.toolset.takeNamedFiles(book.bookFile);
  return named && run_.kind != TocCheck::kXml
             ? findDocuments(run_.wiring.module.platform, bookFile, *named)
             : findDocuments(run_.wiring.module.platform, bookFile);
}

bool AdditionOutcome::wasPlaceRefused() const {
  const auto& boxes = run_.wiring.ui.shown();
  return run_.statedPlace.refusal && !boxes.empty() &&
         boxes.back().text == *run_.statedPlace.refusal;
}

bool AdditionOutcome::wasWriteErrorShown() const {
  const auto& boxes = run_.wiring.ui.shown();
  return std::any_of(boxes.begin(), boxes.end(), [](const ShownMessage& box) {
    return isWriteError(box.errorNumber);
  });
}

/// The file that the first write error was about; the operation that reports it tells which. One
/// that nobody reported was about a document.
std::string AdditionOutcome::fileOfWriteError(const ListedBook& book) const {
  const auto& boxes = run_.wiring.ui.shown();
  const auto box = std::find_if(boxes.begin(), boxes.end(), [](const ShownMessage& shown) {
    return isWriteError(shown.errorNumber);
  });
  if (box == boxes.end()) {
    return run_.wiring.files.failedWrite().value_or(bookFileOf(run_.library, book));
  }
  const auto isFrom = [&box](const ErrorSource& source) {
    return contains(box->text, source.text);
  };
  if (isFrom(source::kAddKeywordsToXmlFile) || isFrom(source::kCreateKeywordXmlFile)) {
    return run_.library.searchKeywords;
  }
  if (isFrom(source::kAddCategoryNode) || isFrom(source::kCreateBookCateXmlFile)) {
    return run_.library.bookCategories;
  }
  if (isFrom(source::kAddToLinkIdFile) || isFrom(source::kGenerateBookLinkId) ||
      isFrom(source::kAddLinkIdInfo)) {
    return run_.library.linkIds;
  }
  return bookFileOf(run_.library, book);
}

}  // namespace quorbind
