#include "cli/addition.h"

#include <algorithm>
#include <filesystem>

#include "bookxml/names.h"
#include "catalogue/book_config.h"
#include "cli/book_file_survey.h"
#include "cli/book_flags.h"
#include "cli/failure.h"
#include "cli/page_survey.h"
#include "cli/prepared_toc.h"
#include "cli/required_document.h"
#include "cli/side_file_reader.h"
#include "cli/side_file_rules.h"
#include "cli/text_list.h"
#include "cli/workbook_addition.h"
#include "platform/abandoned.h"
#include "platform/error_sources.h"
#include "platform/paths.h"
#include "platform/text.h"
#include "resources/form_layouts.h"
#include "sidefiles/link_identifiers.h"
#include "sidefiles/names.h"
#include "toc/excel_toc.h"
#include "toc/text_form.h"
#include "toc/toc_check.h"
#include "workflow/driver/quor_book.h"
#include "workflow/driver/run_lists.h"
#include "workflow/inputs/input_check.h"

namespace quorbind {

namespace {

constexpr std::string_view kNothingAdded = "nothing was added";
constexpr std::string_view kNotWritten = " could not be written";

bool isBlank(const std::optional<std::string>& text) {
  return !text || trimBlanks(*text).empty();
}

std::string nothingAddedWithout(const std::string& what) {
  return std::string(what).append(kNotWritten).append("; ").append(kNothingAdded);
}

/// Whether the host asks for name and acronym before it calls the driver: link identifiers of a
/// page carry the acronym and are recorded during the validation, in which a book file's own values
/// are held against the catalogue.
bool asksFirst(const AddArguments& arguments) {
  const std::int16_t kind = kindOf(arguments.toc, arguments.kind);
  return kind == TocCheck::kHtml ||
         (kind == TocCheck::kXml && (arguments.name || arguments.acronym));
}

/// A name and an acronym that are both given need no form. Those of a workbook's book reach the
/// component by the form alone.
bool formIsSpared(const AddArguments& arguments) {
  return !isBlank(arguments.name) && !isBlank(arguments.acronym) && !asksFirst(arguments) &&
         kindOf(arguments.toc, arguments.kind) != TocCheck::kExcel;
}

std::string inTheWay(const std::string& path) {
  return nativeName(path) + ": the file is in the way; move it or delete it";
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
  kind_ = kindOf(toc.name, arguments_.kind);
  if (!flagsAreAccepted() || !bCheckForValidInput(wiring_.module, toc.path, kind_)) {
    return ExitStatus::kRefused;
  }
  requireFolderInLibrary();
  requireNamesThatFit();
  if (kind_ != TocCheck::kExcel) {
    requireRecordableLists();
    considerCategories();
    requireUsableSideFiles();
  }
  const Ready ready = makeReady(toc);
  if (const auto* status = std::get_if<ExitStatus>(&ready)) {
    return *status;
  }
  const auto& path = std::get<std::string>(ready);
  return kind_ == TocCheck::kExcel ? addBooks(path) : judge(toc, callComponent(path));
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

/// The component would leave what it refuses out, and add the book.
void Addition::requireRecordableLists() {
  requireKeywords(wiring_, keywordsIn(arguments_.keywords).texts);
  requireCategoryList(arguments_.categories);
}

/// The component makes the file, and files the book, only where it is given categories.
void Addition::considerCategories() {
  const bool isGiven = !arguments_.categories.empty();
  if (arguments_.createCategories && mayMakeCategories(wiring_, library_)) {
    createsCategories_ = isGiven;
    if (!isGiven) {
      tell(wiring_, "--create-categories is not used: there are no --categories");
    }
  }
  if (isGiven && !createsCategories_ && !wiring_.files.fileExists(library_.bookCategories)) {
    tell(wiring_, "--categories is not used: the library has no categories file");
  }
}

/// Does what recording will do to the side files, without an effect: the component says nothing of
/// a categories file that does not load, and too little of the other.
void Addition::requireUsableSideFiles() {
  if (!arguments_.keywords.empty()) {
    requireUsableSideFile(library_.searchKeywords, keyword_names::kBooks);
  }
  if (!arguments_.categories.empty()) {
    requireUsableSideFile(library_.bookCategories, category_names::kSet);
  }
}

void Addition::requireUsableSideFile(const std::string& path, std::string_view root) {
  if (wiring_.files.fileExists(path)) {
    const auto document = loadRequired(wiring_.module.platform, path);
    if (!document->select(root)) {
      throw missingElement(path, root);
    }
  }
  writing(nativeName(path), [&] { static_cast<void>(wiring_.files.replace(path)); });
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

Addition::Ready Addition::makeReady(const TocFile& toc) {
  switch (kind_) {
    case TocCheck::kText:
      return readyText(toc);
    case TocCheck::kHtml:
      return readyPage(toc);
    case TocCheck::kXml:
      return readyBookFile(toc);
    default:
      return readyWorkbook(toc);
  }
}

std::string Addition::readyText(const TocFile& toc) {
  const TocSurvey survey = surveyTextToc(wiring_.module.platform, toc);
  if (survey.refusal) {
    report_.line = survey.refusal->line;
    // It goes on as it stands, so that the boxes show the author's own line.
    return toc.path;
  }
  requireReadableDepth(survey, toc.name);
  std::string ready = survey.hasMarks ? toc.path : preparedCopyOf(toc);
  readingInput(arguments_.toc,
               [&] { statedPlace_ = readStatedPlace(wiring_.module.platform, ready); });
  tellOfUnusedFolder();
  if (!statedPlace_.refusal && !isBlank(arguments_.acronym)) {
    requireFreeBookFile(ready, statedPlace_, *arguments_.acronym);
  }
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

/// The component writes while it checks a page, and records the link identifiers before it looks at
/// the folder. So everything that can refuse the book is asked here first.
Addition::Ready Addition::readyPage(const TocFile& toc) {
  const PageSurvey survey = surveyHtmlToc(wiring_.module.platform, toc);
  if (survey.rules.refusal) {
    return refuse(*survey.rules.refusal, ExitStatus::kRefused);
  }
  requireReadableDepth(survey.rules, toc.name);
  statedPlace_ = survey.place;
  if (statedPlace_.refusal) {
    return refuse({.violation = {.message = *statedPlace_.refusal, .offersLine = false},
                   .line = statedPlace_.line},
                  ExitStatus::kRefused);
  }
  tellNotes(wiring_.ui, survey, toc);
  // Offered in the dialog, as the component would offer it.
  wiring_.module.state.currentBookName = survey.title;
  if (!askForNames(toc)) {
    return ExitStatus::kRefused;
  }
  tellOfUnusedFolder();
  requireFolder();
  if (survey.hasLinkIdentifiers) {
    requireUsableSideFile(library_.linkIds, link_names::kListPath);
  }
  requireFreeBookFile(toc.path, statedPlace_, wiring_.module.state.currentBookAcro);
  makeRoomForExport(toc, text_form::kHtmlExtension);
  return toc.path;
}

Addition::Ready Addition::readyBookFile(const TocFile& toc) {
  const BookFileSurvey survey = surveyBookFile(wiring_.module.platform, toc);
  if (survey.refusal) {
    return refuse(*survey.refusal, survey.status);
  }
  if (survey.missingElement) {
    throw missingElement(toc.path, *survey.missingElement);
  }
  statedPlace_.folder = survey.folder;
  requireUsableLinks(toc);
  if (asksFirst(arguments_) && !askForNames(toc)) {
    return ExitStatus::kRefused;
  }
  tellOfUnusedFolder();
  return toc.path;
}

/// A book that comes from another library brings the link identifiers of that one along.
void Addition::requireUsableLinks(const TocFile& toc) {
  const std::string source =
      linkFileBesideBook(library_.docsFolder, std::string(folderPartOf(toc.path)));
  if (wiring_.files.fileExists(source) && !wiring_.files.sameFile(source, library_.linkIds)) {
    static_cast<void>(readExistingLinks(wiring_.module.platform, source));
    requireUsableSideFile(library_.linkIds, link_names::kLinks);
  }
}

/// The component adds the books of a workbook while it checks them. So nothing may be left that
/// could refuse the second when the first is in the library.
Addition::Ready Addition::readyWorkbook(const TocFile& toc) {
  report_.isWorkbook = true;
  survey_ = surveyWorkbook(wiring_.module.platform, toc);
  if (isRefused(toc, std::move(survey_.violations))) {
    return survey_.status;
  }
  takeNames(survey_, arguments_, wiring_);
  // Where somebody can be asked, the dialog of the component asks.
  if (!wiring_.mayAsk && isRefused(toc, takenNames(survey_, booksBefore_))) {
    return ExitStatus::kRefused;
  }
  considerFolders(survey_, arguments_, wiring_);
  tellOfUnusedRecords(arguments_, wiring_);
  requireUsableSideFilesOfBooks();
  for (const SurveyedBook& book : survey_.books) {
    if (!book.acronym.empty()) {
      requireFreeBookFile(toc.path, book.place, book.acronym);
    }
  }
  makeRoomForExport(toc, excel_toc::kExtension);
  return toc.path;
}

/// Tells the user of the violations, if any.
bool Addition::isRefused(const TocFile& toc, std::vector<WorkbookViolation> violations) {
  report_.violations = std::move(violations);
  tellViolations(wiring_.ui, toc.name, report_.violations);
  return !report_.violations.empty();
}

void Addition::requireUsableSideFilesOfBooks() {
  const auto anyBookHas = [this](std::vector<std::string> SurveyedBook::*list) {
    return std::any_of(survey_.books.begin(), survey_.books.end(), [list](const auto& book) {
      return !(book.*list).empty();
    });
  };
  if (anyBookHas(&SurveyedBook::keywords)) {
    requireUsableSideFile(library_.searchKeywords, keyword_names::kBooks);
  }
  if (anyBookHas(&SurveyedBook::categories)) {
    if (!wiring_.files.fileExists(library_.bookCategories)) {
      tell(wiring_, "the books are not filed: the library has no categories file");
    } else {
      requireUsableSideFile(library_.bookCategories, category_names::kSet);
    }
  }
  if (survey_.hasLinkIdentifiers) {
    requireUsableSideFile(library_.linkIds, link_names::kListPath);
  }
}

ExitStatus Addition::refuse(const TocRefusal& refusal, ExitStatus status) {
  report_.line = refusal.line;
  report_.column = refusal.column;
  tellRefusal(wiring_.ui, refusal);
  return status;
}

/// The driver would tell the form which table of contents it asks about.
bool Addition::askForNames(const TocFile& toc) {
  wiring_.module.bookInfo.setFileNameLabel(toc.path);
  return Quor_Book(wiring_.module, this).mbGetFormInput(library_.catalogue, kind_);
}

void Addition::tellOfUnusedFolder() {
  const auto& folder = statedPlace_.folder;
  if (!arguments_.folder || !folder) {
    return;
  }
  const std::string named = folder->empty() ? "the library's own folder" : "the folder " + *folder;
  wiring_.ui.show({.text = "--folder " + *arguments_.folder +
                           " is not used: the table of contents names " + named,
                   .icon = MessageIcon::kInformation});
}

/// Gives up where the folder dialog would have to, which comes too late.
void Addition::requireFolder() {
  if (!statedPlace_.folder && isBlank(arguments_.folder) && !wiring_.mayAsk) {
    throw Abandoned(AbandonReason::kAnswerMissing, "give --folder");
  }
}

/// The generator writes its file beside the table of contents, from where it is moved into the
/// book's folder there; after the copy it is deleted. A file of that name that stands there already
/// is not this run's to overwrite, install or delete.
void Addition::requireFreeBookFile(const std::string& tocPath,
                                   const StatedPlace& place,
                                   const std::string& acronym) {
  const std::string besideToc(folderOf(tocPath));
  const std::string bookFile = "\\" + book_names::fileOf(acronym);
  const std::string folder =
      place.folder.value_or(std::string(trimBlanks(arguments_.folder.value_or(""))));
  const std::string inBookFolder = besideToc + "\\" + folder;
  for (const std::string& besides : {besideToc, inBookFolder}) {
    const std::string path = besides + bookFile;
    if (wiring_.files.fileExists(path)) {
      throw CommandFailure(ExitStatus::kRefused, inTheWay(path));
    }
  }
}

/// An export is named after the upper-cased path of the table of contents, and is this run's to
/// delete only if it was not there before.
void Addition::makeRoomForExport(const TocFile& toc, std::string_view extension) {
  const Locale& locale = wiring_.locale;
  if (!wiring_.files.sameFile(locale.upperCase(toc.path), toc.path)) {
    throw CommandFailure(ExitStatus::kRefused,
                         toc.name +
                             ": the name of another file differs from it in letter case alone; "
                             "rename one of them");
  }
  const std::string folder(folderPartOf(toc.path));
  const std::string exported = text_form::exportPathOf(locale, toc.path, extension);
  if (folderPartOf(exported) != locale.upperCase(folder)) {
    throw CommandFailure(
        ExitStatus::kRefused,
        toc.name + ": it lies in a folder whose name holds its extension; move it");
  }
  const std::string path = folder + std::string(fileNameOf(exported));
  if (wiring_.files.fileExists(path)) {
    throw CommandFailure(ExitStatus::kRefused, inTheWay(path));
  }
  writing(nativeName(folder), [&] { static_cast<void>(wiring_.files.replace(path)); });
  export_.emplace(nativeName(path));
}

bool Addition::callComponent(const std::string& tocPath) {
  const bool spared = formIsSpared(arguments_);
  // In the form in which the catalogue has it and by which the keywords are found; the dialog gives
  // the same.
  const auto rules = wiring_.toolset.createXmlTextRules();
  Quor_Book book(wiring_.module, this);
  return book.Book_Valuator(tocPath,
                            library_.catalogue,
                            kind_,
                            arguments_.place.library,
                            spared ? rules->mstrCheckSpecialCharecters(*arguments_.name) : "",
                            spared ? *arguments_.acronym : "",
                            arguments_.category,
                            library_.searchKeywords,
                            library_.bookCategories,
                            arguments_.keywords,
                            arguments_.categories,
                            library_.searchKeywords,
                            arguments_.installType,
                            createsCategories_,
                            library_.docsFolder);
}

void Addition::evtGetFolderName(std::string_view sFolderName) {
  report_.folder = sFolderName;
}

ExitStatus Addition::judge(const TocFile& toc, bool finished) {
  const auto books = readCatalogue(wiring_.module.platform, library_.catalogue);
  if (books.size() <= booksBefore_.size()) {
    return judgeWithoutEntry(finished);
  }
  const ListedBook& book = books.back();
  if (!hasArrived(book, toc)) {
    const std::string bookFile = nativeName(bookFileOf(library_, book));
    report_.note = takeOut(book, books)
                       ? nothingAddedWithout(bookFile)
                       : bookFile + std::string(kNotWritten) + "; the entry of " +
                             readableName(book.acronym) + " is left in the catalogue without it";
    return ExitStatus::kWriteFailed;
  }
  report_.added = true;
  describeBook(book);
  if (wasWriteErrorShown()) {
    report_.note =
        "the book was added, but " + nativeName(fileOfWriteError(book)) + std::string(kNotWritten);
    return ExitStatus::kWriteFailed;
  }
  if (const auto& failed = wiring_.files.failedWrite()) {
    // Nobody was told: the component passes over documents that can't be copied.
    report_.note = "the book was added, but " + nativeName(*failed) + std::string(kNotWritten);
    return ExitStatus::kWriteFailed;
  }
  report_.note.clear();
  return ExitStatus::kDone;
}

/// An older file of the same name may stand where the new one should be. Of a generated book file
/// the copying component tells whether it was put there; an existing one is copied in another way,
/// and must have the headings of the one that was given.
bool Addition::hasArrived(const ListedBook& book, const TocFile& toc) {
  const std::string bookFile = bookFileOf(library_, book);
  if (!wiring_.files.fileExists(bookFile)) {
    return false;
  }
  return kind_ == TocCheck::kXml ? haveSameHeadings(wiring_.module.platform, toc.path, bookFile)
                                 : wiring_.toolset.hasArrived(book.bookFile);
}

ExitStatus Addition::addBooks(const std::string& workbook) {
  bool finished = false;
  try {
    finished = callComponent(workbook);
  } catch (const Abandoned&) {
    static_cast<void>(lookForBooks());
    report_.note = countOfBooks();
    throw;
  }
  const std::optional<std::string> lost = lookForBooks();
  report_.added = report_.books.size() == survey_.books.size();
  const auto& failed = wiring_.files.failedWrite();
  if (lost || failed || wasWriteErrorShown()) {
    report_.note = nativeName(failed ? *failed : lost.value_or(library_.folder)) +
                   std::string(kNotWritten) + "; " + countOfBooks();
    return ExitStatus::kWriteFailed;
  }
  if (report_.added) {
    report_.note.clear();
    return ExitStatus::kDone;
  }
  report_.note = countOfBooks();
  return finished && !hadError() ? ExitStatus::kRefused : ExitStatus::kInternal;
}

/// Looks which books of the workbook are in the library, and takes out the entries of those whose
/// files are not. Answers such a file, if any.
std::optional<std::string> Addition::lookForBooks() {
  std::optional<std::string> lost;
  const auto books = readCatalogue(wiring_.module.platform, library_.catalogue);
  for (std::size_t index = booksBefore_.size(); index < books.size(); ++index) {
    const std::string bookFile = bookFileOf(library_, books[index]);
    if (wiring_.files.fileExists(bookFile) && wiring_.toolset.hasArrived(books[index].bookFile)) {
      describeBook(books[index]);
    } else {
      takeOut(books[index], books);
      lost = lost.value_or(bookFile);
    }
  }
  return lost;
}

std::string Addition::countOfBooks() const {
  const std::size_t added = report_.books.size();
  return added == 0 ? std::string(kNothingAdded)
                    : std::to_string(added) + " of " +
                          counted(survey_.books.size(), "book", "books") + " added";
}

ExitStatus Addition::judgeWithoutEntry(bool finished) {
  if (wasWriteErrorShown()) {
    report_.note =
        nothingAddedWithout(nativeName(finished ? library_.catalogue : bookFileBeingMade()));
    return ExitStatus::kWriteFailed;
  }
  if (wasPlaceRefused()) {
    report_.line = statedPlace_.line;
  }
  return finished && !hadError() ? ExitStatus::kRefused : ExitStatus::kInternal;
}

bool Addition::hadError() const {
  const auto& boxes = wiring_.ui.shown();
  return std::any_of(
      boxes.begin(), boxes.end(), [](const ShownMessage& box) { return box.errorNumber != 0; });
}

/// Where a run that did not come to its end was to make the book file: the generator beside the
/// table of contents, an existing one in its place.
std::string Addition::bookFileBeingMade() const {
  const ProcessState& state = wiring_.module.state;
  const std::string name = book_names::fileOf(state.acroOfBookFile());
  if (kind_ == TocCheck::kXml) {
    const std::string folder = statedPlace_.folder.value_or("");
    return library_.folder + "\\" + (folder.empty() ? "" : folder + "\\") + name;
  }
  return std::string(folderPartOf(state.currentTocPath)) + name;
}

/// Takes the entry of a book whose file did not arrive out again. Entries are found by their name,
/// so one whose name another book has stays: the other's would go. Answers whether it is gone.
bool Addition::takeOut(const ListedBook& book, const std::vector<ListedBook>& books) {
  const auto hasItsName = [&book](const ListedBook& other) { return other.name == book.name; };
  if (std::count_if(books.begin(), books.end(), hasItsName) == 1) {
    Book_Config(wiring_.module).DeleteQuorNode(library_.catalogue, book.name);
  }
  const auto left = readCatalogue(wiring_.module.platform, library_.catalogue);
  return left.size() < books.size();
}

void Addition::describeBook(const ListedBook& book) {
  BookDocuments documents = findDocuments(wiring_.module.platform, bookFileOf(library_, book));
  AddedBook& added = report_.books.emplace_back();
  added.book = book;
  added.files.push_back(book.bookFile);
  added.files.insert(added.files.end(), documents.present.begin(), documents.present.end());
  added.missing = std::move(documents.missing);
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

/// The file that the first write error was about; the operation that reports it tells which.
std::string Addition::fileOfWriteError(const ListedBook& book) const {
  const auto& boxes = wiring_.ui.shown();
  const auto box = std::find_if(boxes.begin(), boxes.end(), [](const ShownMessage& shown) {
    return isWriteError(shown.errorNumber);
  });
  const auto isFrom = [&box](const ErrorSource& source) {
    return contains(box->text, source.text);
  };
  if (isFrom(source::kAddKeywordsToXmlFile) || isFrom(source::kCreateKeywordXmlFile)) {
    return library_.searchKeywords;
  }
  if (isFrom(source::kAddCategoryNode) || isFrom(source::kCreateBookCateXmlFile)) {
    return library_.bookCategories;
  }
  if (isFrom(source::kAddToLinkIdFile) || isFrom(source::kGenerateBookLinkId) ||
      isFrom(source::kAddLinkIdInfo)) {
    return library_.linkIds;
  }
  return bookFileOf(library_, book);
}

}  // namespace quorbind
