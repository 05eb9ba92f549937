#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/workbooks/date_display.h"
#include "platform/workbooks/format_code.h"

namespace quorbind {

/// How a cell shows what it holds, as a spreadsheet program set to English would in a column that
/// is wide enough.
class NumberFormat {
 public:
  explicit NumberFormat(std::string_view code) : sections_(parseFormatCode(code)) {}

  /// `value` is finite.
  [[nodiscard]] std::string display(double value, DateSystem dates) const;
  [[nodiscard]] std::string display(std::string_view text) const;
  /// Whether texts are displayed as they are.
  [[nodiscard]] bool leavesTexts() const { return sectionForTexts() == nullptr; }

 private:
  struct Choice {
    const FormatSection* section;  ///< null when no section is for the number
    bool showsSign;
  };

  [[nodiscard]] Choice choose(double value) const;
  [[nodiscard]] Choice chooseByCondition(double value) const;
  [[nodiscard]] const FormatSection* sectionForTexts() const;

  std::vector<FormatSection> sections_;
};

/// The code of the format that every workbook has under `id`; `General` for one without a meaning.
std::string_view builtInFormatCode(int id);

}  // namespace quorbind
