#include "platform/workbooks/workbook_texts.h"

#include <algorithm>
#include <tuple>

#include "platform/workbooks/workbook_refusal.h"

namespace quorbind {

TextSpan TextPool::keep(std::string_view text) {
  if (text.size() > kLongestCellText) {
    throw WorkbookRefusal("A text is longer than a cell can hold.");
  }
  if (buffer_.size() + text.size() > kMostDisplayedText) {
    throw WorkbookRefusal("The workbook holds more text than a workbook may.");
  }
  const TextSpan span{static_cast<std::uint32_t>(buffer_.size()),
                      static_cast<std::uint32_t>(text.size())};
  buffer_ += text;
  return span;
}

void SheetTexts::put(std::int32_t row, std::int32_t column, TextSpan text) {
  if (row < 1 || row > kMostRows || column < 1 || column > kMostColumns) {
    throw WorkbookRefusal("A cell stands outside of its sheet.");
  }
  cells_.push_back({row, column, text});
}

void SheetTexts::finish() {
  const auto isBefore = [](const Cell& left, const Cell& right) {
    return std::tie(left.row, left.column) < std::tie(right.row, right.column);
  };
  if (!std::is_sorted(cells_.begin(), cells_.end(), isBefore)) {
    std::stable_sort(cells_.begin(), cells_.end(), isBefore);
  }
}

TextSpan SheetTexts::at(std::int32_t row, std::int32_t column) const {
  const auto behind = std::upper_bound(
      cells_.begin(), cells_.end(), std::tie(row, column), [](const auto& place, const Cell& cell) {
        return place < std::tie(cell.row, cell.column);
      });
  if (behind == cells_.begin()) {
    return {};
  }
  const Cell& cell = *(behind - 1);
  return cell.row == row && cell.column == column ? cell.text : TextSpan{};
}

}  // namespace quorbind
