#include "tests/support/paper_spreadsheets.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "platform/runtime_error.h"
#include "platform/text.h"

namespace quorbind::testing {

/// Shared with the workbooks and sheets given out, which may outlive the spreadsheets.
struct PaperSpreadsheets::State {
  std::map<std::string, std::vector<PaperSheet>> books;
  std::set<std::pair<std::int32_t, std::int32_t>> failing;
  std::optional<int> opensLeft;
  int timesOpened = 0;
  int openNow = 0;
  /// By path, sheet, row and column.
  std::map<std::tuple<std::string, std::int32_t, std::int32_t, std::int32_t>, int> asked;
};

namespace {

using State = PaperSpreadsheets::State;

std::string textAt(const PaperSheet& sheet, std::int32_t row, std::int32_t column) {
  const auto at = static_cast<std::size_t>(row - 1);
  const auto in = static_cast<std::size_t>(column - 1);
  return at < sheet.size() && in < sheet[at].size() ? sheet[at][in] : std::string();
}

class PaperWorksheet final : public Worksheet {
 public:
  PaperWorksheet(std::shared_ptr<State> state, std::string book, std::int32_t number)
      : state_(std::move(state)), book_(std::move(book)), number_(number) {}

  std::string cellText(std::int32_t row, std::int32_t column) override {
    if (state_->failing.contains({row, column})) {
      raise(ErrorNumber::kDeviceIoError);
    }
    ++state_->asked[{book_, number_, row, column}];
    return textAt(state_->books[book_][static_cast<std::size_t>(number_ - 1)], row, column);
  }

 private:
  std::shared_ptr<State> state_;
  std::string book_;
  std::int32_t number_;
};

class PaperWorkbook final : public Workbook {
 public:
  PaperWorkbook(std::shared_ptr<State> state, std::string book)
      : state_(std::move(state)), book_(std::move(book)) {
    ++state_->openNow;
  }
  ~PaperWorkbook() override { --state_->openNow; }
  PaperWorkbook(const PaperWorkbook&) = delete;
  PaperWorkbook& operator=(const PaperWorkbook&) = delete;

  std::unique_ptr<Worksheet> worksheet(std::int32_t number) override {
    if (number < 1 || static_cast<std::size_t>(number) > state_->books[book_].size()) {
      raise(ErrorNumber::kSubscriptOutOfRange);
    }
    return std::make_unique<PaperWorksheet>(state_, book_, number);
  }

 private:
  std::shared_ptr<State> state_;
  std::string book_;
};

class LooseSheet final : public Worksheet {
 public:
  explicit LooseSheet(PaperSheet sheet) : sheet_(std::move(sheet)) {}

  std::string cellText(std::int32_t row, std::int32_t column) override {
    return textAt(sheet_, row, column);
  }

 private:
  PaperSheet sheet_;
};

}  // namespace

PaperSpreadsheets::PaperSpreadsheets() : state_(std::make_shared<State>()) {}
PaperSpreadsheets::~PaperSpreadsheets() = default;

void PaperSpreadsheets::put(std::string_view path, std::vector<PaperSheet> sheets) {
  state_->books[upperCaseAscii(path)] = std::move(sheets);
}

void PaperSpreadsheets::failAt(std::int32_t row, std::int32_t column) {
  state_->failing.insert({row, column});
}

void PaperSpreadsheets::failToOpenAfter(int times) {
  state_->opensLeft = times;
}

int PaperSpreadsheets::timesOpened() const {
  return state_->timesOpened;
}

int PaperSpreadsheets::openNow() const {
  return state_->openNow;
}

int PaperSpreadsheets::mostAsked() const {
  int most = 0;
  for (const auto& [cell, times] : state_->asked) {
    most = std::max(most, times);
  }
  return most;
}

std::unique_ptr<Workbook> PaperSpreadsheets::open(std::string_view path) {
  const std::string book = upperCaseAscii(path);
  if (!state_->books.contains(book) || (state_->opensLeft && (*state_->opensLeft)-- <= 0)) {
    raise(ErrorNumber::kAutomationNameNotFound);
  }
  ++state_->timesOpened;
  return std::make_unique<PaperWorkbook>(state_, book);
}

std::unique_ptr<Worksheet> looseSheet(PaperSheet sheet) {
  return std::make_unique<LooseSheet>(std::move(sheet));
}

}  // namespace quorbind::testing
