#include "tests/fuzz/workbook_claims.h"

#include "platform/text_encoding.h"
#include "platform/workbooks/file_spreadsheets.h"
#include "platform/workbooks/workbook_file.h"
#include "tests/fuzz/claim.h"
#include "tests/fuzz/fuzzed_library.h"
#include "toc/toc_check.h"

namespace quorbind::testing {

namespace {

/// What the first rows and columns of a workbook display.
std::string displayOf(const WorkbookTexts& texts) {
  constexpr std::int32_t kRows = 40;
  constexpr std::int32_t kColumns = 9;
  std::string display;
  for (std::size_t sheet = 0; sheet < texts.sheets.size(); ++sheet) {
    for (std::int32_t row = 1; row <= kRows; ++row) {
      for (std::int32_t column = 1; column <= kColumns; ++column) {
        const std::string_view text = texts.cellText(sheet, row, column);
        claim(isValidUtf8(text), "a cell displays a text");
        claim(text.size() <= kLongestCellText, "a cell displays no more than a cell can hold");
        display.append(text).append("\t");
      }
    }
  }
  return display;
}

}  // namespace

void claimWorkbookIsRead(const std::string& bytes, std::string_view name) {
  FuzzedLibrary& library = FuzzedLibrary::restored();
  const std::string file = "in/" + std::string(name);
  library.files().write(file, bytes);
  const auto read = [&] {
    return readWorkbookFile(library.files(), library.platform().xml, componentPath(file));
  };
  const WorkbookReading first = read();
  const WorkbookReading second = read();
  claim(static_cast<bool>(first) == first.reason.empty(), "reading gives texts or a reason");
  claim(first.reason == second.reason, "a file is refused for the same reason again");
  if (!first) {
    return;
  }
  claim(displayOf(*first.texts) == displayOf(*second.texts), "a file displays the same again");

  FileSpreadsheets spreadsheets(library.files(), library.platform().xml);
  library.add(name, TocCheck::kExcel, spreadsheets);
  library.claimIsWhole();
}

}  // namespace quorbind::testing
