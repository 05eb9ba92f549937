#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "cli/addition_run.h"
#include "cli/book_file_survey.h"
#include "cli/temporary_file.h"
#include "cli/toc_file.h"
#include "cli/toc_survey.h"
#include "cli/workbook_survey.h"
#include "toc/book_place.h"

namespace quorbind {

/// What an addition hands to the component, made of the table of contents that the user named. All
/// that the component would refuse, or not be asked about in time, is found out here.
class AdditionInput {
 public:
  /// Kept by reference.
  explicit AdditionInput(AdditionRun& run) : run_(run) {}

  /// The file to hand over, or how the run ends without that; the user has been told.
  using Ready = std::variant<std::string, ExitStatus>;
  /// Whatever is made for the component on the way is gone when this is.
  [[nodiscard]] Ready makeReady(const TocFile& toc);

 private:
  /// The table itself, or a copy in the form that the generator reads.
  [[nodiscard]] Ready readyText(const TocFile& toc);
  [[nodiscard]] std::string preparedCopyOf(const TocFile& toc);
  [[nodiscard]] Ready readyPage(const TocFile& toc);
  [[nodiscard]] Ready readyBookFile(const TocFile& toc);
  void requireUsableLinks(const TocFile& toc);
  void requireOwnBookFile(const BookFileSurvey& survey);
  [[nodiscard]] Ready readyWorkbook(const TocFile& toc);
  [[nodiscard]] bool isRefused(const TocFile& toc, std::vector<WorkbookViolation> violations);
  void requireUsableSideFilesOfBooks();
  [[nodiscard]] ExitStatus refuse(const TocFile& toc, const TocRefusal& refusal, ExitStatus status);
  [[nodiscard]] bool askForNames(const TocFile& toc);
  void tellOfUnusedFolder();
  void requireFolder();
  void requireFreeBookFile(const std::string& tocPath,
                           const StatedPlace& place,
                           const std::string& acronym);
  void makeRoomForExport(const TocFile& toc, std::string_view extension);

  AdditionRun& run_;
  std::optional<TemporaryFile> preparedCopy_;
  std::optional<FileToRemove> export_;
};

}  // namespace quorbind
