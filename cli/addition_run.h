#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/arguments.h"
#include "cli/catalogue_reader.h"
#include "cli/line_place.h"
#include "cli/paths.h"
#include "cli/report.h"
#include "cli/toc_file.h"
#include "cli/wiring.h"
#include "cli/workbook_survey.h"
#include "platform/abandoned.h"
#include "toc/book_place.h"

namespace quorbind {

/// What the steps of one addition share.
struct AdditionRun {
  const AddArguments& arguments;
  const LibraryPaths& library;
  Wiring& wiring;
  AdditionReport report = {};
  std::vector<ListedBook> booksBefore = {};
  std::int16_t kind = 0;
  StatedPlace statedPlace = {};
  /// Where a text names the document of its first entry, and with it the folder.
  LinePlace mainFilePlace = {};
  /// Of a workbook.
  WorkbookSurvey survey = {};
  /// The run makes the library's categories file.
  bool createsCategories = false;

  /// Puts the place that is refused into the report, with the line.
  void blame(const TocFile& toc, const LinePlace& place);

  /// Runs a step that writes; `what` names the file, also in the note of a failure.
  void writing(const std::string& what, const std::function<void()>& step);

  /// No book of the library has the name or the acronym in another letter case; with one that does
  /// the run is given up, `otherwise`.
  void requireOwnLetters(const std::string& name,
                         const std::string& acronym,
                         const Abandoned& otherwise);

  /// The side file at `path` loads and has the element that `query` finds, or it is not there; and
  /// it may be written.
  void requireUsableSideFile(const std::string& path, std::string_view query);
};

// For the notes of reports.
inline constexpr std::string_view kNothingAdded = "nothing was added";
inline constexpr std::string_view kNotWritten = " could not be written";
inline constexpr std::string_view kNotRead = " could not be read";
std::string nothingAddedWithout(const std::string& what);

/// Whether the host asks for name and acronym before it calls the driver: link identifiers of a
/// page carry the acronym and are recorded during the validation, in which a book file's own values
/// are held against the catalogue.
bool asksFirst(const AddArguments& arguments);

}  // namespace quorbind
