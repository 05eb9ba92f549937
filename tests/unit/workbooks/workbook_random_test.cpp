// Random sheets as files of both kinds, in all the ways in which a cell can be written: what is
// read is what went in, in both.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/text.h"
#include "platform/text_encoding.h"
#include "tests/support/binary_workbook.h"
#include "tests/support/little_endian.h"
#include "tests/support/packed_file.h"
#include "tests/support/random_choices.h"
#include "tests/unit/workbooks/workbook_reading.h"

namespace quorbind::testing {
namespace {

struct Cell {
  enum class Kind { kText, kNumber, kBoolean, kError };
  Kind kind = Kind::kText;
  /// Of a number.
  int hundredths = 0;
  /// What it displays.
  std::string text;
};

/// Cells by row and column, both counted from 0.
using Sheet = std::map<std::pair<unsigned, unsigned>, Cell>;

constexpr unsigned kMostColumns = 30;

std::string displayed(int hundredths) {
  std::string digits = std::to_string(std::abs(hundredths));
  digits.insert(0, digits.size() < 3 ? 3 - digits.size() : 0, '0');
  digits.insert(digits.size() - 2, ".");
  digits.resize(digits.find_last_not_of('0') + 1);
  digits.resize(digits.size() - (digits.ends_with('.') ? 1 : 0));
  return (hundredths < 0 ? "-" : "") + digits;
}

std::string utf16Of(const std::string& text) {
  std::string utf16;
  appendUtf16LittleEndian(utf16, text);
  return utf16;
}

bool isNarrow(const std::string& text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c > 0; });
}

const std::map<std::string, char>& errorCodes() {
  static const std::map<std::string, char> codes{{"#NULL!", '\x00'},
                                                 {"#DIV/0!", '\x07'},
                                                 {"#VALUE!", '\x0F'},
                                                 {"#REF!", '\x17'},
                                                 {"#NAME?", '\x1D'},
                                                 {"#NUM!", '\x24'},
                                                 {"#N/A", '\x2A'}};
  return codes;
}

/// Writes sheets as a packed workbook.
class PackedWriter {
 public:
  explicit PackedWriter(RandomChoices& random) : random_(random) {}

  std::string bytes(const std::vector<Sheet>& sheets) {
    PackedWorkbook book;
    for (const Sheet& sheet : sheets) {
      book.sheet(rowsOf(sheet));
    }
    return book.sharedTexts(shared_ + "<si/>").bytes();
  }

 private:
  /// Cells and rows say where they stand, unless they follow the ones before.
  std::string rowsOf(const Sheet& sheet) {
    std::string rows;
    unsigned nextRow = 0;
    unsigned nextColumn = 0;
    for (const auto& [place, cell] : sheet) {
      const auto [row, column] = place;
      if (rows.empty() || row >= nextRow) {
        rows += rows.empty() ? "" : "</row>";
        rows += row == nextRow && random_.oneIn(2) ? "<row>"
                                                   : "<row r=\"" + std::to_string(row + 1) + "\">";
        nextRow = row + 1;
        nextColumn = 0;
      }
      const bool isNamed = column != nextColumn || random_.oneIn(2);
      rows +=
          "<c" + (isNamed ? " r=\"" + nameOf(row, column) + "\"" : "") + contentOf(cell) + "</c>";
      nextColumn = column + 1;
    }
    return rows + (rows.empty() ? "" : "</row>");
  }

  static std::string nameOf(unsigned row, unsigned column) {
    constexpr unsigned kLetters = 26;
    const std::string first = column < kLetters ? "" : "A";
    return first + static_cast<char>('A' + column % kLetters) + std::to_string(row + 1);
  }

  /// The rest of the start tag and what is in the element.
  std::string contentOf(const Cell& cell) {
    switch (cell.kind) {
      case Cell::Kind::kNumber:
        return "><v>" + cell.text + (random_.oneIn(4) ? "e0" : "") + "</v>";
      case Cell::Kind::kBoolean:
        return std::string(" t=\"b\"><v>") + (cell.text == "TRUE" ? "1" : "0") + "</v>";
      case Cell::Kind::kError:
        return " t=\"e\"><v>" + cell.text + "</v>";
      case Cell::Kind::kText:
        break;
    }
    switch (random_.below(3)) {
      case 0:
        return " t=\"inlineStr\"><is>" + runsOf(cell.text) + "</is>";
      case 1:
        return " t=\"str\"><f>A1</f><v xml:space=\"preserve\">" + escaped(cell.text) + "</v>";
      default:
        shared_ += "<si>" + runsOf(cell.text) + "</si>";
        return " t=\"s\"><v>" + std::to_string(sharedCount_++) + "</v>";
    }
  }

  /// As one text or as two runs of a rich one, perhaps with a reading aid behind them.
  std::string runsOf(const std::string& text) {
    const auto element = [](const std::string& part) {
      return "<t xml:space=\"preserve\">" + escaped(part) + "</t>";
    };
    const std::size_t half = isNarrow(text) ? text.size() / 2 : 0;
    const std::string runs = random_.oneIn(2) ? element(text)
                                              : "<r>" + element(text.substr(0, half)) + "</r><r>" +
                                                    element(text.substr(half)) + "</r>";
    return runs + (random_.oneIn(4) ? "<rPh><t>aid</t></rPh>" : "");
  }

  static std::string escaped(const std::string& text) {
    return replaceAll(replaceAll(text, "&", "&amp;"), "<", "&#60;");
  }

  RandomChoices& random_;
  std::string shared_;
  int sharedCount_ = 0;
};

/// Writes sheets as a binary workbook.
class BinaryWriter {
 public:
  explicit BinaryWriter(RandomChoices& random) : random_(random) {}

  std::string bytes(const std::vector<Sheet>& sheets) {
    std::vector<std::string> records;
    for (const Sheet& sheet : sheets) {
      records.push_back(recordsOf(sheet));
    }
    BinaryWorkbook book;
    addSharedTexts(book);
    for (const std::string& each : records) {
      book.sheet(each);
    }
    return book.bytes();
  }

 private:
  std::string recordsOf(const Sheet& sheet) {
    std::string records;
    for (auto cell = sheet.begin(); cell != sheet.end();) {
      const auto packed = packedNumbersFrom(cell, sheet);
      if (packed.size() > 1) {
        records += packedRecord(cell->first, packed);
        std::advance(cell, packed.size());
      } else {
        records += recordOf(cell->first, cell->second);
        ++cell;
      }
    }
    return records;
  }

  /// The numbers that stand beside each other from `cell` on, if they are to be written as one.
  std::vector<int> packedNumbersFrom(Sheet::const_iterator cell, const Sheet& sheet) {
    std::vector<int> numbers;
    const auto [row, column] = cell->first;
    for (; cell != sheet.end() && cell->second.kind == Cell::Kind::kNumber; ++cell) {
      if (cell->first != std::pair(row, column + static_cast<unsigned>(numbers.size()))) {
        break;
      }
      numbers.push_back(cell->second.hundredths);
    }
    return random_.oneIn(3) ? std::vector<int>() : numbers;
  }

  /// In 30 bits: as hundredths.
  static std::string packed(int hundredths) {
    return littleEndian<4>((static_cast<std::uint32_t>(hundredths) << 2U) | 3U);
  }

  static std::string placeOf(const std::pair<unsigned, unsigned>& place) {
    return xlsCell(static_cast<std::uint16_t>(place.first),
                   static_cast<std::uint16_t>(place.second));
  }

  static std::string packedRecord(const std::pair<unsigned, unsigned>& place,
                                  const std::vector<int>& numbers) {
    std::string bytes = littleEndian<2>(place.first) + littleEndian<2>(place.second);
    for (const int number : numbers) {
      bytes += littleEndian<2>(0) + packed(number);
    }
    return xlsRecord(0x00BD, bytes + littleEndian<2>(place.second + numbers.size() - 1));
  }

  std::string recordOf(const std::pair<unsigned, unsigned>& place, const Cell& cell) {
    const std::string begin = placeOf(place);
    switch (cell.kind) {
      case Cell::Kind::kNumber:
        return random_.oneIn(2) ? xlsRecord(0x027E, begin + packed(cell.hundredths))
                                : xlsNumber(static_cast<std::uint16_t>(place.first),
                                            static_cast<std::uint16_t>(place.second),
                                            cell.hundredths / 100.0);
      case Cell::Kind::kBoolean:
        return valueRecord(begin, cell.text == "TRUE" ? '\1' : '\0', '\0');
      case Cell::Kind::kError:
        return valueRecord(begin, errorCodes().at(cell.text), '\1');
      case Cell::Kind::kText:
        break;
    }
    switch (random_.below(3)) {
      case 0:
        return xlsRecord(0x0204, begin + textOf(cell.text));
      case 1:
        return xlsRecord(0x0006, begin + formulaValue(0, '\0')) +
               xlsRecord(0x0207, textOf(cell.text));
      default:
        shared_.push_back(cell.text);
        return xlsRecord(0x00FD, begin + littleEndian<4>(shared_.size() - 1));
    }
  }

  /// A boolean or an error, as it stands or as what a formula gave.
  std::string valueRecord(const std::string& begin, char value, char isError) {
    return random_.oneIn(2) ? xlsRecord(0x0205, begin + value + isError)
                            : xlsRecord(0x0006, begin + formulaValue(1 + isError, value));
  }

  static std::string formulaValue(int kind, char value) {
    return std::string{static_cast<char>(kind), '\0', value, '\0', '\0', '\0', '\xFF', '\xFF'} +
           std::string(8, '\0');
  }

  std::string textOf(const std::string& text) {
    return isNarrow(text) && random_.oneIn(2) ? xlsNarrowText(text) : xlsWideText(utf16Of(text));
  }

  /// In one record and others that continue it, cut between characters and in front of texts.
  void addSharedTexts(BinaryWorkbook& book) {
    std::vector<std::string> parts{littleEndian<4>(shared_.size()) +
                                   littleEndian<4>(shared_.size())};
    for (const std::string& text : shared_) {
      if (random_.oneIn(5)) {
        parts.emplace_back();
      }
      addSharedText(parts, text);
    }
    for (std::size_t i = 0; i < parts.size(); ++i) {
      book.global(i == 0 ? 0x00FC : 0x003C, parts[i]);
    }
  }

  void addSharedText(std::vector<std::string>& parts, const std::string& text) {
    const std::string utf16 = utf16Of(text);
    bool isWide = !isNarrow(text) || random_.oneIn(2);
    parts.back() += littleEndian<2>(utf16.size() / 2) + littleEndian<1>(isWide ? 1 : 0);
    for (std::size_t at = 0; at < utf16.size(); at += 2) {
      if (at > 0 && random_.oneIn(12)) {
        isWide = !isNarrow(text) || random_.oneIn(2);
        parts.push_back(littleEndian<1>(isWide ? 1 : 0));
      }
      parts.back() += utf16.substr(at, isWide ? 2 : 1);
    }
  }

  RandomChoices& random_;
  std::vector<std::string> shared_;
};

class RandomWorkbooks : public ::testing::Test {
 protected:
  std::vector<Sheet> sheets() {
    std::vector<Sheet> sheets(1 + random_.below(3));
    for (Sheet& sheet : sheets) {
      const unsigned rows = 1 + static_cast<unsigned>(random_.below(20));
      for (std::size_t count = random_.below(60); count > 0; --count) {
        const std::pair place{static_cast<unsigned>(random_.below(rows)),
                              static_cast<unsigned>(random_.below(kMostColumns))};
        sheet[place] = cell();
      }
    }
    return sheets;
  }

  /// Holds what is read against what went in, cell by cell, with the empty ones among them.
  void expectSheets(const std::string& bytes, const std::vector<Sheet>& sheets) {
    const WorkbookReading reading = reader_.read(bytes);
    ASSERT_TRUE(reading) << reading.reason;
    ASSERT_EQ(reading.texts->sheets.size(), sheets.size());
    for (std::size_t number = 0; number < sheets.size(); ++number) {
      const Sheet& sheet = sheets[number];
      const unsigned rows = sheet.empty() ? 1 : sheet.rbegin()->first.first + 2;
      for (unsigned row = 0; row < rows; ++row) {
        for (unsigned column = 0; column <= kMostColumns; ++column) {
          const auto cell = sheet.find({row, column});
          ASSERT_EQ(reading.texts->cellText(number,
                                            static_cast<std::int32_t>(row + 1),
                                            static_cast<std::int32_t>(column + 1)),
                    cell == sheet.end() ? "" : cell->second.text)
              << "sheet " << number + 1 << ", row " << row + 1 << ", column " << column + 1;
        }
      }
    }
  }

  RandomChoices random_{20260102};

 private:
  Cell cell() {
    switch (random_.below(6)) {
      case 0:
        return {.kind = Cell::Kind::kBoolean, .text = random_.textOf({"TRUE", "FALSE"}, 1)};
      case 1:
        return {.kind = Cell::Kind::kError,
                .text = std::next(errorCodes().begin(),
                                  static_cast<std::ptrdiff_t>(random_.below(errorCodes().size())))
                            ->first};
      case 2:
      case 3: {
        const int hundredths = static_cast<int>(random_.below(2'000'000)) - 1'000'000;
        const int number = random_.oneIn(2) ? hundredths / 1000 * 100 : hundredths;
        return {.kind = Cell::Kind::kNumber, .hundredths = number, .text = displayed(number)};
      }
      default:
        return {.text = random_.textOf({"a",
                                        "Pump",
                                        " ",
                                        "&",
                                        "<",
                                        "12",
                                        "_x",
                                        "\n",
                                        "\u00E4",
                                        "\u76EE",
                                        "\U0001F4A7",
                                        "\"",
                                        "TRUE"},
                                       random_.below(9))};
    }
  }

  WorkbookReader reader_;
};

TEST_F(RandomWorkbooks, OfBothKindsShowWhatTheyWereMadeOf) {
  for (int round = 0; round < 60 && !HasFailure(); ++round) {
    const std::vector<Sheet> made = sheets();
    {
      SCOPED_TRACE("packed, round " + std::to_string(round));
      expectSheets(PackedWriter(random_).bytes(made), made);
    }
    {
      SCOPED_TRACE("binary, round " + std::to_string(round));
      expectSheets(BinaryWriter(random_).bytes(made), made);
    }
  }
}

}  // namespace
}  // namespace quorbind::testing
