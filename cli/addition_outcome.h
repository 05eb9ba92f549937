#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/addition_run.h"
#include "cli/catalogue_reader.h"
#include "cli/toc_file.h"

namespace quorbind {

/// How an addition went. The component's answer tells that a run came to its end and not that a
/// book was added, so the library is looked at.
class AdditionOutcome {
 public:
  /// Kept by reference.
  explicit AdditionOutcome(AdditionRun& run) : run_(run) {}

  /// Fills in the report of one book. `finished` is what the component answered.
  [[nodiscard]] ExitStatus judge(const TocFile& toc, bool finished);
  /// Has the component called for a workbook, and fills in the report of its books, also when the
  /// call is abandoned among them.
  [[nodiscard]] ExitStatus judgeBooks(const std::function<bool()>& call);

 private:
  [[nodiscard]] bool hasArrived(const ListedBook& book, const TocFile& toc);
  [[nodiscard]] std::optional<std::string> lookForBooks();
  [[nodiscard]] std::string countOfBooks() const;
  [[nodiscard]] ExitStatus judgeWithoutEntry(const TocFile& toc, bool finished);
  /// A file that the run was to write or to read and could not.
  struct FileFailure {
    std::string file;
    std::string_view what;
    ExitStatus status = ExitStatus::kWriteFailed;
  };
  /// `fileToWrite` is the one that a failed write was about.
  [[nodiscard]] std::optional<FileFailure> failure(const std::string& fileToWrite) const;
  /// Of a run that neither added anything nor failed to read or to write a file.
  [[nodiscard]] ExitStatus statusOfRefusal(bool finished) const;
  [[nodiscard]] std::string bookFileBeingMade() const;
  bool takeOut(const ListedBook& book, const std::vector<ListedBook>& books);
  void describeBook(const ListedBook& book);
  [[nodiscard]] BookDocuments documentsOf(const ListedBook& book);
  [[nodiscard]] bool wasWriteErrorShown() const;
  [[nodiscard]] std::string fileOfWriteError(const ListedBook& book) const;
  [[nodiscard]] bool wasPlaceRefused() const;

  AdditionRun& run_;
};

}  // namespace quorbind
