#include "tests/support/workbook_bytes.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "platform/text.h"
#include "tests/support/binary_workbook.h"
#include "tests/support/little_endian.h"
#include "tests/support/packed_file.h"

namespace quorbind::testing {

namespace {

constexpr std::string_view kDate = "1/1/2021";
constexpr int kDaysToDate = 44197;
constexpr std::string_view kError = "#N/A";
constexpr char kErrorCode = '\x2A';
constexpr std::uint16_t kDateFormat = 14;
/// Style 0 shows numbers as they are, style 1 as dates.
constexpr std::uint16_t kDateStyle = 1;
/// Column C of sheets, which are counted from 0 in a binary workbook.
constexpr std::uint16_t kNames = 2;

bool isNumber(std::string_view text) {
  const std::string_view digits = text.substr(text.starts_with('-') ? 1 : 0);
  return !digits.empty() &&
         std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// Hands over the cells that are filled, with their row and column counted from 0.
template <typename Visitor>
void forEachCell(const PaperSheet& sheet, Visitor&& visitor) {
  for (std::size_t row = 0; row < sheet.size(); ++row) {
    for (std::size_t column = 0; column < sheet[row].size(); ++column) {
      if (!sheet[row][column].empty()) {
        visitor(static_cast<std::uint16_t>(row),
                static_cast<std::uint16_t>(column),
                sheet[row][column]);
      }
    }
  }
}

std::string xlsxCell(std::uint16_t row, std::uint16_t column, const std::string& text) {
  const std::string begin =
      "<c r=\"" + std::string(1, static_cast<char>('A' + column)) + std::to_string(row + 1) + "\"";
  const std::string end = "</c>";
  if (isNumber(text)) {
    return begin + "><v>" + text + "</v>" + end;
  }
  if (text == kDate) {
    return begin + " s=\"1\"><v>" + std::to_string(kDaysToDate) + "</v>" + end;
  }
  if (text == kError) {
    return begin + " t=\"e\"><v>" + text + "</v>" + end;
  }
  const std::string escaped = replaceAll(replaceAll(text, "&", "&amp;"), "<", "&lt;");
  return begin + " t=\"inlineStr\"><is><t xml:space=\"preserve\">" + escaped + "</t></is>" + end;
}

std::string xlsxBytes(const std::vector<PaperSheet>& sheets, const WorkbookTraits& traits) {
  PackedWorkbook book;
  book.styles("<cellXfs><xf numFmtId=\"0\"/><xf numFmtId=\"14\"/></cellXfs>");
  for (const PaperSheet& sheet : sheets) {
    std::string rows = "<row r=\"1\">";
    std::uint16_t last = 0;
    forEachCell(sheet, [&](std::uint16_t row, std::uint16_t column, const std::string& text) {
      if (row > last) {
        rows += "</row><row r=\"" + std::to_string(row + 1) + "\">";
        last = row;
      }
      rows += xlsxCell(row, column, text);
    });
    rows += "</row>";
    const bool isFirst = &sheet == &sheets.front();
    if (isFirst && traits.firstMergedRow > 0) {
      rows += "</sheetData><mergeCells><mergeCell ref=\"C" + std::to_string(traits.firstMergedRow) +
              ":C" + std::to_string(traits.lastMergedRow) + "\"/></mergeCells><sheetData>";
    }
    book.sheet(rows);
    if (isFirst && traits.firstSheetIsHidden) {
      book.lastSheetIs("state=\"hidden\"");
    }
  }
  return book.bytes();
}

std::string xlsCellRecord(std::uint16_t row, std::uint16_t column, const std::string& text) {
  if (isNumber(text)) {
    return xlsNumber(row, column, std::stod(text));
  }
  if (text == kDate) {
    return xlsNumber(row, column, kDaysToDate, kDateStyle);
  }
  if (text == kError) {
    return xlsRecord(0x0205, xlsCell(row, column) + kErrorCode + '\1');
  }
  return xlsText(row, column, text);
}

std::string xlsStyle(std::uint16_t format) {
  return littleEndian<2>(0) + littleEndian<2>(format) + std::string(16, '\0');
}

/// The state of the first sheet follows its position.
std::string withFirstSheetHidden(std::string stream) {
  const std::string record("\x85\0", 2);
  stream[stream.find(record) + 8] = '\1';
  return stream;
}

std::string xlsBytes(const std::vector<PaperSheet>& sheets, const WorkbookTraits& traits) {
  constexpr std::uint16_t kStyleRecord = 0x00E0;
  constexpr std::uint16_t kMergedRecord = 0x00E5;
  BinaryWorkbook book;
  book.global(kStyleRecord, xlsStyle(0)).global(kStyleRecord, xlsStyle(kDateFormat));
  for (const PaperSheet& sheet : sheets) {
    std::string records;
    forEachCell(sheet, [&](std::uint16_t row, std::uint16_t column, const std::string& text) {
      records += xlsCellRecord(row, column, text);
    });
    if (&sheet == &sheets.front() && traits.firstMergedRow > 0) {
      records +=
          xlsRecord(kMergedRecord,
                    littleEndian<2>(1) +
                        littleEndian<2>(static_cast<std::size_t>(traits.firstMergedRow - 1)) +
                        littleEndian<2>(static_cast<std::size_t>(traits.lastMergedRow - 1)) +
                        littleEndian<2>(kNames) + littleEndian<2>(kNames));
    }
    book.sheet(records);
  }
  const std::string stream = book.stream();
  return compoundFile(
      {{"Workbook", traits.firstSheetIsHidden ? withFirstSheetHidden(stream) : stream}},
      binaryWorkbookIdentity());
}

}  // namespace

std::string extensionOf(WorkbookKind kind) {
  return kind == WorkbookKind::kXlsx ? ".xlsx" : ".xls";
}

std::string workbookBytes(WorkbookKind kind,
                          const std::vector<PaperSheet>& sheets,
                          const WorkbookTraits& traits) {
  return kind == WorkbookKind::kXlsx ? xlsxBytes(sheets, traits) : xlsBytes(sheets, traits);
}

}  // namespace quorbind::testing
