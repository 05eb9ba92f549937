#include "cli/addition.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "bookxml/names.h"
#include "cli/addition_input.h"
#include "cli/addition_outcome.h"
#include "cli/book_flags.h"
#include "cli/failure.h"
#include "cli/kept_text.h"
#include "cli/side_file_rules.h"
#include "cli/text_list.h"
#include "platform/abandoned.h"
#include "platform/paths.h"
#include "platform/text.h"
#include "resources/form_layouts.h"
#include "sidefiles/names.h"
#include "toc/toc_check.h"
#include "workflow/driver/quor_book.h"
#include "workflow/driver/run_lists.h"
#include "workflow/inputs/input_check.h"

namespace quorbind {

namespace {

/// A name and an acronym that are both given need no form. Those of a workbook's book reach the
/// component by the form alone.
bool formIsSpared(const AddArguments& arguments) {
  return isGiven(valueAt(arguments.names, 0)) && isGiven(valueAt(arguments.acronyms, 0)) &&
         !asksFirst(arguments) && kindOf(arguments.toc, arguments.kind) != TocCheck::kExcel;
}

/// The answers of a flag that may be repeated; one that was not given has one without a text.
void appendAnswers(std::vector<PreparedAnswer>& answers,
                   const PreparedAnswer& answer,
                   const std::vector<std::string>& values) {
  for (std::size_t index = 0; index < std::max<std::size_t>(values.size(), 1); ++index) {
    answers.push_back(answer);
    answers.back().text = valueAt(values, index);
  }
}

/// Only a workbook holds more than one book.
void requireOneValue(std::string_view flag, const std::vector<std::string>& values) {
  if (values.size() > 1) {
    throw brokenRule(
        RuleText::kValuesForOneBook,
        {{"FLAG", std::string(flag)}, {"TIMES", counted(values.size(), "time", "times")}});
  }
}

}  // namespace

Addition::Addition(const AddArguments& arguments, const LibraryPaths& library, Wiring& wiring)
    : run_{arguments, library, wiring} {
  run_.report.toc = arguments.toc;
  run_.report.library = arguments.place.library;
}

std::vector<PreparedAnswer> Addition::answersOf(const AddArguments& arguments) {
  const std::string bookForm(layout::kBookInfo.name);
  const std::string folderForm(layout::kBookFolder.name);
  const bool used = formIsSpared(arguments);
  std::vector<PreparedAnswer> answers{{folderForm, "Text1", "--folder", arguments.folder}};
  appendAnswers(answers, {bookForm, "txtBookName", "--name", std::nullopt, used}, arguments.names);
  appendAnswers(
      answers, {bookForm, "txtBookAcro", "--acro", std::nullopt, used}, arguments.acronyms);
  return answers;
}

AdditionReport Addition::run() {
  run_.report.note = kNothingAdded;
  try {
    run_.report.status = reportingFailures(run_.wiring.ui, [this] { return addBook(); });
  } catch (const Abandoned& abandoned) {
    run_.report.status = abandoned.reason() == AbandonReason::kAnswerRefused
                             ? ExitStatus::kRefused
                             : ExitStatus::kAnswerMissing;
    run_.report.note.append(": ").append(abandoned.what());
  }
  run_.wiring.ui.unloadProgress();
  return run_.report;
}

ExitStatus Addition::addBook() {
  const TocFile toc(run_.wiring.files, run_.arguments.toc);
  run_.wiring.ui.showPathAs(toc.path, toc.name);
  requireUsableLibrary();
  run_.kind = kindOf(toc.name, run_.arguments.kind);
  if (!flagsAreAccepted() || !bCheckForValidInput(run_.wiring.module, toc.path, run_.kind)) {
    return ExitStatus::kRefused;
  }
  requireOneNaming();
  requireFolderInLibrary();
  requireUsableNames();
  requireNamesInOwnLetters();
  if (run_.kind != TocCheck::kExcel) {
    requireRecordableLists();
    considerCategories();
    requireUsableSideFiles();
  }
  AdditionInput input(run_);
  const AdditionInput::Ready ready = input.makeReady(toc);
  if (const auto* status = std::get_if<ExitStatus>(&ready)) {
    return *status;
  }
  const auto& path = std::get<std::string>(ready);
  AdditionOutcome outcome(run_);
  return run_.kind == TocCheck::kExcel ? outcome.judgeBooks([&] { return callComponent(path); })
                                       : outcome.judge(toc, callComponent(path));
}

/// Does what adding will do to the catalogue, without an effect.
void Addition::requireUsableLibrary() {
  run_.booksBefore = readCatalogue(run_.wiring.module.platform, run_.library.catalogue);
  run_.writing(nativeName(run_.library.catalogue),
               [this] { static_cast<void>(run_.wiring.files.replace(run_.library.catalogue)); });
}

/// The forms' own handlers judge the flags, in a module that this run doesn't use. They refuse with
/// a box.
bool Addition::flagsAreAccepted() {
  Module scratch(run_.wiring.module.platform);
  const std::size_t boxes = run_.wiring.ui.shown().size();
  const std::vector<std::string>& names = run_.arguments.names;
  const std::vector<std::string>& acronyms = run_.arguments.acronyms;
  for (std::size_t index = 0; index < std::max(names.size(), acronyms.size()); ++index) {
    scratch.bookInfo.type("txtBookName", valueAt(names, index).value_or(""));
    scratch.bookInfo.type("txtBookAcro", valueAt(acronyms, index).value_or(""));
    scratch.bookInfo.click("cmdOk");
  }
  if (run_.arguments.folder) {
    scratch.bookFolder.type("Text1", *run_.arguments.folder);
    scratch.bookFolder.click("cmdOk");
  }
  return run_.wiring.ui.shown().size() == boxes;
}

/// The component finds a book that has the name or the acronym in the same letters only. In others
/// it would write the new book's file over the older one's.
void Addition::requireNamesInOwnLetters() {
  holdDialogsTo(run_.wiring, run_.library.catalogue);
  if (formIsSpared(run_.arguments)) {
    run_.requireOwnLetters(
        run_.arguments.names.front(),
        run_.arguments.acronyms.front(),
        {AbandonReason::kAnswerRefused, "other values are needed for --name and --acro"});
  }
}

/// The component would leave what it refuses out, and add the book.
void Addition::requireRecordableLists() {
  requireKeywords(run_.wiring, keywordsIn(run_.arguments.keywords).texts);
  requireCategoryList(run_.arguments.categories);
}

/// The component makes the file, and files the book, only where it is given categories.
void Addition::considerCategories() {
  const bool isGiven = !run_.arguments.categories.empty();
  if (run_.arguments.createCategories && mayMakeCategories(run_.wiring, run_.library)) {
    run_.createsCategories = isGiven;
    if (!isGiven) {
      tell(run_.wiring, "--create-categories is not used: there are no --categories");
    }
  }
  if (isGiven && !run_.createsCategories &&
      !run_.wiring.files.fileExists(run_.library.bookCategories)) {
    tell(run_.wiring, "--categories is not used: the library has no categories file");
  }
}

/// Does what recording will do to the side files, without an effect: the component says nothing of
/// a categories file that does not load, and too little of the other.
void Addition::requireUsableSideFiles() {
  if (!run_.arguments.keywords.empty()) {
    run_.requireUsableSideFile(run_.library.searchKeywords, keyword_names::kBooks);
  }
  if (!run_.arguments.categories.empty()) {
    run_.requireUsableSideFile(run_.library.bookCategories, category_names::kSet);
  }
}

void Addition::requireOneNaming() const {
  if (run_.kind != TocCheck::kExcel) {
    requireOneValue("--name", run_.arguments.names);
    requireOneValue("--acro", run_.arguments.acronyms);
  }
}

/// The folder dialog lets names like `..` pass, which a person would not type by mistake.
void Addition::requireFolderInLibrary() const {
  if (isGiven(run_.arguments.folder) && !staysInFolder(trimBlanks(*run_.arguments.folder))) {
    throw brokenRule(RuleText::kFolderFlagLeadsOut, {{"FOLDER", *run_.arguments.folder}});
  }
}

void Addition::requireUsableNames() const {
  requireKeptText(run_.arguments.category);
  for (const std::string& name : run_.arguments.names) {
    requireKeptText(name);
  }
  for (const std::string& acronym : run_.arguments.acronyms) {
    requireKeptText(acronym);
    requireNameThatFits(book_names::fileOf(acronym), "--acro");
  }
  if (run_.arguments.folder) {
    requireKeptText(*run_.arguments.folder);
    requireNameThatFits(trimBlanks(*run_.arguments.folder), "--folder");
  }
}

bool Addition::callComponent(const std::string& tocPath) {
  const bool spared = formIsSpared(run_.arguments);
  // In the form in which the catalogue has it and by which the keywords are found; the dialog gives
  // the same.
  const auto rules = run_.wiring.toolset.createXmlTextRules();
  Quor_Book book(run_.wiring.module, this);
  return book.Book_Valuator(
      tocPath,
      run_.library.catalogue,
      run_.kind,
      run_.arguments.place.library,
      spared ? rules->mstrCheckSpecialCharecters(run_.arguments.names.front()) : "",
      spared ? run_.arguments.acronyms.front() : "",
      run_.arguments.category,
      run_.library.searchKeywords,
      run_.library.bookCategories,
      run_.arguments.keywords,
      run_.arguments.categories,
      run_.library.searchKeywords,
      run_.arguments.installType,
      run_.createsCategories,
      run_.library.docsFolder);
}

void Addition::evtGetFolderName(std::string_view sFolderName) {
  run_.report.folder = sFolderName;
}

AdditionReport addBook(const AddArguments& arguments, std::vector<ShownMessage>& messages) {
  const LibraryPaths library(arguments.place.server, arguments.place.library);
  Wiring wiring(
      library.serverRoot, processTerminal(!arguments.noInput), Addition::answersOf(arguments));
  AdditionReport report = Addition(arguments, library, wiring).run();
  messages = wiring.ui.shown();
  return report;
}

}  // namespace quorbind
