#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "resources/messages.h"
#include "toc/book_place.h"
#include "toc/toc_check.h"
#include "workflow/forms/module.h"

namespace quorbind {

/// The outgoing event of `Quor_Book`.
class QuorBookEvents {
 public:
  virtual ~QuorBookEvents() = default;
  /// Raised once at the normal end of each run, with the folder of the book; empty when none was
  /// used.
  virtual void evtGetFolderName(std::string_view sFolderName) = 0;
};

/// The parameters of one addition, by their published names; Quor_Book::Book_Valuator explains
/// them.
struct BookValuatorArguments {
  std::string vstrtocpath;
  std::string vstrQuorTOcPath;
  std::int16_t vintType = 0;
  std::string vstrProductName;
  std::string vstrBookName;
  std::string vstrBookAcro;
  std::string vstrCategory;
  std::string vstrKeywordsPath;
  std::string vstrBookCategoryPath;
  std::string strKeyWords;
  std::string strCategory;
  std::string spath;
  std::int32_t vlngInstallType = 0;
  bool blnChkCateFlag = false;
  std::string strServerPath;
};

/// The driver that adds one book.
///
/// A run goes: input check, validation of the table of contents, name and acronym, conversion,
/// copying, entry in the catalogue, keywords and categories; the progress window is on screen all
/// the time. A check or dialog that says no has told the user and leads to the common end. A stage
/// that reports an error of its own is over, and the run goes on with the next. An error in the
/// run's own steps ends it without the event.
class BookValuator {
 public:
  /// All are kept by reference; without `events` nobody is told.
  BookValuator(Module& module, TocCheck& tocCheck, QuorBookEvents* events);

  /// True when the run came to its common end, false when an error ended it.
  bool run(const BookValuatorArguments& arguments);

  /// What a run does between the validation and the keywords, for a table of contents that was
  /// validated and exported elsewhere. False when the book was given up before anything of it was
  /// made. An error comes out.
  bool buildValidated(const BookValuatorArguments& arguments);

 private:
  bool addBook(const BookValuatorArguments& arguments);
  void begin(const BookValuatorArguments& arguments);
  void requireXml();
  bool isAccepted(const BookValuatorArguments& arguments);
  bool nameBook(const BookValuatorArguments& arguments);
  bool placeIsAllowed(const BookValuatorArguments& arguments);
  void build(const BookValuatorArguments& arguments);
  void convert(const BookValuatorArguments& arguments);
  void copyToLibrary(const BookValuatorArguments& arguments);
  void installBookFile(const BookValuatorArguments& arguments);
  void stateNewPlace(const std::string& bookFile, const std::string& productName);
  void enterInCatalogue(const BookValuatorArguments& arguments);
  void recordKeywords(const BookValuatorArguments& arguments);
  void recordCategories(const BookValuatorArguments& arguments);
  void end();

  [[nodiscard]] std::string bookFileName() const;
  [[nodiscard]] std::string destination() const;
  [[nodiscard]] std::string libraryFolder() const;
  void setStatus(Message message);

  Module& module_;
  const Platform& platform_;
  TocCheck& tocCheck_;
  QuorBookEvents* events_;

  // Of the current run.
  std::string cataloguePath_;
  std::string tocPath_;
  /// Where the table of contents says that the book belongs; a book file is asked elsewhere.
  StatedPlace place_;
  std::string bookFolder_;
  /// Where the book XML file stands before it is copied: the folder of the table of contents, with
  /// its `\`, or the book's folder in it.
  std::string workingFolder_;
};

}  // namespace quorbind
