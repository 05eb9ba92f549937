#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorbind::testing {

/// A compound file with these streams at its root, each with its name. `identity` is that of the
/// class of its object in 16 bytes, by which systems find the program for it; empty for none.
std::string compoundFile(const std::vector<std::pair<std::string, std::string>>& streams,
                         std::string identity = {});

/// The identity of binary workbooks.
std::string binaryWorkbookIdentity();

/// A record of a binary workbook.
std::string xlsRecord(std::uint16_t kind, std::string_view bytes);

/// A text as records hold it, one byte a character.
std::string xlsNarrowText(std::string_view ascii);
/// The same in UTF-16; `utf16` are its bytes.
std::string xlsWideText(std::string_view utf16);

/// Puts a binary workbook together from its records.
class BinaryWorkbook {
 public:
  /// A record of the part in front of the sheets.
  BinaryWorkbook& global(std::uint16_t kind, std::string_view bytes);
  /// The shared texts, each as `xlsNarrowText` or `xlsWideText` gives it.
  BinaryWorkbook& sharedTexts(const std::vector<std::string>& texts);
  /// The next sheet with its records. `type` is 0 for a sheet of cells.
  BinaryWorkbook& sheet(std::string records, std::uint8_t type = 0);

  /// The stream of its records.
  [[nodiscard]] std::string stream() const;
  /// The whole file.
  [[nodiscard]] std::string bytes() const {
    return compoundFile({{"Workbook", stream()}}, binaryWorkbookIdentity());
  }

 private:
  struct Sheet {
    std::string records;
    std::uint8_t type;
  };

  std::string globals_;
  std::vector<Sheet> sheets_;
};

/// The beginning of a cell's record: where it stands, counted from 0, and its style.
std::string xlsCell(std::uint16_t row, std::uint16_t column, std::uint16_t style = 0);

// The records of cells.
std::string xlsNumber(std::uint16_t row,
                      std::uint16_t column,
                      double value,
                      std::uint16_t style = 0);
std::string xlsText(std::uint16_t row, std::uint16_t column, std::string_view ascii);
std::string xlsSharedText(std::uint16_t row, std::uint16_t column, std::uint32_t number);

}  // namespace quorbind::testing
