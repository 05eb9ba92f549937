#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/cell_place.h"
#include "cli/exit_status.h"
#include "cli/toc_file.h"
#include "platform/platform.h"
#include "platform/user_interface.h"
#include "toc/book_place.h"

namespace quorbind {

/// A rule that a workbook breaks.
struct WorkbookViolation {
  CellPlace cell;
  UserMessage box;
  /// What is offered on the clipboard, where something is.
  std::optional<std::string> clipboard = std::nullopt;
  /// What stands in the cell, as far as it helps to find it; empty for one that holds nothing.
  std::string cellText = {};
};

/// One book of a workbook.
struct SurveyedBook {
  /// Both as the catalogue will have them. The name is that of the first row where the list of
  /// books has none; the acronym is empty then.
  std::string name;
  std::string acronym;
  /// Both as they stand in the cells that give them; empty where no cell does.
  std::string nameText;
  std::string acronymText;
  std::vector<std::string> keywords;
  std::vector<std::string> categories;
  /// Where its first row says that it belongs.
  StatedPlace place;
  /// Its rows on the sheet of headings.
  std::int32_t firstRow = 0;
  std::int32_t lastRow = 0;
};

/// What a workbook as a table of contents looks like before the component is asked to take it.
struct WorkbookSurvey {
  /// In the order of the sheets and their rows; the first hundred.
  std::vector<WorkbookViolation> violations;
  /// What they mean for the shell.
  ExitStatus status = ExitStatus::kDone;
  std::vector<SurveyedBook> books;
  std::size_t entries = 0;
  /// Whether it has link identifiers to be recorded.
  bool hasLinkIdentifiers = false;
};

/// Told of every document that a row names, with the folder that its book is to have.
using CellVisitor =
    std::function<void(const CellPlace& cell, std::string_view folder, std::string_view document)>;

/// Holds every sheet against the rules without telling anybody: those that the component has, and
/// those whose breach the component would pass over or tell too late, when books are in the library
/// already. A file that can't be read is a CommandFailure.
WorkbookSurvey surveyWorkbook(const Platform& platform,
                              const TocFile& toc,
                              const CellVisitor& visitor = {});

}  // namespace quorbind
