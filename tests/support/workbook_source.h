#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "tests/contract/adapters.h"
#include "tests/support/workbook_bytes.h"

namespace quorbind::testing {

/// Where the cells of a workbook come from: a kind of file, and what reads it.
struct WorkbookSource {
  WorkbookKind kind;
  Spreadsheets& (Adapters::*reader)();
};

/// All that this build has.
inline std::vector<WorkbookSource> workbookSources() {
  std::vector<WorkbookSource> sources;
  for (const WorkbookKind kind : {WorkbookKind::kXlsx, WorkbookKind::kXls}) {
    sources.push_back({kind, &Adapters::spreadsheets});
    if (usesSpreadsheetProgram()) {
      sources.push_back({kind, &Adapters::spreadsheetProgram});
    }
  }
  return sources;
}

/// Its name as a part of a test's name.
inline std::string nameOf(const WorkbookSource& source) {
  return extensionOf(source.kind).substr(1) +
         (source.reader == &Adapters::spreadsheets ? "FromItsFile" : "ByAProgram");
}

inline void PrintTo(const WorkbookSource& source, std::ostream* out) {
  *out << nameOf(source);
}

}  // namespace quorbind::testing
