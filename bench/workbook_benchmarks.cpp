// Workbooks as tables of contents: reading them, and the check with the exports of their books, on
// real files. The floor under reading a packed one is its sheet unpacked and parsed. A check has to
// look every document up as well, and to replace a file for each book.

#include <benchmark/benchmark.h>

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "bench/benchmarks.h"
#include "bench/floor.h"
#include "bench/workbook_floor.h"
#include "platform/text.h"
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

/// The document of a row: in the first of a book with the book's folder.
std::string documentOf(std::size_t row) {
  return (row % kRowsOfABook == 0 ? "Manual\\page" : "page") + std::to_string(row) + ".htm";
}

enum class Documents { kMissing, kStanding };

/// Books of a thousand rows, each row with a document of its own.
std::vector<testing::HeadingRow> headings(std::size_t rows) {
  std::vector<testing::HeadingRow> list;
  for (std::size_t row = 0; row < rows; ++row) {
    const std::size_t inBook = row % kRowsOfABook;
    list.push_back({inBook == 0 ? "1" : std::to_string(2 + inBook % 3),
                    "Heading number " + std::to_string(row),
                    documentOf(row)});
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
  Case(std::size_t rows, WorkbookKind kind, Documents documents)
      : name_("BOOKS" + upperCaseAscii(testing::extensionOf(kind))),
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
    for (std::size_t row = 0; row < rows; ++row) {
      const std::string document = replaceAll(documentOf(row), "\\", "/");
      documents_.push_back(pathOf(document));
      if (documents == Documents::kStanding) {
        disk_.write(document, "");
        ++standing_;
      }
    }
    static_cast<void>(checkAndExport());
  }

  [[nodiscard]] bool read() {
    const auto workbook = adapters_->spreadsheets().open("C:\\" + name_);
    return workbook->worksheet(1)->cellText(1, 1) == "Node Level";
  }
  [[nodiscard]] bool checkAndExport() {
    TocCheck check(module_);
    std::string toc = "C:\\" + name_;
    // The answer for a workbook is always False.
    static_cast<void>(check.mbValidateTocFile(toc, TocCheck::kExcel));
    return check.marrsMissingFiles().size() + standing_ == documents_.size() &&
           user_.messages().empty();
  }

  [[nodiscard]] bool unpackAndParse() {
    return counted(floorWorkbook(pathOf(name_).c_str(), kHeadingPart), cells_);
  }
  [[nodiscard]] bool lookUp() {
    std::vector<const char*> paths;
    paths.reserve(documents_.size());
    for (const std::string& document : documents_) {
      paths.push_back(document.c_str());
    }
    return counted(floorLookUps(paths.data(), paths.size()), standing_);
  }
  /// The export of a book takes the place of that of the book before.
  [[nodiscard]] bool replaceExports() {
    const std::string last = pathOf(replaceAll(name_, ".XLS", "_Temp.txt"));
    for (std::size_t row = 0; row < documents_.size(); row += kRowsOfABook) {
      if (floorCopy(last.c_str(), pathOf("export").c_str()) != 0) {
        return false;
      }
    }
    return true;
  }

 private:
  [[nodiscard]] std::string pathOf(const std::string& name) const {
    return (disk_.path() / name).string();
  }

  testing::TemporaryFolder disk_;
  testing::ScriptedUserInterface user_;
  std::string name_;
  /// Of the sheet of headings.
  std::size_t cells_;
  std::vector<std::string> documents_;
  std::size_t standing_ = 0;
  std::unique_ptr<testing::Adapters> adapters_;
  std::unique_ptr<Toolset> toolset_;
  Module module_;
};

/// The cases that were asked for; each is made once and stays until the end.
Case& caseOf(std::size_t rows, WorkbookKind kind, Documents documents) {
  static std::map<std::tuple<std::size_t, WorkbookKind, Documents>, std::unique_ptr<Case>> cases;
  auto& data = cases[{rows, kind, documents}];
  if (!data) {
    data = std::make_unique<Case>(rows, kind, documents);
  }
  return *data;
}

using Step = bool (Case::*)();

void measure(benchmark::State& state, WorkbookKind kind, Documents documents, Step step) {
  Case& data = caseOf(static_cast<std::size_t>(state.range(0)), kind, documents);
  for (auto _ : state) {
    if (!(data.*step)()) {
      state.SkipWithError("the work was not done");
      break;
    }
  }
}

/// A sheet has at most 32,766 rows.
void registerStep(const char* name,
                  WorkbookKind kind,
                  Step step,
                  Documents documents = Documents::kMissing) {
  benchmark::RegisterBenchmark(name, &measure, kind, documents, step)
      ->Arg(3'000)
      ->Arg(30'000)
      ->Unit(benchmark::kMillisecond);
}

void registerWorkbooks() {
  registerStep("component/read/xlsx", WorkbookKind::kXlsx, &Case::read);
  registerStep("component/read/xls", WorkbookKind::kXls, &Case::read);
  registerStep("component/check/xlsx/missing", WorkbookKind::kXlsx, &Case::checkAndExport);
  registerStep("component/check/xlsx/standing",
               WorkbookKind::kXlsx,
               &Case::checkAndExport,
               Documents::kStanding);
  registerStep("component/check/xls/missing", WorkbookKind::kXls, &Case::checkAndExport);
  registerStep("floor/unpack-and-parse", WorkbookKind::kXlsx, &Case::unpackAndParse);
  registerStep("floor/look-ups/missing", WorkbookKind::kXlsx, &Case::lookUp);
  registerStep("floor/look-ups/standing", WorkbookKind::kXlsx, &Case::lookUp, Documents::kStanding);
  registerStep("floor/exports", WorkbookKind::kXlsx, &Case::replaceExports);
}

}  // namespace

}  // namespace quorbind::bench

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  quorbind::bench::registerWorkbooks();
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
