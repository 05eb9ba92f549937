// Workbooks as tables of contents: reading them, and the check with the exports of their books, on
// real files. Beside the packed ones stands their floor.

#include <benchmark/benchmark.h>

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "bench/workbook_floor.h"
#include "tests/contract/adapters.h"
#include "tests/support/excel_sheets.h"
#include "tests/support/scripted_user_interface.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/workbook_bytes.h"
#include "toc/toc_check.h"
#include "workflow/forms/module.h"

namespace quorbind::bench {

namespace {

using testing::WorkbookKind;

constexpr std::size_t kRowsOfABook = 1'000;
constexpr const char* kHeadingPart = "xl/worksheets/sheet1.xml";

/// Books of a thousand rows, each row with a document of its own that is not there.
std::vector<testing::HeadingRow> headings(std::size_t rows) {
  std::vector<testing::HeadingRow> list;
  for (std::size_t row = 0; row < rows; ++row) {
    const std::size_t inBook = row % kRowsOfABook;
    const std::string number = std::to_string(row);
    list.push_back({inBook == 0 ? "1" : std::to_string(2 + inBook % 3),
                    "Heading number " + number,
                    (inBook == 0 ? "Manual\\page" : "page") + number + ".htm"});
  }
  return list;
}

std::vector<testing::BookRow> books(std::size_t rows) {
  std::vector<testing::BookRow> list;
  for (std::size_t book = 0; book * kRowsOfABook < rows; ++book) {
    list.push_back({"Book " + std::to_string(book), "B" + std::to_string(book)});
  }
  return list;
}

/// One workbook on a disk of its own.
class Case {
 public:
  Case(std::size_t rows, WorkbookKind kind)
      : name_("books" + testing::extensionOf(kind)),
        cells_(3 * (rows + 1) + 1),
        adapters_(testing::makeAdapters(disk_.path())),
        toolset_(adapters_->makeToolset(user_)),
        module_(Platform{adapters_->files(),
                         adapters_->xml(),
                         user_,
                         *toolset_,
                         adapters_->locale(),
                         adapters_->spreadsheets()}) {
    disk_.write(
        name_,
        testing::workbookBytes(
            kind, {testing::headingSheet(headings(rows)), testing::bookSheet(books(rows))}));
  }

  [[nodiscard]] bool read() {
    const auto workbook = adapters_->spreadsheets().open("C:\\" + name_);
    return workbook->worksheet(1)->cellText(1, 1) == "Node Level";
  }
  [[nodiscard]] bool checkAndExport() {
    TocCheck check(module_);
    return check.excel().mbValidateXLToc("C:\\" + name_, TocCheck::kExcel, nullptr) &&
           user_.messages().empty();
  }
  [[nodiscard]] bool floor() {
    return floorWorkbook((disk_.path() / name_).c_str(), kHeadingPart) == static_cast<long>(cells_);
  }

 private:
  testing::TemporaryFolder disk_;
  testing::ScriptedUserInterface user_;
  std::string name_;
  /// Of the sheet of headings.
  std::size_t cells_;
  std::unique_ptr<testing::Adapters> adapters_;
  std::unique_ptr<Toolset> toolset_;
  Module module_;
};

/// The cases that were asked for; each is made once and stays until the end.
Case& caseOf(std::size_t rows, WorkbookKind kind) {
  static std::map<std::pair<std::size_t, WorkbookKind>, std::unique_ptr<Case>> cases;
  auto& data = cases[{rows, kind}];
  if (!data) {
    data = std::make_unique<Case>(rows, kind);
  }
  return *data;
}

void measure(benchmark::State& state, WorkbookKind kind, bool (Case::*stage)()) {
  Case& data = caseOf(static_cast<std::size_t>(state.range(0)), kind);
  for (auto _ : state) {
    if (!(data.*stage)()) {
      state.SkipWithError("the work was not done");
      break;
    }
  }
}

/// A sheet has at most 32,766 rows.
void inEachSize(benchmark::internal::Benchmark* stage) {
  stage->Arg(10'000)->Arg(30'000)->Unit(benchmark::kMillisecond);
}

BENCHMARK_CAPTURE(measure, floor_xlsx, WorkbookKind::kXlsx, &Case::floor)->Apply(inEachSize);
BENCHMARK_CAPTURE(measure, read_xlsx, WorkbookKind::kXlsx, &Case::read)->Apply(inEachSize);
BENCHMARK_CAPTURE(measure, read_xls, WorkbookKind::kXls, &Case::read)->Apply(inEachSize);
BENCHMARK_CAPTURE(measure, check_xlsx, WorkbookKind::kXlsx, &Case::checkAndExport)
    ->Apply(inEachSize);
BENCHMARK_CAPTURE(measure, check_xls, WorkbookKind::kXls, &Case::checkAndExport)->Apply(inEachSize);

}  // namespace

}  // namespace quorbind::bench
