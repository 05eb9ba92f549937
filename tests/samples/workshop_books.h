#pragma once

#include <string>
#include <vector>

namespace quorbind::testing {

/// A sheet of the sample workbook, row by row; an empty text is an empty cell.
using SampleSheet = std::vector<std::vector<std::string>>;

/// What the sample workbook of three books displays: its table of contents, and its list of books.
SampleSheet workshopToc();
SampleSheet workshopBookList();

}  // namespace quorbind::testing
