#pragma once

// What the subcommands tell on the standard output: text for a reader, or one JSON object for a
// program. docs/command.md describes both.

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "cli/catalogue_reader.h"
#include "cli/cell_place.h"
#include "cli/exit_status.h"
#include "cli/json_text.h"
#include "cli/library_model.h"
#include "cli/line_place.h"
#include "cli/workbook_survey.h"
#include "platform/portable/terminal_user_interface.h"
#include "platform/text_store.h"

namespace quorbind {

/// A book that came into the library.
struct AddedBook {
  ListedBook book;
  /// What stands in the book's folder of the files that belong to the book, and what does not.
  std::vector<std::string> files;
  TextStore missing;
};

/// How an addition ended.
struct AdditionReport {
  ExitStatus status = ExitStatus::kInternal;
  /// The table of contents as the user named it, and what was refused in it: its place and the
  /// whole line.
  std::string toc;
  LinePlace place = {};
  std::optional<std::string> lineText;
  /// Why the status is not 0; empty when it is.
  std::string note;
  /// Whether the book, or every book of a workbook, was added.
  bool added = false;
  std::string library;
  /// The book's folder, as the run told; for a workbook it tells none.
  std::string folder;
  std::vector<AddedBook> books;
  bool isWorkbook = false;
  /// The rules that a workbook breaks.
  std::vector<WorkbookViolation> violations;
};

/// Where a table of contents names a document that is not there.
struct MissingPlace {
  /// 0 where it can't be told.
  std::size_t line = 0;
  /// In a workbook.
  CellPlace cell = {};
};

/// The documents that are not there, in the order in which they are named.
class MissingDocuments {
 public:
  [[nodiscard]] std::size_t size() const { return places_.size(); }
  [[nodiscard]] const MissingPlace& placeOf(std::size_t number) const { return places_[number]; }
  [[nodiscard]] std::string_view fileOf(std::size_t number) const { return files_.at(number); }

  void add(const MissingPlace& place, std::string_view file) {
    files_.add(file);
    places_.push_back(place);
  }

 private:
  std::vector<MissingPlace> places_;
  TextStore files_;
};

/// How a check ended.
struct CheckReport {
  ExitStatus status = ExitStatus::kInternal;
  std::string toc;
  /// What was refused: its place and the whole line.
  LinePlace place = {};
  std::optional<std::string> lineText;
  std::size_t entries = 0;
  MissingDocuments missing;
  /// How many books a workbook has; nothing for another kind.
  std::optional<std::size_t> books;
  /// The rules that a workbook breaks.
  std::vector<WorkbookViolation> violations;
};

/// Why the status is not 0, of a run that had something to write.
inline constexpr const char* kNothingWritten = "nothing was written";

/// How the preparation of a text ended.
struct PreparationReport {
  ExitStatus status = ExitStatus::kInternal;
  std::string toc;
  /// The file to write; empty for the standard output.
  std::string output;
  /// What was refused: its place and the whole line.
  LinePlace place = {};
  std::optional<std::string> lineText;
  std::size_t entries = 0;
};

/// The end of a run that has nothing to report but its failure, as one JSON object. `note` says why
/// the status is not 0, and `blamed` is the line of a file that is the reason.
void printFailure(ExitStatus status,
                  const std::vector<ShownMessage>& messages,
                  const std::string& note,
                  const std::optional<FaultyLine>& blamed = std::nullopt);

/// Tells on the error output of an addition that failed.
void tellAddition(const AdditionReport& report, const std::vector<ShownMessage>& messages);
/// The books that it added, as text.
void printAddedBooks(const AdditionReport& report);
/// The whole report as JSON.
void printAddition(const AdditionReport& report, const std::vector<ShownMessage>& messages);
/// The same as a part of a larger report.
Json toJson(const AdditionReport& report, const std::vector<ShownMessage>& messages);

/// Tells of a failure on the error output as well.
void printCheck(const CheckReport& report, const std::vector<ShownMessage>& messages, bool json);

/// Tells of a failure on the error output as well. Without `json` there is nothing else to tell.
void printPreparation(const PreparationReport& report,
                      const std::vector<ShownMessage>& messages,
                      bool json);

void printBooks(const std::vector<ListedBook>& books, bool json);
/// `isMissing` tells whether a single document is not there.
void printBook(const ListedBook& book,
               bool isMissing,
               const std::vector<LibraryHeading>& headings,
               bool json);

}  // namespace quorbind
