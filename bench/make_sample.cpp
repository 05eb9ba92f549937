// Writes what a whole run of the command begins with.
//
//   quorbind_bench_sample text|html|xlsx|xls|export|small-books|small-export SIZE FILE
//   quorbind_bench_sample catalogue|keywords|links|categories SIZE FILE
//   quorbind_bench_sample documents SIZE FOLDER
//
// An export is that of the first book of a workbook, whatever the size. Small books are those of a
// workbook in XML, and the size is their number. Of a library's files, the keywords are those of
// its first book, and each of the categories has as many books. The documents of a text's headings
// come into a folder that is there; that of its first entry, which is the book itself, is never
// copied and left out.

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

std::string workbookOf(testing::WorkbookKind kind,
                       std::size_t rows,
                       std::size_t rowsOfABook = kRowsOfABook) {
  return testing::workbookBytes(kind,
                                {testing::headingSheet(headingRows(rows, rowsOfABook)),
                                 testing::bookSheet(bookRows(rows, rowsOfABook))});
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
    out << workbookExport(kRowsOfABook);
  } else if (kind == "small-books") {
    out << workbookOf(testing::WorkbookKind::kXlsx, size * kRowsOfASmallBook, kRowsOfASmallBook);
  } else if (kind == "small-export") {
    out << workbookExport(kRowsOfASmallBook);
  } else if (kind == "catalogue") {
    out << catalogueOf(size, kCategoriesOfBook, "");
  } else if (kind == "keywords") {
    out << keywordsFileOf(size);
  } else if (kind == "links") {
    out << linksFileOf(size);
  } else if (kind == "categories") {
    out << categoriesFileOf(kCategoryCount, size);
  } else {
    return false;
  }
  return true;
}

bool writeFile(const std::string& path, const std::string& content) {
  std::ofstream file(path, std::ios::binary);
  return static_cast<bool>((file << content).flush());
}

bool writeDocuments(std::size_t entries, const std::string& folder) {
  const std::string page = pageContent();
  bool isWritten = true;
  for (std::size_t index = 1; index < entries && isWritten; ++index) {
    isWritten = writeFile(folder + "/" + documentOf(index), page);
  }
  for (const char* file : kFilesOfPages) {
    isWritten = isWritten && writeFile(folder + "/" + file, page);
  }
  return isWritten;
}

bool make(std::string_view kind, std::size_t size, const std::string& place) {
  if (kind == "documents") {
    return writeDocuments(size, place);
  }
  std::ofstream file(place, std::ios::binary);
  return write(kind, size, file) && file.flush();
}

}  // namespace

}  // namespace quorbind::bench

int main(int argc, char** argv) {
  const std::size_t size = argc == 4 ? std::strtoul(argv[2], nullptr, 10) : 0;
  if (size == 0) {
    std::cerr << "usage: quorbind_bench_sample text|html|xlsx|xls|export|small-books|small-export|"
                 "catalogue|keywords|links|categories|documents SIZE PLACE\n";
    return 2;
  }
  return quorbind::bench::make(argv[1], size, argv[3]) ? 0 : 1;
}
