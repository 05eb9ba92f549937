#include "tests/support/hostile_workbooks.h"

#include <cstdint>

#include "tests/support/binary_workbook.h"
#include "tests/support/packed_file.h"

namespace quorbind::testing {

namespace {

std::string packedBombOfSharedTexts() {
  constexpr int kRows = 3'000;
  constexpr std::size_t kTextLength = 98'000;
  std::string rows;
  for (int row = 1; row <= kRows; ++row) {
    // The numbers keep the sheet from being packed too tightly.
    rows += "<row><c t=\"s\"><v>0</v></c><c><v>" + std::to_string(row * 7919) + "</v></c></row>";
  }
  return PackedWorkbook()
      .sheet(rows)
      .sharedTexts("<si><t>" + std::string(kTextLength, 'x') + "</t></si>")
      .bytes();
}

std::string binaryBombOfSharedTexts() {
  constexpr std::uint16_t kRows = 12'000;
  constexpr std::uint16_t kColumns = 4;
  constexpr std::size_t kTextLength = 8'000;
  std::string cells;
  for (std::uint16_t row = 0; row < kRows; ++row) {
    for (std::uint16_t column = 0; column < kColumns; ++column) {
      cells += xlsSharedText(row, column, 0);
    }
  }
  return BinaryWorkbook()
      .sharedTexts({xlsNarrowText(std::string(kTextLength, 'x'))})
      .sheet(cells)
      .bytes();
}

}  // namespace

std::string encryptedWorkbook() {
  return compoundFile({{"EncryptionInfo", "how"}, {"EncryptedPackage", "what"}});
}

std::string bombOfSpaces() {
  constexpr std::size_t kSize = 8 << 20;
  return PackedWorkbook().sheet(std::string(kSize, ' ')).bytes();
}

std::string bombOfSharedTexts(WorkbookKind kind) {
  return kind == WorkbookKind::kXlsx ? packedBombOfSharedTexts() : binaryBombOfSharedTexts();
}

}  // namespace quorbind::testing
