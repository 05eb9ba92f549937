#include "cli/addition_input.h"

#include <algorithm>
#include <utility>

#include "bookxml/names.h"
#include "cli/failure.h"
#include "cli/page_survey.h"
#include "cli/point_of_need.h"
#include "cli/prepared_toc.h"
#include "cli/required_document.h"
#include "cli/side_file_reader.h"
#include "cli/workbook_addition.h"
#include "platform/abandoned.h"
#include "platform/paths.h"
#include "platform/text.h"
#include "sidefiles/link_identifiers.h"
#include "sidefiles/names.h"
#include "toc/excel_toc.h"
#include "toc/text_form.h"
#include "toc/toc_check.h"
#include "workflow/driver/quor_book.h"

namespace quorbind {

namespace {

void requireNoFile(FileSystem& files, const std::string& path) {
  if (files.fileExists(path)) {
    throw brokenRule(RuleText::kFileInTheWay, {{"FILE", nativeName(path)}});
  }
}

}  // namespace

AdditionInput::Ready AdditionInput::makeReady(const TocFile& toc) {
  switch (run_.kind) {
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

AdditionInput::Ready AdditionInput::readyText(const TocFile& toc) {
  const TocSurvey survey = surveyTextToc(run_.wiring.module.platform, toc);
  run_.statedPlace = survey.statedPlace;
  run_.mainFilePlace = survey.mainFile;
  if (survey.refusal) {
    run_.blame(toc, survey.refusal->place);
    // It goes on as it stands, so that the boxes show the author's own line.
    return toc.path;
  }
  if (survey.tooDeep) {
    return refuse(toc, *survey.tooDeep, ExitStatus::kNotParseable);
  }
  std::string ready = survey.hasMarks ? toc.path : preparedCopyOf(toc);
  tellOfUnusedFolder();
  const std::optional<std::string> acronym = valueAt(run_.arguments.acronyms, 0);
  if (!run_.statedPlace.refusal && isGiven(acronym)) {
    requireFreeBookFile(ready, run_.statedPlace, *acronym);
  }
  return ready;
}

std::string AdditionInput::preparedCopyOf(const TocFile& toc) {
  const std::string folder = nativeName(folderOf(toc.path)) + "/";
  run_.writing(folder, [&] { preparedCopy_.emplace(folder); });
  writePreparedToc(run_.wiring.module.platform, toc, [&](std::string_view line) {
    run_.writing(folder, [&] { preparedCopy_->write(line); });
  });
  run_.writing(folder, [&] { preparedCopy_->close(); });
  std::string path = withBackslashes(preparedCopy_->path());
  run_.wiring.ui.showPathAs(path, toc.name);
  return path;
}

/// The component writes while it checks a page, and records the link identifiers before it looks at
/// the folder. So everything that can refuse the book is asked here first.
AdditionInput::Ready AdditionInput::readyPage(const TocFile& toc) {
  const PageSurvey survey = surveyHtmlToc(run_.wiring.module.platform, toc);
  if (survey.rules.refusal) {
    return refuse(toc, *survey.rules.refusal, ExitStatus::kRefused);
  }
  if (survey.rules.tooDeep) {
    return refuse(toc, *survey.rules.tooDeep, ExitStatus::kNotParseable);
  }
  run_.statedPlace = survey.rules.statedPlace;
  if (const auto refusal = refusalOfStatedPlace(survey.rules)) {
    return refuse(toc, *refusal, ExitStatus::kRefused);
  }
  tellNotes(run_.wiring.ui, survey, toc);
  // Offered in the dialog, as the component would offer it.
  run_.wiring.module.state.currentBookName = survey.title;
  if (!askForNames(toc)) {
    return ExitStatus::kRefused;
  }
  tellOfUnusedFolder();
  requireFolder();
  if (survey.hasLinkIdentifiers) {
    run_.requireUsableSideFile(run_.library.linkIds, link_names::kLinks);
  }
  requireFreeBookFile(toc.path, run_.statedPlace, run_.wiring.module.state.currentBookAcro);
  makeRoomForExport(toc, text_form::kHtmlExtension);
  return toc.path;
}

AdditionInput::Ready AdditionInput::readyBookFile(const TocFile& toc) {
  const BookFileSurvey survey = surveyBookFile(run_.wiring.module.platform, toc);
  if (survey.refusal) {
    return refuse(toc, *survey.refusal, survey.status);
  }
  if (survey.missingElement) {
    throw missingElement(toc.path, *survey.missingElement);
  }
  run_.statedPlace.folder = survey.folder;
  requireUsableLinks(toc);
  // No answer of a dialog and no flag could change it.
  requireOwnBookFile(survey);
  if (!asksFirst(run_.arguments)) {
    run_.requireOwnLetters(
        survey.name, survey.acronym, {AbandonReason::kAnswerMissing, "give --name and --acro"});
  } else if (!askForNames(toc)) {
    return ExitStatus::kRefused;
  }
  tellOfUnusedFolder();
  return toc.path;
}

/// A book that comes from another library brings the link identifiers of that one along.
void AdditionInput::requireUsableLinks(const TocFile& toc) {
  const std::string source =
      linkFileBesideBook(run_.library.docsFolder, std::string(folderPartOf(toc.path)));
  if (run_.wiring.files.fileExists(source) &&
      !run_.wiring.files.sameFile(source, run_.library.linkIds)) {
    static_cast<void>(readExistingLinks(run_.wiring.module.platform, source));
    run_.requireUsableSideFile(run_.library.linkIds, link_names::kLinks);
  }
}

/// The book file keeps its name in the library, whatever the book is called there.
void AdditionInput::requireOwnBookFile(const BookFileSurvey& survey) {
  const Locale& locale = run_.wiring.locale;
  const std::string name = book_names::fileOf(survey.acronym);
  for (const ListedBook& book : run_.booksBefore) {
    if (locale.compareText(book.folder, survey.folder) == 0 &&
        locale.compareText(book.bookFile, name) == 0) {
      throw brokenRule(
          RuleText::kBookFileTaken,
          {{"FILE", nativeName(bookFileOf(run_.library, book))}, {"BOOK", titleOf(book)}});
    }
  }
}

/// The component adds the books of a workbook while it checks them. So nothing may be left that
/// could refuse the second when the first is in the library.
AdditionInput::Ready AdditionInput::readyWorkbook(const TocFile& toc) {
  run_.report.isWorkbook = true;
  run_.survey = surveyWorkbook(run_.wiring.module.platform, toc);
  if (isRefused(toc, std::move(run_.survey.violations))) {
    return run_.survey.status;
  }
  takeNames(run_.survey, run_.arguments, run_.wiring);
  answerBooksInTheirOrder(run_.wiring);
  if (isRefused(toc, takenNames(run_.survey, run_.booksBefore, run_.wiring))) {
    return ExitStatus::kRefused;
  }
  considerFolders(run_.survey, run_.arguments, run_.wiring);
  tellOfUnusedRecords(run_.arguments, run_.wiring);
  requireUsableSideFilesOfBooks();
  for (const SurveyedBook& book : run_.survey.books) {
    if (!book.acronym.empty()) {
      requireFreeBookFile(toc.path, book.place, book.acronym);
    }
  }
  makeRoomForExport(toc, excel_toc::kExtension);
  return toc.path;
}

/// Tells the user of the violations, if any.
bool AdditionInput::isRefused(const TocFile& toc, std::vector<WorkbookViolation> violations) {
  run_.report.violations = std::move(violations);
  tellViolations(run_.wiring.ui, toc.name, run_.report.violations);
  return !run_.report.violations.empty();
}

void AdditionInput::requireUsableSideFilesOfBooks() {
  const auto anyBookHas = [this](std::vector<std::string> SurveyedBook::*list) {
    return std::any_of(run_.survey.books.begin(),
                       run_.survey.books.end(),
                       [list](const auto& book) { return !(book.*list).empty(); });
  };
  if (anyBookHas(&SurveyedBook::keywords)) {
    run_.requireUsableSideFile(run_.library.searchKeywords, keyword_names::kBooks);
  }
  if (anyBookHas(&SurveyedBook::categories)) {
    if (!run_.wiring.files.fileExists(run_.library.bookCategories)) {
      tell(run_.wiring, "the books are not filed: the library has no categories file");
    } else {
      run_.requireUsableSideFile(run_.library.bookCategories, category_names::kSet);
    }
  }
  if (run_.survey.hasLinkIdentifiers) {
    run_.requireUsableSideFile(run_.library.linkIds, link_names::kLinks);
  }
}

ExitStatus AdditionInput::refuse(const TocFile& toc, const TocRefusal& refusal, ExitStatus status) {
  run_.blame(toc, refusal.place);
  tellRefusal(run_.wiring.ui, refusal);
  return status;
}

/// The driver would tell the form which table of contents it asks about.
bool AdditionInput::askForNames(const TocFile& toc) {
  run_.wiring.module.bookInfo.setFileNameLabel(toc.path);
  return Quor_Book(run_.wiring.module).mbGetFormInput(run_.library.catalogue, run_.kind);
}

void AdditionInput::tellOfUnusedFolder() {
  const auto& folder = run_.statedPlace.folder;
  if (!run_.arguments.folder || !folder) {
    return;
  }
  const std::string named = folder->empty() ? "the library's own folder" : "the folder " + *folder;
  run_.wiring.ui.show({.text = "--folder " + *run_.arguments.folder +
                               " is not used: the table of contents names " + named,
                       .icon = MessageIcon::kInformation});
}

/// Gives up where the folder dialog would have to, which comes too late.
void AdditionInput::requireFolder() {
  if (!run_.statedPlace.folder && !isGiven(run_.arguments.folder) && !run_.wiring.mayAsk) {
    throw Abandoned(AbandonReason::kAnswerMissing, "give --folder");
  }
}

/// The generator writes its file beside the table of contents, from where it is moved into the
/// book's folder there; after the copy it is deleted. A file of that name that stands there already
/// is not this run's to overwrite, install or delete.
void AdditionInput::requireFreeBookFile(const std::string& tocPath,
                                        const StatedPlace& place,
                                        const std::string& acronym) {
  const std::string besideToc(folderOf(tocPath));
  const std::string bookFile = "\\" + book_names::fileOf(acronym);
  const std::string folder =
      place.folder.value_or(std::string(trimBlanks(run_.arguments.folder.value_or(""))));
  const std::string inBookFolder = besideToc + "\\" + folder;
  for (const std::string& besides : {besideToc, inBookFolder}) {
    requireNoFile(run_.wiring.files, run_.wiring.files.absolutePath(besides + bookFile));
  }
}

/// An export is named after the upper-cased path of the table of contents, and is this run's to
/// delete only if it was not there before.
void AdditionInput::makeRoomForExport(const TocFile& toc, std::string_view extension) {
  const Locale& locale = run_.wiring.locale;
  if (!run_.wiring.files.sameFile(locale.upperCase(toc.path), toc.path)) {
    throw brokenRule(RuleText::kNameInTwoLetterCases, {{"FILE", toc.name}});
  }
  const std::string folder(folderPartOf(toc.path));
  const std::string exported = text_form::exportPathOf(locale, toc.path, extension);
  if (folderPartOf(exported) != locale.upperCase(folder)) {
    throw brokenRule(RuleText::kFolderHoldsExtension, {{"FILE", toc.name}});
  }
  const std::string path = folder + std::string(fileNameOf(exported));
  requireNoFile(run_.wiring.files, path);
  run_.writing(nativeName(folder), [&] { static_cast<void>(run_.wiring.files.replace(path)); });
  export_.emplace(nativeName(path));
}

}  // namespace quorbind
