#include "bench/workbook.h"

#include "bench/benchmarks.h"
#include "platform/text.h"
#include "tests/support/excel_sheets.h"
#include "toc/excel_toc.h"
#include "toc/toc_check.h"
#include "workflow/driver/quor_book.h"

namespace quorbind::bench {

Workbook::Workbook(std::size_t rows, testing::WorkbookKind kind, Documents documents)
    : name_("BOOKS" + upperCaseAscii(testing::extensionOf(kind))) {
  world_.disk.write(
      name_,
      testing::workbookBytes(
          kind, {testing::headingSheet(headingRows(rows)), testing::bookSheet(bookRows(rows))}));
  for (std::size_t row = 0; row < rows; ++row) {
    const std::string document = replaceAll(documentOfRow(row), "\\", "/");
    documents_.push_back(pathOf(document));
    if (documents == Documents::kStanding) {
      world_.disk.write(document, "");
      ++standing_;
    }
  }
  static_cast<void>(checkAndExport());
}

bool Workbook::read() {
  const auto workbook = world_.platform().spreadsheets.open("C:\\" + name_);
  return workbook->worksheet(1)->cellText(1, 1) == "Node Level";
}

bool Workbook::countBooks() {
  const auto workbook = world_.platform().spreadsheets.open("C:\\" + name_);
  Quor_Book book(world_.module);
  const std::int32_t count =
      book.getExcelBookCount(*workbook->worksheet(1), excel_toc::kLevelColumn);
  return static_cast<std::size_t>(count) == bookRows(rows()).size();
}

bool Workbook::checkAndExport() {
  TocCheck check(world_.module);
  std::string toc = "C:\\" + name_;
  // The answer for a workbook is always False.
  static_cast<void>(check.mbValidateTocFile(toc, TocCheck::kExcel));
  return check.marrsMissingFiles().size() + standing_ == documents_.size() &&
         world_.user.messages().empty();
}

std::string Workbook::lastExport() const {
  return pathOf(replaceAll(name_, ".XLS", "_Temp.txt"));
}

Workbook& Workbooks::at(std::size_t rows, testing::WorkbookKind kind, Documents documents) {
  auto& workbook = workbooks_[{rows, kind, documents}];
  if (!workbook) {
    workbook = std::make_unique<Workbook>(rows, kind, documents);
  }
  return *workbook;
}

void registerWorkbookStep(const std::shared_ptr<Workbooks>& workbooks, const WorkbookStep& step) {
  for (const std::size_t rows : kWorkbookSizes) {
    registerWork(
        step.name,
        rows,
        {.reset = [workbooks, step, rows] { workbooks->at(rows, step.kind, step.documents); },
         .run = [workbooks,
                 step,
                 rows] { return step.run(workbooks->at(rows, step.kind, step.documents)); }});
  }
}

}  // namespace quorbind::bench
