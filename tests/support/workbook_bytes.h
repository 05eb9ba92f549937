#pragma once

#include <string>
#include <vector>

#include "tests/support/paper_spreadsheets.h"

namespace quorbind::testing {

/// The two kinds of workbook files, by their extensions.
enum class WorkbookKind { kXlsx, kXls };

std::string extensionOf(WorkbookKind kind);

/// What a workbook has beside the texts of its cells.
struct WorkbookTraits {
  bool firstSheetIsHidden = false;
  /// The names of these rows are one cell of the first sheet; 0 for none.
  int firstMergedRow = 0;
  int lastMergedRow = 0;
};

/// The file of a workbook. In its sheets a text that is a whole number becomes a number, `1/1/2021`
/// a date and `#N/A` an error; every other text stays one, of ASCII characters.
std::string workbookBytes(WorkbookKind kind,
                          const std::vector<PaperSheet>& sheets,
                          const WorkbookTraits& traits = {});

}  // namespace quorbind::testing
