#include "cli/text_table.h"

#include <algorithm>
#include <iostream>

#include "platform/portable/visible_text.h"

namespace quorbind {

namespace {

std::size_t columnsOf(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](unsigned char byte) { return (byte & 0xC0U) != 0x80U; }));
}

std::vector<TableRow> visible(const std::vector<TableRow>& rows) {
  std::vector<TableRow> shown = rows;
  for (TableRow& row : shown) {
    std::transform(row.begin(), row.end(), row.begin(), visibleText);
  }
  return shown;
}

std::vector<std::size_t> widthsOf(const std::vector<TableRow>& rows) {
  std::vector<std::size_t> widths;
  for (const TableRow& row : rows) {
    widths.resize(row.size());
    for (std::size_t column = 0; column < row.size(); ++column) {
      widths[column] = std::max(widths[column], columnsOf(row[column]));
    }
  }
  return widths;
}

}  // namespace

void printTable(const std::vector<TableRow>& rows) {
  const std::vector<TableRow> shown = visible(rows);
  const std::vector<std::size_t> widths = widthsOf(shown);
  for (const TableRow& row : shown) {
    std::string line;
    for (std::size_t column = 0; column < row.size(); ++column) {
      line.append(row[column]).append(widths[column] - columnsOf(row[column]) + 2, ' ');
    }
    line.resize(line.find_last_not_of(' ') + 1);
    std::cout << line << '\n';
  }
}

}  // namespace quorbind
