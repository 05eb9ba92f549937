#include "platform/workbooks/xls_sheet.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/workbooks/workbook_refusal.h"

namespace quorbind {

namespace {

// Places in the records of cells.
constexpr std::size_t kRowAt = 0;
constexpr std::size_t kColumnAt = 2;
constexpr std::size_t kStyleAt = 4;
constexpr std::size_t kValueAt = 6;
constexpr std::size_t kErrorFlagAt = 7;
/// Of a packed row of numbers: each has a style and a number, and the last column follows.
constexpr std::size_t kPackedRowAt = 4;
constexpr std::size_t kPackedSize = 6;
constexpr std::size_t kPackedNumberAt = 2;
/// Of a formula: two bytes behind its value tell that the value is no number.
constexpr std::size_t kNoNumberAt = 12;
constexpr unsigned kNoNumber = 0xFFFF;
constexpr std::size_t kFormulaValueAt = 8;

std::string_view errorName(unsigned code) {
  switch (code) {
    case 0x00:
      return "#NULL!";
    case 0x07:
      return "#DIV/0!";
    case 0x0F:
      return "#VALUE!";
    case 0x17:
      return "#REF!";
    case 0x1D:
      return "#NAME?";
    case 0x24:
      return "#NUM!";
    default:
      return "#N/A";
  }
}

/// A number in 30 bits: a whole one, or the upper half of one in 64; perhaps a hundred times as
/// large.
double unpackedNumber(std::uint32_t packed) {
  constexpr std::uint32_t kHundredfold = 1;
  constexpr std::uint32_t kWhole = 2;
  constexpr unsigned kFlagBits = 2;
  constexpr unsigned kHalf = 32;
  const double value =
      (packed & kWhole) != 0
          ? static_cast<double>(static_cast<std::int32_t>(packed) >> kFlagBits)
          : std::bit_cast<double>(std::uint64_t{packed & ~std::uint32_t{3}} << kHalf);
  return (packed & kHundredfold) != 0 ? value / 100 : value;
}

class SheetReader {
 public:
  SheetReader(const std::vector<TextSpan>& shared, SheetBuilder& builder)
      : shared_(shared), builder_(builder) {}

  void read(const XlsRecord& record) {
    switch (record.kind) {
      case XlsRecordKind::kNumber:
        builder_.number(placeIn(record), record.view().doubleAt(kValueAt));
        break;
      case XlsRecordKind::kPackedNumber:
        builder_.number(placeIn(record), unpackedNumber(record.view().longAt(kValueAt)));
        break;
      case XlsRecordKind::kPackedNumbers:
        readPackedNumbers(record);
        break;
      case XlsRecordKind::kSharedText:
        readSharedText(record);
        break;
      case XlsRecordKind::kText:
      case XlsRecordKind::kRichText:
        builder_.text(placeIn(record), XlsRecordText(record, kValueAt).text());
        break;
      case XlsRecordKind::kBooleanOrError:
        readBooleanOrError(record);
        break;
      case XlsRecordKind::kFormula:
        readFormula(record);
        break;
      case XlsRecordKind::kFormulaText:
        readFormulaText(record);
        break;
      default:
        break;
    }
  }

 private:
  static CellPlace placeIn(const XlsRecord& record) {
    const ByteView view = record.view();
    return {.row = view.shortAt(kRowAt) + 1,
            .column = view.shortAt(kColumnAt) + 1,
            .style = view.shortAt(kStyleAt)};
  }

  void readPackedNumbers(const XlsRecord& record) {
    const ByteView view = record.view();
    CellPlace place = placeIn(record);
    for (std::size_t at = kPackedRowAt; at + kPackedSize < view.size(); at += kPackedSize) {
      place.style = view.shortAt(at);
      builder_.number(place, unpackedNumber(view.longAt(at + kPackedNumberAt)));
      ++place.column;
    }
  }

  void readSharedText(const XlsRecord& record) {
    const std::size_t number = record.view().longAt(kValueAt);
    if (number >= shared_.size()) {
      throw WorkbookRefusal("A cell names a text that the workbook does not have.");
    }
    builder_.text(placeIn(record), shared_[number]);
  }

  void readBooleanOrError(const XlsRecord& record) {
    const ByteView view = record.view();
    const unsigned value = view.byteAt(kValueAt);
    if (view.byteAt(kErrorFlagAt) != 0) {
      builder_.error(placeIn(record), errorName(value));
    } else {
      builder_.boolean(placeIn(record), value != 0);
    }
  }

  void readFormula(const XlsRecord& record) {
    enum Value : unsigned { kTextFollows = 0, kBoolean = 1, kError = 2 };
    const ByteView view = record.view();
    const CellPlace place = placeIn(record);
    if (view.shortAt(kNoNumberAt) != kNoNumber) {
      builder_.number(place, view.doubleAt(kValueAt));
      return;
    }
    const unsigned value = view.byteAt(kFormulaValueAt);
    switch (view.byteAt(kValueAt)) {
      case kTextFollows:
        formula_ = place;
        break;
      case kBoolean:
        builder_.boolean(place, value != 0);
        break;
      case kError:
        builder_.error(place, errorName(value));
        break;
      default:
        break;
    }
  }

  void readFormulaText(const XlsRecord& record) {
    if (formula_) {
      builder_.text(*formula_, XlsRecordText(record, 0).text());
      formula_.reset();
    }
  }

  const std::vector<TextSpan>& shared_;
  SheetBuilder& builder_;
  /// The cell of a formula whose text has not come yet.
  std::optional<CellPlace> formula_;
};

}  // namespace

void readXlsSheet(XlsRecordReader& records,
                  const std::vector<TextSpan>& shared,
                  SheetBuilder& builder) {
  SheetReader reader(shared, builder);
  if (records.next().kind != XlsRecordKind::kBegin) {
    throw WorkbookRefusal("A sheet is not where the workbook says that it is.");
  }
  // Charts stand inside a sheet, between a beginning and an end of their own.
  for (int depth = 1; depth > 0;) {
    const XlsRecord record = records.next();
    if (record.kind == XlsRecordKind::kBegin) {
      ++depth;
    } else if (record.kind == XlsRecordKind::kEnd) {
      --depth;
    } else if (depth == 1) {
      reader.read(record);
    }
  }
}

}  // namespace quorbind
