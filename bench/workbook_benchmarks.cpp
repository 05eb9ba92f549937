// Workbooks as tables of contents: reading them, and the check with the exports of their books.

#include <array>

#include "bench/benchmarks.h"
#include "bench/store.h"

namespace quorbind::bench {

namespace {

using testing::WorkbookKind;

bool read(Workbook& workbook) {
  return workbook.read();
}

bool countBooks(Workbook& workbook) {
  return workbook.countBooks();
}

bool checkAndExport(Workbook& workbook) {
  return workbook.checkAndExport();
}

constexpr std::array kSteps{
    WorkbookStep{"component/read/xlsx", WorkbookKind::kXlsx, Documents::kMissing, read},
    WorkbookStep{"component/read/xls", WorkbookKind::kXls, Documents::kMissing, read},
    WorkbookStep{"component/count/xlsx", WorkbookKind::kXlsx, Documents::kMissing, countBooks},
    WorkbookStep{"component/count/xls", WorkbookKind::kXls, Documents::kMissing, countBooks},
    WorkbookStep{
        "component/check/xlsx/missing", WorkbookKind::kXlsx, Documents::kMissing, checkAndExport},
    WorkbookStep{
        "component/check/xlsx/standing", WorkbookKind::kXlsx, Documents::kStanding, checkAndExport},
    WorkbookStep{
        "component/check/xls/missing", WorkbookKind::kXls, Documents::kMissing, checkAndExport},
    WorkbookStep{
        "component/check/xls/standing", WorkbookKind::kXls, Documents::kStanding, checkAndExport},
};

}  // namespace

void registerWorkbooks(const Store& store) {
  for (const WorkbookStep& step : kSteps) {
    registerWorkbookStep(store.workbooks, step);
  }
}

}  // namespace quorbind::bench
