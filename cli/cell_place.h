#pragma once

#include <cstdint>
#include <string>

namespace quorbind {

/// A place in a workbook. Sheets, rows and columns are counted from 1; what is 0 is not to blame,
/// and neither is what follows it.
struct CellPlace {
  std::int32_t sheet = 0;
  std::int32_t row = 0;
  std::int32_t column = 0;
};

/// `FILE: sheet 1, row 5, column 3`, as far as the place is known.
std::string placeIn(const std::string& file, const CellPlace& cell);

/// The cell as spreadsheet programs call it: `C5`. Of a place with a row and a column.
std::string cellName(const CellPlace& cell);

}  // namespace quorbind
