#include "toc/excel_toc.h"

#include <limits>

#include "platform/error_trap.h"
#include "platform/number.h"
#include "platform/text.h"

namespace quorbind {

namespace {

bool isBlank(std::string_view text) {
  return trimBlanks(text).empty();
}

ExcelTocViolation noLevelAt(std::int32_t row, std::int32_t column, const std::string& text) {
  return {.row = row,
          .column = column,
          .violation = {(Message::kRow + std::to_string(row)) +
                        (Message::kColumn + std::to_string(column)) + "\r" +
                        Message::kNodeLevelNotInteger},
          .cellText = text};
}

}  // namespace

bool hasExcelHeader(Worksheet& sheet, const Locale& locale, const ExcelColumn& column) {
  return locale.upperCase(sheet.cellText(excel_toc::kHeaderRow, column.number)) == column.header;
}

std::optional<ExcelTocViolation> readExcelLevel(std::int32_t row,
                                                std::int32_t column,
                                                const std::string& cellText,
                                                std::int16_t& level) {
  if (ignoringErrors([&] { level = toInteger16(cellText); }) != 0) {
    return noLevelAt(row, column, cellText);
  }
  return std::nullopt;
}

ExcelBookCount countExcelBooks(Worksheet& sheet, std::int32_t column) {
  ExcelBookCount count;
  for (std::int32_t row = excel_toc::kFirstRow;; ++row) {
    const std::string text = sheet.cellText(row, column);
    if (isBlank(text)) {
      return count;
    }
    std::int16_t level = 0;
    count.violation = readExcelLevel(row, column, text, level);
    if (count.violation) {
      return count;
    }
    count.books += level == 1 ? 1 : 0;
  }
}

std::int16_t ExcelRowMark::next() const {
  return row_ == excel_toc::kFirstRow ? row_ : rowBelow(row_);
}

std::int16_t rowBelow(std::int16_t row) {
  if (row == std::numeric_limits<std::int16_t>::max()) {
    raise(ErrorNumber::kOverflow);
  }
  return static_cast<std::int16_t>(row + 1);
}

std::optional<ExcelTocViolation> readExcelLevels(Worksheet& sheet,
                                                 std::int32_t column,
                                                 ExcelRowMark& mark,
                                                 std::int16_t& previousLevel) {
  bool hasBegun = false;
  for (std::int16_t row = mark.next();; row = rowBelow(row)) {
    const std::string text = sheet.cellText(row, column);
    if (isBlank(text)) {
      mark.endAbove(row);
      return std::nullopt;
    }
    std::int16_t level = 0;
    if (auto violation = readExcelLevel(row, column, text, level)) {
      return violation;
    }
    previousLevel = level;
    if (level == 1 && hasBegun) {
      mark.endAbove(row);
      return std::nullopt;
    }
    hasBegun = hasBegun || level == 1;
  }
}

void readExcelColumn(Worksheet& sheet,
                     std::int32_t column,
                     std::int16_t lastRow,
                     ExcelRowMark& mark,
                     const ExcelCellVisitor& visitor) {
  std::int16_t row = mark.next();
  for (; row <= lastRow; row = rowBelow(row)) {
    const std::string text = sheet.cellText(row, column);
    visitor(row, text);
    if (isBlank(text)) {
      break;
    }
  }
  mark.endAbove(row);
}

bool walkExcelToc(Worksheet& sheet,
                  const Locale& locale,
                  std::int32_t books,
                  ExcelTocListener& listener) {
  const auto hasHeader = [&](const ExcelColumn& column) {
    const bool isThere = hasExcelHeader(sheet, locale, column);
    if (!isThere) {
      listener.refused(column.refusal);
    }
    return isThere;
  };
  for (std::int32_t number = 1; number <= books; ++number) {
    const bool isRead = hasHeader(excel_toc::kLevels) && listener.levels() &&
                        hasHeader(excel_toc::kNames) && listener.names() &&
                        hasHeader(excel_toc::kFiles) && listener.files();
    if (!isRead) {
      return false;
    }
    listener.book(number);
  }
  return true;
}

std::vector<std::string> excelListOf(std::string_view text) {
  constexpr std::string_view kSeparator = ";";
  constexpr std::string_view kOtherSeparator = ",";
  std::vector<std::string> list;
  for (const std::string_view piece :
       Pieces(text, contains(text, kSeparator) ? kSeparator : kOtherSeparator)) {
    list.emplace_back(piece);
  }
  return list;
}

}  // namespace quorbind
