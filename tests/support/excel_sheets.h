#pragma once

#include <string>
#include <utility>
#include <vector>

#include "tests/support/paper_spreadsheets.h"

namespace quorbind::testing {

/// A row of a sheet of headings.
struct HeadingRow {
  std::string level;
  std::string name;
  std::string file = {};
  std::string subLink = {};
  std::string bookLink = {};
};

/// A sheet of headings with its header.
inline PaperSheet headingSheet(const std::vector<HeadingRow>& rows) {
  PaperSheet sheet{{"Node Level", "", "Node Name", "", "File Name", "", "Sub Link"}, {}};
  for (const HeadingRow& row : rows) {
    sheet.push_back({row.level, "", row.name, "", row.file, "", row.subLink, row.bookLink});
  }
  return sheet;
}

/// A row of a list of books: name, acronym, keywords, categories.
using BookRow = std::vector<std::string>;

/// A list of books with its header.
inline PaperSheet bookSheet(const std::vector<BookRow>& rows) {
  PaperSheet sheet{{"Book Name", "Book Acro", "Keywords", "Categories"}, {}};
  sheet.insert(sheet.end(), rows.begin(), rows.end());
  return sheet;
}

}  // namespace quorbind::testing
