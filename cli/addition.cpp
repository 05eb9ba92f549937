#include "cli/addition.h"

#include <algorithm>
#include <filesystem>

#include "bookxml/names.h"
#include "catalogue/book_config.h"
#include "cli/failure.h"
#include "cli/prepared_toc.h"
#include "cli/toc_survey.h"
#include "platform/abandoned.h"
#include "platform/paths.h"
#include "platform/text.h"
#include "resources/form_layouts.h"
#include "toc/toc_check.h"
#include "workflow/driver/quor_book.h"
#include "workflow/inputs/input_check.h"

namespace quorbind {

namespace {

constexpr std::string_view kNothingAdded = "nothing was added";
constexpr std::string_view kNotWritten = " could not be written";
/// In bytes, of a file or a folder, on the file systems in use.
constexpr std::size_t kLongestName = 255;

bool isBlank(const std::optional<std::string>& text) {
  return !text || trimBlanks(*text).empty();
}

std::string nothingAddedWithout(const std::string& what) {
  return std::string(what).append(kNotWritten).append("; ").append(kNothingAdded);
}

void requireNameThatFits(std::string_view name, std::string_view flag) {
  if (name.size() > kLongestName) {
    throw CommandFailure(ExitStatus::kRefused,
                         std::string(flag) + " is too long: the name that it gives has " +
                             std::to_string(name.size()) + " bytes, and " +
                             std::to_string(kLongestName) + " are the most that a name can have");
  }
}

/// A name and an acronym that are both given need no form.
bool formIsSpared(const AddArguments& arguments) {
  return !isBlank(arguments.name) && !isBlank(arguments.acronym);
}

}  // namespace

Addition::Addition(const AddArguments& arguments, const LibraryPaths& library, Wiring& wiring)
    : arguments_(arguments), library_(library), wiring_(wiring) {
  report_.toc = arguments.toc;
  report_.library = arguments.place.library;
}

std::vector<PreparedAnswer> Addition::answersOf(const AddArguments& arguments) {
  const std::string bookForm(layout::kBookInfo.name);
  const std::string folderForm(layout::kBookFolder.name);
  const bool used = formIsSpared(arguments);
  return {{bookForm, "txtBookName", "--name", arguments.name, used},
          {bookForm, "txtBookAcro", "--acro", arguments.acronym, used},
          {folderForm, "Text1", "--folder", arguments.folder}};
}

AdditionReport Addition::run() {
  report_.note = kNothingAdded;
  try {
    report_.status = reportingFailures(wiring_.ui, [this] { return addBook(); });
  } catch (const Abandoned& abandoned) {
    report_.status = abandoned.reason() == AbandonReason::kAnswerRefused
                         ? ExitStatus::kRefused
                         : ExitStatus::kAnswerMissing;
    report_.note.append(": ").append(abandoned.what());
  }
  wiring_.ui.unloadProgress();
  return report_;
}

ExitStatus Addition::addBook() {
  const TocFile toc(wiring_.files, arguments_.toc);
  wiring_.ui.showPathAs(toc.path, toc.name);
  requireUsableLibrary();
  const std::int16_t kind = kindOf(toc.name, arguments_.kind);
  if (!flagsAreAccepted() || !bCheckForValidInput(wiring_.module, toc.path, kind)) {
    return ExitStatus::kRefused;
  }
  requireFolderInLibrary();
  requireNamesThatFit();
  return judge(callComponent(kind == TocCheck::kText ? readyToc(toc) : toc.path, kind));
}

/// Does what adding will do to the catalogue, without an effect.
void Addition::requireUsableLibrary() {
  booksBefore_ = readCatalogue(wiring_.module.platform, library_.catalogue);
  writing(nativeName(library_.catalogue),
          [this] { static_cast<void>(wiring_.files.replace(library_.catalogue)); });
}

/// The forms' own handlers judge the flags, in a module that this run doesn't use. They refuse with
/// a box.
bool Addition::flagsAreAccepted() {
  Module scratch(wiring_.module.platform);
  const std::size_t boxes = wiring_.ui.shown().size();
  if (arguments_.name || arguments_.acronym) {
    scratch.bookInfo.type("txtBookName", arguments_.name.value_or(""));
    scratch.bookInfo.type("txtBookAcro", arguments_.acronym.value_or(""));
    scratch.bookInfo.click("cmdOk");
  }
  if (arguments_.folder) {
    scratch.bookFolder.type("Text1", *arguments_.folder);
    scratch.bookFolder.click("cmdOk");
  }
  return wiring_.ui.shown().size() == boxes;
}

/// The folder dialog lets names like `..` pass, which a person would not type by mistake.
void Addition::requireFolderInLibrary() const {
  if (!isBlank(arguments_.folder) && !staysInFolder(trimBlanks(*arguments_.folder))) {
    throw CommandFailure(ExitStatus::kRefused,
                         "--folder " + *arguments_.folder + " leads out of the library");
  }
}

void Addition::requireNamesThatFit() const {
  if (arguments_.acronym) {
    requireNameThatFits(book_names::fileOf(*arguments_.acronym), "--acro");
  }
  if (arguments_.folder) {
    requireNameThatFits(trimBlanks(*arguments_.folder), "--folder");
  }
}

std::string Addition::readyToc(const TocFile& toc) {
  const TocSurvey survey = surveyTextToc(wiring_.module.platform, toc);
  if (survey.refusal) {
    report_.line = survey.refusal->line;
    // It goes on as it stands, so that the boxes show the author's own line.
    return toc.path;
  }
  requireReadableDepth(survey, toc.name);
  std::string ready = survey.hasMarks ? toc.path : preparedCopyOf(toc);
  considerFolder(ready);
  return ready;
}

std::string Addition::preparedCopyOf(const TocFile& toc) {
  const std::string folder = nativeName(folderOf(toc.path)) + "/";
  writing(folder, [&] { preparedCopy_.emplace(folder); });
  writePreparedToc(wiring_.module.platform, toc, [&](std::string_view line) {
    writing(folder, [&] { preparedCopy_->write(line); });
  });
  writing(folder, [&] { preparedCopy_->close(); });
  std::string path = withBackslashes(preparedCopy_->path());
  wiring_.ui.showPathAs(path, toc.name);
  return path;
}

/// What can be said of the book's folder before the component is called.
void Addition::considerFolder(const std::string& tocPath) {
  readingInput(arguments_.toc,
               [&] { statedPlace_ = readStatedPlace(wiring_.module.platform, tocPath); });
  const StatedPlace& stated = statedPlace_;
  if (stated.folder && arguments_.folder) {
    wiring_.ui.show(
        {.text =
             "--folder " + *arguments_.folder + " is not used: the table of contents names " +
             (stated.folder->empty() ? "the library's own folder" : "the folder " + *stated.folder),
         .icon = MessageIcon::kInformation});
  }
  if (!stated.refusal && !isBlank(arguments_.acronym)) {
    requireFreeBookFile(
        tocPath, stated.folder.value_or(std::string(trimBlanks(arguments_.folder.value_or("")))));
  }
}

/// The generator writes its file beside the table of contents, from where it is moved into the
/// book's folder there; after the copy it is deleted. A file of that name that stands there already
/// is not this run's to overwrite, install or delete.
void Addition::requireFreeBookFile(const std::string& tocPath, const std::string& folder) {
  const std::string besideToc(folderOf(tocPath));
  const std::string bookFile = "\\" + book_names::fileOf(*arguments_.acronym);
  const std::string inBookFolder = besideToc + "\\" + folder;
  for (const std::string& place : {besideToc, inBookFolder}) {
    const std::string path = place + bookFile;
    if (wiring_.files.fileExists(path)) {
      throw CommandFailure(ExitStatus::kRefused,
                           nativeName(path) + ": the file is in the way; move it or delete it");
    }
  }
}

bool Addition::callComponent(const std::string& tocPath, std::int16_t kind) {
  const bool spared = formIsSpared(arguments_);
  Quor_Book book(wiring_.module, this);
  return book.Book_Valuator(tocPath,
                            library_.catalogue,
                            kind,
                            arguments_.place.library,
                            spared ? *arguments_.name : "",
                            spared ? *arguments_.acronym : "",
                            arguments_.category,
                            library_.searchKeywords,
                            library_.bookCategories,
                            arguments_.keywords,
                            arguments_.categories,
                            library_.searchKeywords,
                            arguments_.installType,
                            arguments_.createCategories,
                            library_.docsFolder);
}

void Addition::evtGetFolderName(std::string_view sFolderName) {
  report_.folder = sFolderName;
}

ExitStatus Addition::judge(bool finished) {
  const auto books = readCatalogue(wiring_.module.platform, library_.catalogue);
  if (books.size() <= booksBefore_.size()) {
    return judgeWithoutEntry(finished);
  }
  const CatalogueEntry& book = books.back();
  if (!wiring_.toolset.lastCopyArrived() || !wiring_.files.fileExists(bookFileOf(library_, book))) {
    takeOut(book, books);
    return ExitStatus::kWriteFailed;
  }
  describeBook(book);
  if (wasWriteErrorShown()) {
    report_.note = "the book was added, but " + nativeName(bookFileOf(library_, book)) +
                   std::string(kNotWritten);
    return ExitStatus::kWriteFailed;
  }
  report_.note.clear();
  return ExitStatus::kDone;
}

ExitStatus Addition::judgeWithoutEntry(bool finished) {
  if (wasWriteErrorShown()) {
    report_.note = nothingAddedWithout(nativeName(finished ? library_.catalogue : generatedFile()));
    return ExitStatus::kWriteFailed;
  }
  if (wasPlaceRefused()) {
    report_.line = statedPlace_.line;
  }
  const auto& boxes = wiring_.ui.shown();
  const bool hadError = std::any_of(
      boxes.begin(), boxes.end(), [](const ShownMessage& box) { return box.errorNumber != 0; });
  return finished && !hadError ? ExitStatus::kRefused : ExitStatus::kInternal;
}

/// Where the generator of a run that did not come to its end was to make the book file.
std::string Addition::generatedFile() const {
  const ProcessState& state = wiring_.module.state;
  return std::string(folderPartOf(state.currentTocPath)) +
         book_names::fileOf(state.currentBookAcro);
}

/// Takes the entry of a book whose file did not arrive out again. Entries are found by their name,
/// so one whose name another book has stays: the other's would go.
void Addition::takeOut(const CatalogueEntry& book, const std::vector<CatalogueEntry>& books) {
  const auto hasItsName = [&book](const CatalogueEntry& other) { return other.name == book.name; };
  if (std::count_if(books.begin(), books.end(), hasItsName) == 1) {
    Book_Config(wiring_.module).DeleteQuorNode(library_.catalogue, book.name);
  }
  const auto left = readCatalogue(wiring_.module.platform, library_.catalogue);
  const std::string bookFile = nativeName(bookFileOf(library_, book));
  report_.note = left.size() < books.size()
                     ? nothingAddedWithout(bookFile)
                     : bookFile + std::string(kNotWritten) + "; the entry of " +
                           readableName(book.acronym) + " is left in the catalogue without it";
}

void Addition::describeBook(const CatalogueEntry& book) {
  report_.added = true;
  report_.book = book;
  BookDocuments documents = findDocuments(wiring_.module.platform, bookFileOf(library_, book));
  report_.files.push_back(book.bookFile);
  report_.files.insert(report_.files.end(), documents.present.begin(), documents.present.end());
  report_.missing = std::move(documents.missing);
}

bool Addition::wasPlaceRefused() const {
  const auto& boxes = wiring_.ui.shown();
  return statedPlace_.refusal && !boxes.empty() && boxes.back().text == *statedPlace_.refusal;
}

void Addition::writing(const std::string& what, const std::function<void()>& step) {
  try {
    writingOutput(what, step);
  } catch (const CommandFailure&) {
    report_.note = nothingAddedWithout(what);
    throw;
  }
}

bool Addition::wasWriteErrorShown() const {
  const auto& boxes = wiring_.ui.shown();
  return std::any_of(boxes.begin(), boxes.end(), [](const ShownMessage& box) {
    return isWriteError(box.errorNumber);
  });
}

}  // namespace quorbind
