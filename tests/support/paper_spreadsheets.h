#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/spreadsheets.h"

namespace quorbind::testing {

/// A sheet on paper, row by row from the first; an empty text is an empty cell.
using PaperSheet = std::vector<std::vector<std::string>>;

/// Workbooks that a test has written down, by their paths, and a count of what they are asked.
class PaperSpreadsheets final : public Spreadsheets {
 public:
  PaperSpreadsheets();
  ~PaperSpreadsheets() override;
  PaperSpreadsheets(const PaperSpreadsheets&) = delete;
  PaperSpreadsheets& operator=(const PaperSpreadsheets&) = delete;

  /// Letter case does not matter in `path`. It replaces what was there.
  void put(std::string_view path, std::vector<PaperSheet> sheets);
  /// From now on a cell can't be asked: error 57.
  void failAt(std::int32_t row, std::int32_t column);
  /// After this many more times no workbook can be opened.
  void failToOpenAfter(int times);

  [[nodiscard]] int timesOpened() const;
  [[nodiscard]] int openNow() const;
  /// The most often that one cell was asked.
  [[nodiscard]] int mostAsked() const;

  std::unique_ptr<Workbook> open(std::string_view path) override;

  struct State;

 private:
  std::shared_ptr<State> state_;
};

/// One sheet that is in no workbook, as a host may hand it in.
std::unique_ptr<Worksheet> looseSheet(PaperSheet sheet);

}  // namespace quorbind::testing
