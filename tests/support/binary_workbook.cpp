#include "tests/support/binary_workbook.h"

#include <algorithm>
#include <bit>

#include "tests/support/little_endian.h"

namespace quorbind::testing {

namespace {

constexpr std::size_t kSector = 512;
constexpr std::size_t kShortSector = 64;
constexpr std::size_t kShortLimit = 4096;
constexpr std::uint32_t kFree = 0xFFFFFFFF;
constexpr std::uint32_t kEndOfChain = 0xFFFFFFFE;
constexpr std::uint32_t kTableSector = 0xFFFFFFFD;

constexpr std::uint16_t kBegin = 0x0809;
constexpr std::uint16_t kEnd = 0x000A;
constexpr std::uint16_t kSheetRecord = 0x0085;
constexpr std::uint16_t kSharedTextsRecord = 0x00FC;

std::string padded(std::string bytes, std::size_t unit) {
  bytes.resize((bytes.size() + unit - 1) / unit * unit, '\0');
  return bytes;
}

/// Sectors, or short ones, and the table of what follows what.
struct Sectors {
  std::size_t size;
  std::string bytes;
  std::vector<std::uint32_t> next;

  /// Adds a chain and answers its first sector.
  std::uint32_t add(const std::string& content) {
    if (content.empty()) {
      return kEndOfChain;
    }
    const auto first = static_cast<std::uint32_t>(next.size());
    bytes += padded(content, size);
    while (next.size() * size < bytes.size()) {
      next.push_back(static_cast<std::uint32_t>(next.size() + 1));
    }
    next.back() = kEndOfChain;
    return first;
  }
};

std::string tableOf(const std::vector<std::uint32_t>& next) {
  std::string table;
  for (const std::uint32_t number : next) {
    table += littleEndian<4>(number);
  }
  table.resize((table.size() + kSector - 1) / kSector * kSector, '\xFF');
  return table;
}

std::string directoryEntry(const std::string& name,
                           std::uint8_t type,
                           std::uint32_t right,
                           std::uint32_t child,
                           std::uint32_t start,
                           std::size_t size,
                           std::string identity = {}) {
  std::string wide;
  for (const char character : name) {
    wide += character;
    wide += '\0';
  }
  constexpr std::size_t kNameRoom = 64;
  constexpr std::size_t kIdentityAndTimes = 36;
  identity.resize(kIdentityAndTimes, '\0');
  const std::size_t length = name.empty() ? 0 : wide.size() + 2;
  wide.resize(kNameRoom, '\0');
  return wide + littleEndian<2>(length) + littleEndian<1>(type) + littleEndian<1>(1) +
         littleEndian<4>(kFree) + littleEndian<4>(right) + littleEndian<4>(child) + identity +
         littleEndian<4>(start) + littleEndian<8>(size);
}

std::string beginRecord(std::uint16_t type) {
  return xlsRecord(kBegin, littleEndian<2>(0x0600) + littleEndian<2>(type) + std::string(12, '\0'));
}

std::string endRecord() {
  return xlsRecord(kEnd, "");
}

}  // namespace

std::string compoundFile(const std::vector<std::pair<std::string, std::string>>& streams,
                         std::string identity) {
  Sectors sectors{kSector, {}, {}};
  Sectors shortSectors{kShortSector, {}, {}};
  std::string entries;
  for (std::size_t i = 0; i < streams.size(); ++i) {
    const auto& [name, content] = streams[i];
    const std::uint32_t start =
        content.size() < kShortLimit ? shortSectors.add(content) : sectors.add(content);
    const bool isLast = i + 1 == streams.size();
    entries += directoryEntry(
        name, 2, isLast ? kFree : static_cast<std::uint32_t>(i + 2), kFree, start, content.size());
  }
  const std::uint32_t shortStart = sectors.add(shortSectors.bytes);
  const std::string shortTable = tableOf(shortSectors.next);
  const std::uint32_t shortTableStart = sectors.add(shortTable);
  const std::string root = directoryEntry("Root Entry",
                                          5,
                                          kFree,
                                          streams.empty() ? kFree : 1,
                                          shortStart,
                                          shortSectors.bytes.size(),
                                          std::move(identity));
  const std::uint32_t directoryStart = sectors.add(padded(root + entries, kSector));

  // The table lists its own sectors too.
  constexpr std::size_t kNumbersInSector = kSector / 4;
  std::size_t tableCount = 1;
  while ((sectors.next.size() + tableCount) > tableCount * kNumbersInSector) {
    ++tableCount;
  }
  const auto tableStart = static_cast<std::uint32_t>(sectors.next.size());
  sectors.next.insert(sectors.next.end(), tableCount, kTableSector);

  std::string header =
      "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1" + std::string(16, '\0') + littleEndian<2>(0x3E) +
      littleEndian<2>(3) + littleEndian<2>(0xFFFE) + littleEndian<2>(9) + littleEndian<2>(6) +
      std::string(10, '\0') + littleEndian<4>(tableCount) + littleEndian<4>(directoryStart) +
      littleEndian<4>(0) + littleEndian<4>(kShortLimit) + littleEndian<4>(shortTableStart) +
      littleEndian<4>(shortTable.size() / kSector) + littleEndian<4>(kEndOfChain) +
      littleEndian<4>(0);
  for (std::uint32_t i = 0; i < tableCount; ++i) {
    header += littleEndian<4>(tableStart + i);
  }
  header.resize(kSector, '\xFF');
  return header + sectors.bytes + tableOf(sectors.next);
}

std::string binaryWorkbookIdentity() {
  // {00020820-0000-0000-C000-000000000046}
  return littleEndian<4>(0x00020820) + std::string(4, '\0') + "\xC0" + std::string(6, '\0') +
         "\x46";
}

std::string xlsRecord(std::uint16_t kind, std::string_view bytes) {
  return littleEndian<2>(kind) + littleEndian<2>(bytes.size()) + std::string(bytes);
}

std::string xlsNarrowText(std::string_view ascii) {
  return littleEndian<2>(ascii.size()) + littleEndian<1>(0) + std::string(ascii);
}

std::string xlsWideText(std::string_view utf16) {
  return littleEndian<2>(utf16.size() / 2) + littleEndian<1>(1) + std::string(utf16);
}

BinaryWorkbook& BinaryWorkbook::global(std::uint16_t kind, std::string_view bytes) {
  globals_ += xlsRecord(kind, bytes);
  return *this;
}

BinaryWorkbook& BinaryWorkbook::sharedTexts(const std::vector<std::string>& texts) {
  std::string bytes = littleEndian<4>(texts.size()) + littleEndian<4>(texts.size());
  for (const std::string& text : texts) {
    bytes += text;
  }
  return global(kSharedTextsRecord, bytes);
}

BinaryWorkbook& BinaryWorkbook::sheet(std::string records, std::uint8_t type) {
  sheets_.push_back({std::move(records), type});
  return *this;
}

std::string BinaryWorkbook::stream() const {
  const std::string name = littleEndian<1>(1) + littleEndian<1>(0) + "S";
  const std::size_t sheetRecordSize = xlsRecord(kSheetRecord, std::string(6, '\0') + name).size();
  const std::string begin = beginRecord(5);
  std::size_t position =
      begin.size() + globals_.size() + sheets_.size() * sheetRecordSize + endRecord().size();
  std::string list;
  std::string contents;
  for (const Sheet& sheet : sheets_) {
    list += xlsRecord(kSheetRecord,
                      littleEndian<4>(position + contents.size()) + littleEndian<1>(0) +
                          littleEndian<1>(sheet.type) + name);
    contents += beginRecord(0x10) + sheet.records + endRecord();
  }
  return begin + globals_ + list + endRecord() + contents;
}

std::string xlsCell(std::uint16_t row, std::uint16_t column, std::uint16_t style) {
  return littleEndian<2>(row) + littleEndian<2>(column) + littleEndian<2>(style);
}

std::string xlsNumber(std::uint16_t row, std::uint16_t column, double value, std::uint16_t style) {
  return xlsRecord(
      0x0203, xlsCell(row, column, style) + littleEndian<8>(std::bit_cast<std::uint64_t>(value)));
}

std::string xlsText(std::uint16_t row, std::uint16_t column, std::string_view ascii) {
  return xlsRecord(0x0204, xlsCell(row, column) + xlsNarrowText(ascii));
}

std::string xlsSharedText(std::uint16_t row, std::uint16_t column, std::uint32_t number) {
  return xlsRecord(0x00FD, xlsCell(row, column) + littleEndian<4>(number));
}

}  // namespace quorbind::testing
