#include "platform/workbooks/xls_records.h"

#include <algorithm>

#include "platform/text_encoding.h"
#include "platform/workbooks/workbook_refusal.h"
#include "platform/workbooks/workbook_texts.h"

namespace quorbind {

namespace {

constexpr std::size_t kHeaderSize = 4;
constexpr std::size_t kLengthAt = 2;

// How a text is written.
constexpr unsigned kWide = 0x01;
constexpr unsigned kHasReadingAid = 0x04;
constexpr unsigned kHasRuns = 0x08;
constexpr std::size_t kRunSize = 4;

[[noreturn]] void refuseCutOff() {
  throw WorkbookRefusal("The workbook is damaged or cut off.");
}

/// Of units that are not wide the upper bytes are left out, which are 0.
void appendUnits(std::string& units, std::string_view characters, bool isWide) {
  if (isWide) {
    units.append(characters);
    return;
  }
  std::size_t at = units.size();
  units.resize(at + 2 * characters.size());
  for (const char character : characters) {
    units[at] = character;
    at += 2;
  }
}

}  // namespace

XlsRecord XlsRecordReader::next() {
  XlsRecord record{nextKind(), {nextPart()}};
  while (!atEnd() && nextKind() == XlsRecordKind::kContinue) {
    record.parts.push_back(nextPart());
  }
  return record;
}

XlsRecordKind XlsRecordReader::nextKind() const {
  return static_cast<XlsRecordKind>(bytes_.shortAt(position_));
}

std::string_view XlsRecordReader::nextPart() {
  const std::size_t length = bytes_.shortAt(position_ + kLengthAt);
  const std::string_view part = bytes_.part(position_ + kHeaderSize, length);
  position_ += kHeaderSize + length;
  return part;
}

XlsRecordText::XlsRecordText(const XlsRecord& record, std::size_t position)
    : parts_(record.parts), position_(position) {
  if (position > parts_.front().size()) {
    refuseCutOff();
  }
}

bool XlsRecordText::atEnd() {
  while (part_ < parts_.size() && position_ == parts_[part_].size()) {
    ++part_;
    position_ = 0;
  }
  return part_ == parts_.size();
}

std::uint8_t XlsRecordText::byte() {
  const auto value = static_cast<std::uint8_t>(unread().front());
  ++position_;
  return value;
}

std::uint16_t XlsRecordText::shortNumber() {
  const unsigned low = byte();
  const unsigned high = byte();
  constexpr unsigned kBitsOfByte = 8;
  return static_cast<std::uint16_t>(low | (high << kBitsOfByte));
}

std::uint32_t XlsRecordText::longNumber() {
  const std::uint32_t low = shortNumber();
  const std::uint32_t high = shortNumber();
  constexpr unsigned kBitsOfShort = 16;
  return low | (high << kBitsOfShort);
}

std::string XlsRecordText::text() {
  const std::size_t length = shortNumber();
  const unsigned flags = byte();
  const std::size_t runs = (flags & kHasRuns) != 0 ? shortNumber() : 0;
  const std::size_t aid = (flags & kHasReadingAid) != 0 ? longNumber() : 0;
  std::string text = characters(length, (flags & kWide) != 0);
  skip(runs * kRunSize);
  skip(aid);
  return text;
}

std::string_view XlsRecordText::unread() {
  if (atEnd()) {
    refuseCutOff();
  }
  return parts_[part_].substr(position_);
}

/// The characters are collected as UTF-16, because a pair of units may be cut.
std::string XlsRecordText::characters(std::size_t count, bool isWide) {
  std::string units;
  while (count > 0) {
    if (position_ == parts_[part_].size()) {
      isWide = (byte() & kWide) != 0;
    }
    const std::size_t width = isWide ? 2 : 1;
    const std::string_view rest = unread();
    const std::size_t here = std::min(count, rest.size() / width);
    if (here == 0) {
      refuseCutOff();
    }
    appendUnits(units, rest.substr(0, here * width), isWide);
    position_ += here * width;
    count -= here;
  }
  std::string text;
  appendUtf8FromUtf16(text, units, ByteOrder::kLittleEndian);
  if (text.size() > kLongestCellText) {
    throw WorkbookRefusal("A text is longer than a cell can hold.");
  }
  return text;
}

void XlsRecordText::skip(std::size_t count) {
  while (count > 0) {
    const std::size_t here = std::min(count, unread().size());
    position_ += here;
    count -= here;
  }
}

}  // namespace quorbind
