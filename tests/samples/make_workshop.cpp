// Makes the sample workbook of three books: `make_workshop OUT.xlsx`. The same run gives the same
// bytes, whatever the day.

#include <xlsxwriter.h>

#include <iostream>

#include "tests/samples/workshop_books.h"

namespace {

using quorbind::testing::SampleSheet;

/// Levels are numbers, as authors have them.
bool isNumber(const std::string& text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

void write(lxw_worksheet* sheet, const SampleSheet& rows, lxw_format* header) {
  for (std::size_t row = 0; row < rows.size(); ++row) {
    for (std::size_t column = 0; column < rows[row].size(); ++column) {
      const std::string& text = rows[row][column];
      const auto at = static_cast<lxw_row_t>(row);
      const auto in = static_cast<lxw_col_t>(column);
      if (isNumber(text)) {
        worksheet_write_number(sheet, at, in, std::stod(text), nullptr);
      } else if (!text.empty()) {
        worksheet_write_string(sheet, at, in, text.c_str(), row == 0 ? header : nullptr);
      }
    }
  }
}

void setWidths(lxw_worksheet* sheet, const std::vector<double>& widths) {
  for (std::size_t column = 0; column < widths.size(); ++column) {
    const auto in = static_cast<lxw_col_t>(column);
    worksheet_set_column(sheet, in, in, widths[column], nullptr);
  }
}

bool make(const char* path) {
  // A moment that never changes: 2026-01-01 in UTC.
  constexpr time_t kMade = 1767225600;
  lxw_workbook* const book = workbook_new(path);
  lxw_doc_properties properties{};
  properties.created = kMade;
  workbook_set_properties(book, &properties);
  lxw_format* const header = workbook_add_format(book);
  format_set_bold(header);

  lxw_worksheet* const toc = workbook_add_worksheet(book, "Headings");
  write(toc, quorbind::testing::workshopToc(), header);
  setWidths(toc, {11, 2, 30, 2, 24, 2, 12, 12});
  lxw_worksheet* const list = workbook_add_worksheet(book, "Books");
  write(list, quorbind::testing::workshopBookList(), header);
  setWidths(list, {20, 11, 24, 24});
  return workbook_close(book) == LXW_NO_ERROR;
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2 || !make(arguments[1])) {
    std::cerr << "usage: make_workshop OUT.xlsx\n";
    return 1;
  }
  return 0;
}
