#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "platform/spreadsheets.h"

namespace quorbind {

/// Spreadsheets that open a workbook once and ask for each of its cells once, however often it is
/// opened and read: steps that each open the workbook by its path cost together what one costs. A
/// spreadsheet program takes long to answer for a cell; where the cells lie in memory each is asked
/// for as often as it is wanted.
///
/// Workbooks stay open as long as this lives, or as what it has given out does.
class ReadOnceSpreadsheets final : public Spreadsheets {
 public:
  /// Kept by reference.
  explicit ReadOnceSpreadsheets(Spreadsheets& spreadsheets) : spreadsheets_(spreadsheets) {}

  std::unique_ptr<Workbook> open(std::string_view path) override;

 private:
  Spreadsheets& spreadsheets_;
  /// By the paths that they were opened by.
  std::map<std::string, std::shared_ptr<Workbook>, std::less<>> books_;
};

}  // namespace quorbind
