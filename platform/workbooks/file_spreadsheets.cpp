#include "platform/workbooks/file_spreadsheets.h"

#include <cstddef>
#include <string>
#include <utility>

#include "platform/runtime_error.h"
#include "platform/workbooks/workbook_file.h"

namespace quorbind {

namespace {

using Texts = std::shared_ptr<const WorkbookTexts>;

class FileWorksheet final : public Worksheet {
 public:
  FileWorksheet(Texts texts, std::size_t index) : texts_(std::move(texts)), index_(index) {}

  std::string cellText(std::int32_t row, std::int32_t column) override {
    return std::string(texts_->cellText(index_, row, column));
  }
  [[nodiscard]] bool isInMemory() const override { return true; }

 private:
  Texts texts_;
  std::size_t index_;
};

class FileWorkbook final : public Workbook {
 public:
  explicit FileWorkbook(Texts texts) : texts_(std::move(texts)) {}

  std::unique_ptr<Worksheet> worksheet(std::int32_t number) override {
    if (number < 1 || static_cast<std::size_t>(number) > texts_->sheets.size()) {
      raise(ErrorNumber::kSubscriptOutOfRange);
    }
    return std::make_unique<FileWorksheet>(texts_, static_cast<std::size_t>(number - 1));
  }

 private:
  Texts texts_;
};

}  // namespace

std::unique_ptr<Workbook> FileSpreadsheets::open(std::string_view path) {
  const WorkbookReading reading = readWorkbookFile(files_, xml_, path);
  if (!reading) {
    raise(ErrorNumber::kAutomationNameNotFound);
  }
  return std::make_unique<FileWorkbook>(reading.texts);
}

}  // namespace quorbind
