// The floors under workbooks. That of reading a packed one is its sheet unpacked and parsed, that
// of a binary one its cells put one behind the other; a check has to look every document up as
// well, and to replace a file for each book.

#include <array>
#include <string>
#include <vector>

#include "bench/benchmarks.h"
#include "bench/floor.h"
#include "bench/store.h"
#include "bench/workbook_floor.h"

namespace quorbind::bench {

namespace {

using testing::WorkbookKind;

constexpr const char* kHeadingPart = "xl/worksheets/sheet1.xml";

/// Three in each row, its header's included, and one more in that.
bool unpackAndParse(Workbook& workbook) {
  return counted(floorWorkbook(workbook.systemPath().c_str(), kHeadingPart),
                 3 * (workbook.rows() + 1) + 1);
}

/// The same cells, and those of the list of books: four in its header, two for each book.
bool readBinary(Workbook& workbook) {
  return counted(floorBinaryWorkbook(workbook.systemPath().c_str()),
                 3 * (workbook.rows() + 1) + 1 + 4 + 2 * bookRows(workbook.rows()).size());
}

bool lookUp(Workbook& workbook) {
  std::vector<const char*> paths;
  paths.reserve(workbook.rows());
  for (const std::string& document : workbook.documents()) {
    paths.push_back(document.c_str());
  }
  return counted(floorLookUps(paths.data(), paths.size()), workbook.standing());
}

/// The export of a book takes the place of that of the book before.
bool replaceExports(Workbook& workbook) {
  for (std::size_t row = 0; row < workbook.rows(); row += kRowsOfABook) {
    if (floorCopy(workbook.lastExport().c_str(), workbook.spare().c_str()) != 0) {
      return false;
    }
  }
  return true;
}

constexpr std::array kFloors{
    WorkbookStep{
        "floor/unpack-and-parse", WorkbookKind::kXlsx, Documents::kMissing, unpackAndParse},
    WorkbookStep{"floor/cells", WorkbookKind::kXls, Documents::kMissing, readBinary},
    WorkbookStep{
        "floor/workbook-look-ups/missing", WorkbookKind::kXlsx, Documents::kMissing, lookUp},
    WorkbookStep{
        "floor/workbook-look-ups/standing", WorkbookKind::kXlsx, Documents::kStanding, lookUp},
    WorkbookStep{"floor/exports", WorkbookKind::kXlsx, Documents::kMissing, replaceExports},
};

}  // namespace

void registerWorkbookFloors(const Store& store) {
  for (const WorkbookStep& floor : kFloors) {
    registerWorkbookStep(store.workbooks, floor);
  }
}

}  // namespace quorbind::bench
