#pragma once

// One addition, as a host runs it: what can be known to fail is found out first, then the component
// is called, then the library is looked at, because the component's answer tells that a run came to
// its end and not that a book was added.

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "cli/arguments.h"
#include "cli/paths.h"
#include "cli/report.h"
#include "cli/temporary_file.h"
#include "cli/toc_file.h"
#include "cli/toc_survey.h"
#include "cli/wiring.h"
#include "cli/workbook_survey.h"
#include "toc/book_place.h"
#include "workflow/driver/book_valuator.h"

namespace quorbind {

class Addition final : private QuorBookEvents {
 public:
  /// All are kept by reference; `wiring` was given `answersOf(arguments)`.
  Addition(const AddArguments& arguments, const LibraryPaths& library, Wiring& wiring);

  /// What the flags answer in the forms.
  static std::vector<PreparedAnswer> answersOf(const AddArguments& arguments);

  /// Runs it once. Every failure is told to the user and in the report.
  AdditionReport run();

 private:
  void evtGetFolderName(std::string_view sFolderName) override;

  [[nodiscard]] ExitStatus addBook();
  void requireUsableLibrary();
  void considerCategories();
  void requireUsableSideFiles();
  void requireUsableSideFile(const std::string& path, std::string_view root);
  [[nodiscard]] bool flagsAreAccepted();
  void requireRecordableLists();
  void requireFolderInLibrary() const;
  void requireNamesThatFit() const;

  /// The file to hand to the component, or how the run ends without that; the user has been told.
  using Ready = std::variant<std::string, ExitStatus>;
  [[nodiscard]] Ready makeReady(const TocFile& toc);
  /// The table itself, or a copy in the form that the generator reads.
  [[nodiscard]] std::string readyText(const TocFile& toc);
  [[nodiscard]] std::string preparedCopyOf(const TocFile& toc);
  [[nodiscard]] Ready readyPage(const TocFile& toc);
  [[nodiscard]] Ready readyBookFile(const TocFile& toc);
  void requireUsableLinks(const TocFile& toc);
  [[nodiscard]] Ready readyWorkbook(const TocFile& toc);
  [[nodiscard]] bool isRefused(const TocFile& toc, std::vector<WorkbookViolation> violations);
  void requireUsableSideFilesOfBooks();
  [[nodiscard]] ExitStatus refuse(const TocRefusal& refusal, ExitStatus status);
  [[nodiscard]] bool askForNames(const TocFile& toc);
  void tellOfUnusedFolder();
  void requireFolder();
  void requireFreeBookFile(const std::string& tocPath,
                           const StatedPlace& place,
                           const std::string& acronym);
  void makeRoomForExport(const TocFile& toc, std::string_view extension);

  [[nodiscard]] bool callComponent(const std::string& tocPath);
  [[nodiscard]] ExitStatus judge(const TocFile& toc, bool finished);
  [[nodiscard]] ExitStatus addBooks(const std::string& workbook);
  [[nodiscard]] std::optional<std::string> lookForBooks();
  [[nodiscard]] std::string countOfBooks() const;
  [[nodiscard]] bool hasArrived(const ListedBook& book, const TocFile& toc);
  [[nodiscard]] ExitStatus judgeWithoutEntry(bool finished);
  [[nodiscard]] bool hadError() const;
  [[nodiscard]] std::string bookFileBeingMade() const;
  bool takeOut(const ListedBook& book, const std::vector<ListedBook>& books);
  void describeBook(const ListedBook& book);
  [[nodiscard]] bool wasWriteErrorShown() const;
  [[nodiscard]] std::string fileOfWriteError(const ListedBook& book) const;
  [[nodiscard]] bool wasPlaceRefused() const;

  /// Runs a step that writes; `what` names the file, also in the note of a failure.
  void writing(const std::string& what, const std::function<void()>& step);

  const AddArguments& arguments_;
  const LibraryPaths& library_;
  Wiring& wiring_;
  AdditionReport report_;
  std::vector<ListedBook> booksBefore_;
  std::int16_t kind_ = 0;
  StatedPlace statedPlace_;
  /// Of a workbook.
  WorkbookSurvey survey_;
  /// The run makes the library's categories file.
  bool createsCategories_ = false;
  std::optional<TemporaryFile> preparedCopy_;
  std::optional<FileToRemove> export_;
};

}  // namespace quorbind
