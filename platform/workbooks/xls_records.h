#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/workbooks/byte_view.h"

namespace quorbind {

/// The kinds of records of a binary workbook that matter here, by their numbers.
enum class XlsRecordKind : std::uint16_t {
  kFormula = 0x0006,
  kEnd = 0x000A,
  kDateMode = 0x0022,
  kEncrypted = 0x002F,
  kContinue = 0x003C,
  kSheet = 0x0085,
  kPackedNumbers = 0x00BD,
  kRichText = 0x00D6,
  kStyle = 0x00E0,
  kSharedTexts = 0x00FC,
  kSharedText = 0x00FD,
  kNumber = 0x0203,
  kText = 0x0204,
  kBooleanOrError = 0x0205,
  kFormulaText = 0x0207,
  kPackedNumber = 0x027E,
  kFormat = 0x041E,
  kBegin = 0x0809,
};

/// One record. What did not fit into it follows in continuing records, which are kept apart,
/// because a text that is cut there says anew how it is written.
struct XlsRecord {
  XlsRecordKind kind;
  std::vector<std::string_view> parts;

  /// The bytes of the record itself.
  [[nodiscard]] ByteView view() const { return ByteView(parts.front()); }
};

/// Reads the records of a binary workbook one by one.
class XlsRecordReader {
 public:
  /// `bytes` outlives the reader; reading begins at `position`.
  XlsRecordReader(std::string_view bytes, std::size_t position)
      : bytes_(bytes), position_(position) {}

  /// Where the next record begins.
  [[nodiscard]] std::size_t position() const { return position_; }
  [[nodiscard]] bool atEnd() const { return position_ >= bytes_.size(); }
  /// Throws WorkbookRefusal when it is cut off.
  XlsRecord next();

 private:
  [[nodiscard]] XlsRecordKind nextKind() const;
  std::string_view nextPart();

  ByteView bytes_;
  std::size_t position_;
};

/// Reads what a record holds from its beginning to its end, over the bounds of its parts.
class XlsRecordText {
 public:
  /// Reading begins at `position` of the first part. The record outlives this.
  XlsRecordText(const XlsRecord& record, std::size_t position);

  [[nodiscard]] bool atEnd();
  [[nodiscard]] std::uint8_t byte();
  [[nodiscard]] std::uint16_t shortNumber();
  [[nodiscard]] std::uint32_t longNumber();
  /// A text with its length in front of it, in UTF-8, and whatever decorates it left out. Throws
  /// WorkbookRefusal when it is cut off or longer than a cell can hold.
  [[nodiscard]] std::string text();

 private:
  [[nodiscard]] std::string_view unread();
  [[nodiscard]] std::string characters(std::size_t count, bool isWide);
  void skip(std::size_t count);

  const std::vector<std::string_view>& parts_;
  std::size_t part_ = 0;
  std::size_t position_;
};

}  // namespace quorbind
