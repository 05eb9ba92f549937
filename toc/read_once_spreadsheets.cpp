#include "toc/read_once_spreadsheets.h"

#include <cstdint>
#include <unordered_map>
#include <utility>

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
    constexpr unsigned kBitsOfColumn = 32;
    const std::uint64_t place = std::uint64_t{static_cast<std::uint32_t>(row)} << kBitsOfColumn |
                                static_cast<std::uint32_t>(column);
    const auto known = texts_.find(place);
    return known != texts_.end()
               ? known->second
               : texts_.emplace(place, sheet_->cellText(row, column)).first->second;
  }

 private:
  std::unique_ptr<Worksheet> sheet_;
  std::unordered_map<std::uint64_t, std::string> texts_;
};

class ReadOnceWorkbook final : public Workbook {
 public:
  explicit ReadOnceWorkbook(std::unique_ptr<Workbook> book) : book_(std::move(book)) {}

  std::unique_ptr<Worksheet> worksheet(std::int32_t number) override {
    std::shared_ptr<Worksheet>& sheet = sheets_[number];
    if (sheet == nullptr) {
      sheet = std::make_shared<ReadOnceWorksheet>(book_->worksheet(number));
    }
    return std::make_unique<SharedWorksheet>(sheet);
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
