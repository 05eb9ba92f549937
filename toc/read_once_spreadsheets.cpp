#include "toc/read_once_spreadsheets.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace quorbind {

namespace {

/// Passes on what one shared object answers.
class SharedWorksheet final : public Worksheet {
 public:
  explicit SharedWorksheet(std::shared_ptr<Worksheet> sheet) : sheet_(std::move(sheet)) {}

  std::string cellText(std::int32_t row, std::int32_t column) override {
    return sheet_->cellText(row, column);
  }

 private:
  std::shared_ptr<Worksheet> sheet_;
};

class SharedWorkbook final : public Workbook {
 public:
  explicit SharedWorkbook(std::shared_ptr<Workbook> book) : book_(std::move(book)) {}

  std::unique_ptr<Worksheet> worksheet(std::int32_t number) override {
    return book_->worksheet(number);
  }

 private:
  std::shared_ptr<Workbook> book_;
};

class ReadOnceWorksheet final : public Worksheet {
 public:
  explicit ReadOnceWorksheet(std::unique_ptr<Worksheet> sheet) : sheet_(std::move(sheet)) {}

  std::string cellText(std::int32_t row, std::int32_t column) override {
    const auto index = static_cast<std::size_t>(row);
    std::vector<std::optional<std::string>>& texts = columns_[column];
    if (index >= texts.size()) {
      texts.resize(index + 1);
    }
    if (!texts[index]) {
      texts[index] = sheet_->cellText(row, column);
    }
    return *texts[index];
  }

 private:
  std::unique_ptr<Worksheet> sheet_;
  /// By their rows: columns are read downwards.
  std::map<std::int32_t, std::vector<std::optional<std::string>>> columns_;
};

class ReadOnceWorkbook final : public Workbook {
 public:
  explicit ReadOnceWorkbook(std::unique_ptr<Workbook> book) : book_(std::move(book)) {}

  std::unique_ptr<Worksheet> worksheet(std::int32_t number) override {
    auto known = sheets_.find(number);
    if (known == sheets_.end()) {
      auto sheet = book_->worksheet(number);
      if (sheet->isInMemory()) {
        return sheet;
      }
      known = sheets_.emplace(number, std::make_shared<ReadOnceWorksheet>(std::move(sheet))).first;
    }
    return std::make_unique<SharedWorksheet>(known->second);
  }

 private:
  std::unique_ptr<Workbook> book_;
  std::map<std::int32_t, std::shared_ptr<Worksheet>> sheets_;
};

}  // namespace

std::unique_ptr<Workbook> ReadOnceSpreadsheets::open(std::string_view path) {
  auto known = books_.find(path);
  if (known == books_.end()) {
    known =
        books_.emplace(path, std::make_shared<ReadOnceWorkbook>(spreadsheets_.open(path))).first;
  }
  return std::make_unique<SharedWorkbook>(known->second);
}

}  // namespace quorbind
