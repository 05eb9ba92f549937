#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/spreadsheets.h"
#include "tests/support/paper_spreadsheets.h"

namespace quorbind::bench {

/// One workbook, whatever it is asked for as. Its cells cost next to nothing, and are not counted.
class SheetsInMemory final : public Spreadsheets {
 public:
  explicit SheetsInMemory(std::vector<testing::PaperSheet> sheets) : sheets_(std::move(sheets)) {}

  /// The workbook is not to outlive this.
  std::unique_ptr<quorbind::Workbook> open(std::string_view path) override;

 private:
  const std::vector<testing::PaperSheet> sheets_;
};

}  // namespace quorbind::bench
