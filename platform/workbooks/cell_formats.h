#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "platform/workbooks/number_format.h"

namespace quorbind {

/// The number formats that a workbook's cells are shown in. A cell names a style, a style the id of
/// a format, and an id either one of the workbook's own or one that every workbook has.
class CellFormats {
 public:
  /// Gives `id` the format with that code.
  void define(int id, std::string code);
  /// Adds the next style.
  void addStyle(int formatId) { styles_.push_back(formatId); }

  /// The format of a style; `General` for a style that was never added. To be asked when all are
  /// defined.
  [[nodiscard]] const NumberFormat& ofStyle(std::size_t style);

 private:
  std::map<int, std::string> codes_;
  std::vector<int> styles_;
  /// Those asked for, by their ids.
  std::map<int, NumberFormat> formats_;
};

}  // namespace quorbind
