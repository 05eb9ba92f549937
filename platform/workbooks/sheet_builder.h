#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/workbooks/cell_formats.h"
#include "platform/workbooks/workbook_texts.h"

namespace quorbind {

/// A cell of a sheet being read: where it stands, counted from 1, and the style that it is shown
/// in.
struct CellPlace {
  std::int32_t row = 0;
  std::int32_t column = 0;
  std::size_t style = 0;
};

/// Turns the values of a workbook's cells, sheet by sheet, into the texts that they display.
class SheetBuilder {
 public:
  /// All are kept by reference but the last.
  SheetBuilder(WorkbookTexts& texts, CellFormats& formats, DateSystem dates)
      : texts_(texts), formats_(formats), dates_(dates) {}

  /// What follows belongs to the sheet at `index`, which is made if there is none.
  void beginSheet(std::size_t index);
  void endSheet();

  // Each throws WorkbookRefusal beyond a limit.

  /// A number that is not finite shows as the error that stands for it.
  void number(const CellPlace& place, double value);
  void boolean(const CellPlace& place, bool value);
  /// The name of an error is shown as it is.
  void error(const CellPlace& place, std::string_view name);
  void text(const CellPlace& place, std::string_view value);
  /// A text that the pool keeps already, since cells share it.
  void text(const CellPlace& place, TextSpan shared);

 private:
  void put(const CellPlace& place, TextSpan span);

  WorkbookTexts& texts_;
  CellFormats& formats_;
  DateSystem dates_;
  std::size_t sheet_ = 0;
  std::uint64_t displayed_ = 0;
};

}  // namespace quorbind
