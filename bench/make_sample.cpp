// Writes what a whole run of the command begins with.
//
//   quorbind_bench_sample text|html|xlsx|xls|export|catalogue SIZE FILE
//
// An export is that of the first book of a workbook, whatever the size.

#include <cstddef>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>

#include "bench/library.h"
#include "bench/toc_texts.h"
#include "tests/support/workbook_bytes.h"

namespace quorbind::bench {

namespace {

std::string workbookOf(testing::WorkbookKind kind, std::size_t rows) {
  return testing::workbookBytes(
      kind, {testing::headingSheet(headingRows(rows)), testing::bookSheet(bookRows(rows))});
}

/// False when there is no such kind.
bool write(std::string_view kind, std::size_t size, std::ostream& out) {
  if (kind == "text") {
    writeTextToc(out, size);
  } else if (kind == "html") {
    writePage(out, size);
  } else if (kind == "xlsx") {
    out << workbookOf(testing::WorkbookKind::kXlsx, size);
  } else if (kind == "xls") {
    out << workbookOf(testing::WorkbookKind::kXls, size);
  } else if (kind == "export") {
    out << workbookExport();
  } else if (kind == "catalogue") {
    out << catalogueOf(size, kCategoriesOfBook, "");
  } else {
    return false;
  }
  return true;
}

}  // namespace

}  // namespace quorbind::bench

int main(int argc, char** argv) {
  const std::size_t size = argc == 4 ? std::strtoul(argv[2], nullptr, 10) : 0;
  if (size == 0) {
    std::cerr << "usage: quorbind_bench_sample text|html|xlsx|xls|export|catalogue SIZE FILE\n";
    return 2;
  }
  std::ofstream file(argv[3], std::ios::binary);
  return quorbind::bench::write(argv[1], size, file) && file.flush() ? 0 : 1;
}
