#include "bench/sheets_in_memory.h"

#include <cstddef>

namespace quorbind::bench {

namespace {

class SheetInMemory final : public Worksheet {
 public:
  explicit SheetInMemory(const testing::PaperSheet& sheet) : sheet_(sheet) {}

  std::string cellText(std::int32_t row, std::int32_t column) override {
    const auto at = static_cast<std::size_t>(row - 1);
    const auto in = static_cast<std::size_t>(column - 1);
    return at < sheet_.size() && in < sheet_[at].size() ? sheet_[at][in] : std::string();
  }

 private:
  const testing::PaperSheet& sheet_;
};

class WorkbookInMemory final : public quorbind::Workbook {
 public:
  explicit WorkbookInMemory(const std::vector<testing::PaperSheet>& sheets) : sheets_(sheets) {}

  std::unique_ptr<Worksheet> worksheet(std::int32_t number) override {
    return std::make_unique<SheetInMemory>(sheets_.at(static_cast<std::size_t>(number - 1)));
  }

 private:
  const std::vector<testing::PaperSheet>& sheets_;
};

}  // namespace

std::unique_ptr<quorbind::Workbook> SheetsInMemory::open(std::string_view /*path*/) {
  return std::make_unique<WorkbookInMemory>(sheets_);
}

}  // namespace quorbind::bench
