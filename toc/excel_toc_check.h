#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/spreadsheets.h"
#include "toc/excel_book_builder.h"
#include "toc/excel_toc.h"
#include "workflow/forms/module.h"

namespace quorbind {

class TocCheck;

/// What the list of books of a workbook tells of one.
struct ExcelBookInfo {
  /// As it is stored; empty when the list has none or one that may not be used.
  std::string bookName;
  std::string bookAcro;
  /// Lists, as they stand in their cells.
  std::string keywords;
  std::string categories;
};

/// The check of workbooks: what the rules of toc/excel_toc.h find, and what becomes of it.
///
/// A workbook is checked book by book, and each book that passes is exported, built, and given its
/// keywords and categories before the next one is looked at. The rows that the columns have been
/// read to stay with the object, from book to book and from workbook to workbook: a host makes a
/// new one for each workbook.
class ExcelTocCheck {
 public:
  /// Both are kept by reference; what all checks remember stays with `check`.
  ExcelTocCheck(Module& module, TocCheck& check);

  /// Checks the workbook at `tocPath` and does with its books what `run` says; without one they are
  /// checked and exported, and nothing is made of them. False when the walk through it ended early;
  /// books before that stay added.
  bool mbValidateXLToc(std::string_view tocPath, std::int16_t vintType, const ExcelRun* run);

  // The columns of the next book, each to the row that its mark then stands on. Only a level can be
  // refused.

  bool mbcheckXLForNodeLevel(Worksheet& sheet, std::int32_t column);
  /// The name in the first row is kept as the process-wide name of the book being read.
  bool mbcheckXLForNodeName(Worksheet& sheet, std::int32_t column);
  /// The document in the first row is kept as the book's main file. Documents that are not there,
  /// looked up from `folder` (with its `\`), are noted as missing.
  bool mbcheckXLForFileName(Worksheet& sheet, std::int32_t column, std::string_view folder);

  /// Writes the rows of the book that was checked last to a "Unicode text" file in the intermediate
  /// text form, and changes `tocPath` to its name: the upper-cased path with every `.XLS` as
  /// `_Temp.txt`.
  bool mXLExportToText(std::string& tocPath);

  /// The number of books on a sheet whose levels stand in `vlCount`. A cell that is no level is
  /// told, and ends the count.
  std::int32_t getExcelBookCount(Worksheet& vobjXLWSheetRead, std::int32_t vlCount);

  /// What the list of books tells of the book with that number. The user is told when the workbook
  /// can't be opened; without a list, or with an error, the answer is empty.
  ExcelBookInfo GetBookInfofromExcel(std::string_view tocPath, std::int32_t book);

  // The rows that the columns have been read to.
  [[nodiscard]] std::int16_t nodeLevelRow() const { return levels_.row(); }
  [[nodiscard]] std::int16_t nodeNameRow() const { return names_.row(); }
  [[nodiscard]] std::int16_t fileNameRow() const { return files_.row(); }

 private:
  class Walk;

  bool walkBooks(Worksheet& sheet, const std::string& workbook, const ExcelRun* run);
  void takeBook(const std::string& workbook, std::int32_t number, const ExcelRun* run);
  [[nodiscard]] bool columnsEndTogether() const;
  [[nodiscard]] bool namesAreAllowed(const ExcelBookInfo& book);
  void takeNames(const ExcelBookInfo& book);
  void writeRows(Worksheet& sheet, const std::string& exportPath);
  void buildBook(const std::string& exportPath, const ExcelBookInfo& book, const ExcelRun& run);
  void recordKeywords(const std::string& list, const std::string& keywordsPath);
  void recordCategories(const std::string& list);

  Module& module_;
  const Platform& platform_;
  TocCheck& check_;
  /// What workbooks are read through: the platform's own, and for the length of a check one that
  /// reads each workbook once.
  Spreadsheets* spreadsheets_;

  ExcelRowMark levels_;
  ExcelRowMark names_;
  ExcelRowMark files_;
  ExcelRowMark exported_;
};

}  // namespace quorbind
