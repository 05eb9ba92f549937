#pragma once

// Workbooks as tables of contents need them: sheets by their number, cells as the text that their
// program would display.

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace quorbind {

/// One sheet of cells. It may be one of a workbook opened by `Spreadsheets`, or one that a host
/// handed in and an adapter wrapped; nobody but that adapter can tell.
class Worksheet {
 public:
  virtual ~Worksheet() = default;

  /// What the cell displays: a number in its format, a date as a date, the value that a formula had
  /// when the workbook was saved, the name of an error (`#N/A`). Empty for a cell that displays
  /// nothing; of merged cells that is all but the first. Rows and columns are counted from 1. A
  /// spreadsheet program that fails to answer raises its own error.
  virtual std::string cellText(std::int32_t row, std::int32_t column) = 0;

  /// Whether an answer costs no more than it would to keep it.
  [[nodiscard]] virtual bool isInMemory() const { return false; }
};

/// An open workbook. It is closed, and everything that was started for it ended, when it and its
/// sheets are gone.
class Workbook {
 public:
  virtual ~Workbook() = default;

  /// The sheet of cells with that number, counted from 1 in the order of the tabs; hidden sheets
  /// count, charts do not. Raises 9 when there are fewer. A sheet may outlive its workbook.
  virtual std::unique_ptr<Worksheet> worksheet(std::int32_t number) = 0;
};

/// The platform's spreadsheets. Opening one only reads: no file is changed, none is written.
class Spreadsheets {
 public:
  virtual ~Spreadsheets() = default;

  /// Opens the workbook at `path`, a name as the file-system port has them. Raises 432 when there
  /// is no file, or none that can be read as a workbook.
  virtual std::unique_ptr<Workbook> open(std::string_view path) = 0;
};

}  // namespace quorbind
