#include "workflow/driver/book_valuator.h"

#include "bookxml/names.h"
#include "bookxml/toc_to_xml.h"
#include "platform/error_trap.h"
#include "platform/file_system.h"
#include "platform/paths.h"
#include "platform/toolset.h"
#include "platform/xml_document.h"
#include "sidefiles/category_creation.h"
#include "sidefiles/category_filing.h"
#include "sidefiles/keyword_list.h"
#include "sidefiles/link_identifiers.h"
#include "workflow/driver/book_file_copy.h"
#include "workflow/driver/run_lists.h"
#include "workflow/driver/valuated_excel_books.h"
#include "workflow/inputs/book_entry.h"
#include "workflow/inputs/form_input.h"
#include "workflow/inputs/input_check.h"

namespace quorbind {

namespace {

constexpr std::int32_t kProgressMaximum = 10;
constexpr std::int32_t kProgressValidated = 2;
constexpr std::int32_t kProgressConverted = 4;
constexpr std::int32_t kProgressEntered = 8;

}  // namespace

BookValuator::BookValuator(Module& module, TocCheck& tocCheck, QuorBookEvents* events)
    : module_(module), platform_(module.platform), tocCheck_(tocCheck), events_(events) {}

bool BookValuator::run(const BookValuatorArguments& arguments) {
  bool answer = false;
  const bool finished =
      trapped(platform_.ui, source::kBookValuator, [&] { answer = addBook(arguments); });
  if (!finished) {
    module_.progress.unload();
  }
  return finished && answer;
}

bool BookValuator::addBook(const BookValuatorArguments& arguments) {
  begin(arguments);
  if (isAccepted(arguments)) {
    // The books of a workbook are added one by one while it is checked, not here.
    if (arguments.vintType == TocCheck::kExcel) {
      return false;
    }
    if (nameBook(arguments) && placeIsAllowed(arguments)) {
      build(arguments);
    }
  }
  end();
  return true;
}

bool BookValuator::buildValidated(const BookValuatorArguments& arguments) {
  tocPath_ = arguments.vstrtocpath;
  cataloguePath_ = arguments.vstrQuorTOcPath;
  if (!nameBook(arguments) || !placeIsAllowed(arguments)) {
    return false;
  }
  build(arguments);
  return true;
}

void BookValuator::begin(const BookValuatorArguments& arguments) {
  tocPath_ = withBackslashes(arguments.vstrtocpath);
  cataloguePath_ = withBackslashes(arguments.vstrQuorTOcPath);
  bookFolder_.clear();
  workingFolder_.clear();

  module_.progress.setMaximum(kProgressMaximum);
  module_.progress.show();

  ProcessState& state = module_.state;
  state.currentProductName = arguments.vstrProductName;
  state.currentCataloguePath = cataloguePath_;
  state.currentCategoriesPath = arguments.vstrBookCategoryPath;
  state.currentTocPath = tocPath_;
  state.cancelled = false;
  // A run that was given up may have left these.
  state.recordedXmlAcro.clear();
  tocCheck_.forgetBook();
  requireXml();
  module_.bookInfo.setFileNameLabel(tocPath_);
}

// Every stage needs it; where there is none, a run ends before it has written anything.
void BookValuator::requireXml() {
  static_cast<void>(platform_.xml.createDocument());
}

bool BookValuator::isAccepted(const BookValuatorArguments& arguments) {
  setStatus(Message::kTocValidationInProgress);
  ValuatedExcelBooks books(module_, tocCheck_);
  const ExcelRun excelRun{.builder = books,
                          .keywordsPath = arguments.vstrKeywordsPath,
                          .category = arguments.vstrCategory};
  return bCheckForValidInput(module_, tocPath_, arguments.vintType) &&
         tocCheck_.mbValidateTocFile(tocPath_, arguments.vintType, &excelRun);
}

bool BookValuator::nameBook(const BookValuatorArguments& arguments) {
  ProcessState& state = module_.state;
  if (!arguments.vstrBookName.empty()) {
    state.currentBookName = arguments.vstrBookName;
  }
  if (!arguments.vstrBookAcro.empty()) {
    state.currentBookAcro = arguments.vstrBookAcro;
  }
  module_.progress.setValue(kProgressValidated);
  setStatus(Message::kConversionInProgress);
  return mbGetFormInput(module_, cataloguePath_, arguments.vintType);
}

// Asked here as well as by the generator, because a book whose place is refused must not have its
// older book file copied either. Of a book file the validation has seen to it; of a page too,
// before it recorded anything, but what the generator will read is the export.
bool BookValuator::placeIsAllowed(const BookValuatorArguments& arguments) {
  if (arguments.vintType == TocCheck::kXml) {
    return true;
  }
  place_ = readStatedPlace(platform_, tocPath_);
  if (place_.refusal) {
    platform_.ui.show(criticalMessage(*place_.refusal));
  }
  return !place_.refusal;
}

void BookValuator::build(const BookValuatorArguments& arguments) {
  module_.bookInfo.txtBookName().setText("");
  module_.bookInfo.txtBookAcro().setText("");
  module_.progress.show();

  const bool isBookFile = arguments.vintType == TocCheck::kXml;
  if (isBookFile) {
    workingFolder_ = folderPartOf(tocPath_);
    bookFolder_ = tocCheck_.mstrBookFolder();
  } else {
    convert(arguments);
  }

  module_.progress.setValue(kProgressConverted);
  setStatus(Message::kFileCopyingInProgress);
  if (isBookFile) {
    installBookFile(arguments);
  } else {
    copyToLibrary(arguments);
  }

  enterInCatalogue(arguments);
  recordKeywords(arguments);
  recordCategories(arguments);
}

void BookValuator::convert(const BookValuatorArguments& arguments) {
  const ProcessState& state = module_.state;
  workingFolder_ = folderPartOf(tocPath_);
  bookFolder_ = CTOCToXML(module_, place_)
                    .mstrGenerateXMLFromTOC(tocPath_,
                                            cataloguePath_,
                                            state.currentBookName,
                                            state.currentBookAcro,
                                            tocCheck_.mstrBookFile(),
                                            arguments.vstrProductName);
  if (platform_.files.folderExists(workingFolder_ + bookFolder_)) {
    const std::string folderBesideToc = workingFolder_ + bookFolder_;
    ignoringErrors([&] {
      platform_.files.moveFile(workingFolder_ + bookFileName(),
                               folderBesideToc + "\\" + bookFileName());
    });
    workingFolder_ = folderBesideToc;
  }
}

void BookValuator::copyToLibrary(const BookValuatorArguments& arguments) {
  const std::string generated = workingFolder_ + "\\" + bookFileName();
  const auto copy = platform_.toolset.createFileCopy();
  copy->mbCopyFiles(destination(), generated, 0, 0);
  // A table of contents kept inside the library has its book file made where it belongs. The next
  // book of a workbook does not wait for one that is gone.
  const bool isExpected =
      arguments.vintType != TocCheck::kExcel || platform_.files.fileExists(generated);
  if (isExpected && !platform_.files.sameFile(generated, destination() + "\\" + bookFileName())) {
    platform_.files.deleteFile(generated);
  }
  // The catalogue names no book whose documents may be gone after the next failure of the machine.
  copy->flush();
}

void BookValuator::installBookFile(const BookValuatorArguments& arguments) {
  const std::string name = book_names::fileOf(module_.state.acroOfBookFile());
  const std::string folder = destination();
  copyBookFile(
      platform_, {.tocPath = tocPath_, .destination = folder, .catalogue = cataloguePath_}, name);
  stateNewPlace(folder + "\\" + name, arguments.vstrProductName);
  AddLinkIDInfo(platform_, module_.state, arguments.strServerPath, workingFolder_);
}

/// Rewrites the product and the path that the book file states. Raises 91 where it states none.
void BookValuator::stateNewPlace(const std::string& bookFile, const std::string& productName) {
  const auto book = platform_.xml.createDocument();
  if (!book->load(bookFile)) {
    return;
  }
  book->select(book_names::kKeyPath).setText(productName);
  book->select(book_names::kPathPath).setText(productName + "\\" + bookFolder_);
  book->save(bookFile);
}

void BookValuator::enterInCatalogue(const BookValuatorArguments& arguments) {
  mbAddBookTocForBook(
      module_, cataloguePath_, arguments.vstrProductName, bookFolder_, arguments.vstrCategory);
  module_.state.recordedXmlAcro.clear();
  module_.progress.setValue(kProgressEntered);
  setStatus(Message::kAddingBookToCatalogue);

  if (!bookFolder_.empty() && !platform_.files.folderExists(destination())) {
    platform_.files.createFolder(destination());
  }
  setStatus(Message::kTocAdditionComplete);
}

void BookValuator::recordKeywords(const BookValuatorArguments& arguments) {
  if (!arguments.strKeyWords.empty()) {
    AddKeywords(platform_, module_.state, keywordsIn(arguments.strKeyWords), arguments.spath);
  }
}

void BookValuator::recordCategories(const BookValuatorArguments& arguments) {
  if (arguments.strCategory.empty()) {
    return;
  }
  if (arguments.blnChkCateFlag) {
    CreateBookCateXmlFile(platform_,
                          arguments.strServerPath,
                          arguments.vstrBookCategoryPath,
                          arguments.vlngInstallType);
  }
  AddCategoryNodes(platform_, module_.state, chooseCategories(arguments.strCategory).taken);
}

void BookValuator::end() {
  module_.progress.unload();
  if (events_ != nullptr) {
    // A listener may run this driver again, which gives the member another value.
    const std::string usedFolder = bookFolder_;
    events_->evtGetFolderName(usedFolder);
  }
  module_.state.currentBookName.clear();
  module_.state.currentBookAcro.clear();
}

std::string BookValuator::bookFileName() const {
  return book_names::fileOf(module_.state.currentBookAcro);
}

std::string BookValuator::destination() const {
  return libraryFolder() + bookFolder_;
}

std::string BookValuator::libraryFolder() const {
  return std::string(folderPartOf(cataloguePath_));
}

void BookValuator::setStatus(Message message) {
  module_.progress.setStatus(std::string(text(message)));
}

}  // namespace quorbind
