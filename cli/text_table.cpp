#include "cli/text_table.h"

#include <algorithm>
#include <iostream>

#include "platform/portable/text_cells.h"
#include "platform/portable/visible_text.h"

namespace quorbind {

namespace {

/// A tab would go to a stop of the terminal's, whatever stands in front of it.
std::string visibleCell(const std::string& text) {
  std::string shown = visibleText(text);
  std::replace(shown.begin(), shown.end(), '\t', ' ');
  return shown;
}

std::vector<TableRow> visible(const std::vector<TableRow>& rows) {
  std::vector<TableRow> shown = rows;
  for (TableRow& row : shown) {
    std::transform(row.begin(), row.end(), row.begin(), visibleCell);
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
