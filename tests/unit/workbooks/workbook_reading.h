#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/workbooks/workbook_file.h"
#include "tests/contract/adapters.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {

/// Reads workbooks that a test has as bytes.
class WorkbookReader {
 public:
  WorkbookReading read(std::string_view bytes) {
    disk_.write("book.xlsx", bytes);
    return readWorkbookFile(adapters_->files(), adapters_->xml(), "C:\\book.xlsx");
  }
  /// Why the file is refused; empty when it is not.
  std::string reasonFor(std::string_view bytes) { return read(bytes).reason; }

  /// The texts of the first column of a sheet, from its first row on, or why there are none.
  std::vector<std::string> columnOf(std::string_view bytes,
                                    std::int32_t rows,
                                    std::size_t sheet = 0) {
    const WorkbookReading reading = read(bytes);
    if (!reading) {
      return {reading.reason};
    }
    std::vector<std::string> texts;
    for (std::int32_t row = 1; row <= rows; ++row) {
      texts.emplace_back(reading.texts->cellText(sheet, row, 1));
    }
    return texts;
  }

 private:
  TemporaryFolder disk_;
  std::unique_ptr<Adapters> adapters_ = makeAdapters(disk_.path());
};

}  // namespace quorbind::testing
