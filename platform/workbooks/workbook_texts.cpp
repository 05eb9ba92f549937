#include "platform/workbooks/workbook_texts.h"

#include <algorithm>
#include <cstddef>
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
  rows_.clear();
  for (std::size_t at = 0; at < cells_.size(); ++at) {
    if (rows_.empty() || rows_.back().number != cells_[at].row) {
      rows_.push_back({cells_[at].row, at});
    }
  }
}

TextSpan SheetTexts::at(std::int32_t row, std::int32_t column) const {
  const auto found = find(row);
  if (found == rows_.end()) {
    return {};
  }
  const std::size_t end = found + 1 == rows_.end() ? cells_.size() : (found + 1)->begin;
  const auto first = cells_.begin() + static_cast<std::ptrdiff_t>(found->begin);
  const auto behind =
      std::upper_bound(first,
                       cells_.begin() + static_cast<std::ptrdiff_t>(end),
                       column,
                       [](std::int32_t wanted, const Cell& cell) { return wanted < cell.column; });
  return behind != first && (behind - 1)->column == column ? (behind - 1)->text : TextSpan{};
}

std::vector<SheetTexts::Row>::const_iterator SheetTexts::find(std::int32_t row) const {
  if (rows_.empty() || row < rows_.front().number) {
    return rows_.end();
  }
  // Where no row is left out, this is its place.
  const auto place = static_cast<std::size_t>(row - rows_.front().number);
  if (place < rows_.size() && rows_[place].number == row) {
    return rows_.begin() + static_cast<std::ptrdiff_t>(place);
  }
  const auto found = std::lower_bound(
      rows_.begin(), rows_.end(), row, [](const Row& candidate, std::int32_t wanted) {
        return candidate.number < wanted;
      });
  return found != rows_.end() && found->number == row ? found : rows_.end();
}

}  // namespace quorbind
