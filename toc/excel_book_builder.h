#pragma once

#include <cstdint>
#include <string>

namespace quorbind {

/// Builds the books of a workbook, one by one, while it is checked.
class ExcelBookBuilder {
 public:
  virtual ~ExcelBookBuilder() = default;

  /// Names, converts, copies and enters one book; its name and acronym are the current ones of the
  /// process, and asked for where they are empty. `tocPath` is its export in the intermediate text
  /// form, `category` the list for its entry in the catalogue. Errors are told. False when the book
  /// was given up before anything of it was made.
  virtual bool BuildExcelBook(const std::string& tocPath,
                              const std::string& cataloguePath,
                              std::int16_t vintType,
                              const std::string& productName,
                              const std::string& category) = 0;
};

/// What a run does with the books of a workbook.
struct ExcelRun {
  ExcelBookBuilder& builder;
  /// The library's keywords file.
  std::string keywordsPath;
  /// The categories of the catalogue's entries, for books that state none.
  std::string category;
};

}  // namespace quorbind
