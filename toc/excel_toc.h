#pragma once

// The rules of a workbook as a table of contents, without any effect. Its first sheet lists the
// headings of one or more books, one behind the other: level, name, document, bookmark and link
// identifier each in a column of its own. Its second sheet lists the books.

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/locale.h"
#include "platform/spreadsheets.h"
#include "resources/messages.h"
#include "toc/toc_violation.h"

namespace quorbind {

namespace excel_toc {

// The sheets, counted from 1.
inline constexpr std::int32_t kHeadingSheet = 1;
inline constexpr std::int32_t kBookSheet = 2;

// The columns of the sheet of headings.
inline constexpr std::int32_t kLevelColumn = 1;
inline constexpr std::int32_t kNameColumn = 3;
inline constexpr std::int32_t kFileColumn = 5;
/// The last column of those that are exported.
inline constexpr std::int32_t kLastExportedColumn = 6;
inline constexpr std::int32_t kSubLinkColumn = 7;
inline constexpr std::int32_t kBookLinkColumn = 8;

// The columns of the list of books.
inline constexpr std::int32_t kBookNameColumn = 1;
inline constexpr std::int32_t kBookAcroColumn = 2;
inline constexpr std::int32_t kKeywordsColumn = 3;
inline constexpr std::int32_t kCategoriesColumn = 4;

inline constexpr std::int16_t kHeaderRow = 1;
/// Of both sheets.
inline constexpr std::int16_t kFirstRow = 3;

/// The row of the list that describes the book with that number, counted from 1.
constexpr std::int32_t bookRow(std::int32_t book) {
  return book + kFirstRow - 1;
}

/// The extension of a workbook in an upper-cased path.
inline constexpr std::string_view kExtension = ".XLS";

}  // namespace excel_toc

/// A column of the sheet of headings that has to have a header.
struct ExcelColumn {
  std::int32_t number;
  /// In upper case, as it is compared.
  std::string_view header;
  Message refusal;
};

namespace excel_toc {

inline constexpr ExcelColumn kLevels{kLevelColumn, "NODE LEVEL", Message::kNodeLevelNotFound};
inline constexpr ExcelColumn kNames{kNameColumn, "NODE NAME", Message::kNodeNameNotFound};
inline constexpr ExcelColumn kFiles{kFileColumn, "FILE NAME", Message::kFileNameNotFound};
inline constexpr std::array kColumnsWithHeaders{kLevels, kNames, kFiles};

}  // namespace excel_toc

/// Whether a column has its header, in any letter case.
bool hasExcelHeader(Worksheet& sheet, const Locale& locale, const ExcelColumn& column);

/// A cell that breaks a rule.
struct ExcelTocViolation {
  std::int32_t row = 0;
  std::int32_t column = 0;
  TocViolation violation;
  /// What is offered on the clipboard.
  std::string cellText;
};

/// Reads the level that stands in a cell, a 16-bit integer. Answers why it is none.
std::optional<ExcelTocViolation> readExcelLevel(std::int32_t row,
                                                std::int32_t column,
                                                const std::string& cellText,
                                                std::int16_t& level);

/// How many books a sheet has, and why the count ended before the column did, if it did.
struct ExcelBookCount {
  std::int32_t books = 0;
  std::optional<ExcelTocViolation> violation;
};

/// Counts the levels 1 in a column, from the first row to the first blank cell or the first that is
/// no level.
ExcelBookCount countExcelBooks(Worksheet& sheet, std::int32_t column);

/// The row that reading a column has come to, for as long as its book object lives. Rows have 16
/// bits: the row behind 32,767 raises 6.
///
/// Reading goes on behind that row, but begins at the first row as long as that is where it stands.
/// So a first book of a single row is read again in the place of the second.
class ExcelRowMark {
 public:
  [[nodiscard]] std::int16_t row() const { return row_; }
  [[nodiscard]] std::int16_t next() const;
  void setRow(std::int16_t row) { row_ = row; }
  /// The last row read is the one above `row`.
  void endAbove(std::int16_t row) { row_ = static_cast<std::int16_t>(row - 1); }

 private:
  std::int16_t row_ = excel_toc::kFirstRow;
};

/// The row below `row`. Raises 6.
std::int16_t rowBelow(std::int16_t row);

/// Reads down the levels of one book, to the row above the next level 1 or the first blank cell.
/// Every level read goes to `previousLevel`. Answers the first cell that is no level; the mark then
/// stays where it was.
std::optional<ExcelTocViolation> readExcelLevels(Worksheet& sheet,
                                                 std::int32_t column,
                                                 ExcelRowMark& mark,
                                                 std::int16_t& previousLevel);

/// Told of a cell with its row.
using ExcelCellVisitor = std::function<void(std::int16_t row, const std::string& text)>;

/// Reads down another column of the same book, to its last row or the first blank cell, which the
/// visitor is told of too.
void readExcelColumn(Worksheet& sheet,
                     std::int32_t column,
                     std::int16_t lastRow,
                     ExcelRowMark& mark,
                     const ExcelCellVisitor& visitor);

/// Does what a walk through a workbook finds to do.
class ExcelTocListener {
 public:
  virtual ~ExcelTocListener() = default;
  // Read the column of the next book. False ends the walk.
  virtual bool levels() = 0;
  virtual bool names() = 0;
  virtual bool files() = 0;
  /// The columns of a book were read.
  virtual void book(std::int32_t number) = 0;
  /// A column has no header; the walk ends with it.
  virtual void refused(Message message) = 0;
};

/// Walks through the sheet of headings book by book. Answers whether it came to its end.
bool walkExcelToc(Worksheet& sheet,
                  const Locale& locale,
                  std::int32_t books,
                  ExcelTocListener& listener);

/// What is read between separators: `;` where the text holds one, else `,`. An empty text has no
/// pieces.
std::vector<std::string> excelListOf(std::string_view text);

}  // namespace quorbind
