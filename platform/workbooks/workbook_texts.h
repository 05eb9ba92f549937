#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quorbind {

/// The most UTF-8 bytes that the text of one cell takes: 32,767 units of UTF-16.
inline constexpr std::size_t kLongestCellText = std::size_t{3} * 32767;
/// The most bytes that the cells of a workbook may display together. A text that many cells share
/// counts for each of them.
inline constexpr std::uint64_t kMostDisplayedText = std::uint64_t{256} << 20U;

inline constexpr std::int32_t kMostRows = 1048576;
inline constexpr std::int32_t kMostColumns = 16384;

/// A text that a TextPool keeps.
struct TextSpan {
  std::uint32_t begin = 0;
  std::uint32_t size = 0;
};

/// Keeps texts one behind the other.
class TextPool {
 public:
  /// Throws WorkbookRefusal for a text that is too long for a cell, and for one too many.
  TextSpan keep(std::string_view text);
  [[nodiscard]] std::string_view text(TextSpan span) const {
    return std::string_view(buffer_).substr(span.begin, span.size);
  }

 private:
  std::string buffer_;
};

/// Which texts a sheet's cells display.
class SheetTexts {
 public:
  /// Cells may come in any order; of two in one place the later counts. Throws WorkbookRefusal for
  /// a place that no sheet has.
  void put(std::int32_t row, std::int32_t column, TextSpan text);
  /// To be called when all have come.
  void finish();

  /// An empty span for a cell that displays nothing.
  [[nodiscard]] TextSpan at(std::int32_t row, std::int32_t column) const;

 private:
  struct Cell {
    std::int32_t row;
    std::int32_t column;
    TextSpan text;
  };

  struct Row {
    std::int32_t number;
    /// The first of its cells.
    std::size_t begin;
  };

  /// The end where no cell of the row displays anything.
  [[nodiscard]] std::vector<Row>::const_iterator find(std::int32_t row) const;

  /// By their rows, and in a row by their columns.
  std::vector<Cell> cells_;
  /// Those that have cells.
  std::vector<Row> rows_;
};

/// Everything that a workbook displays.
struct WorkbookTexts {
  TextPool pool;
  std::vector<SheetTexts> sheets;

  [[nodiscard]] std::string_view cellText(std::size_t sheet,
                                          std::int32_t row,
                                          std::int32_t column) const {
    return pool.text(sheets[sheet].at(row, column));
  }
};

}  // namespace quorbind
