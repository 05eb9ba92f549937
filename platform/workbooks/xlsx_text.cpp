#include "platform/workbooks/xlsx_text.h"

#include <charconv>
#include <cstddef>

#include "platform/text_encoding.h"
#include "platform/workbooks/workbook_refusal.h"
#include "platform/workbooks/workbook_texts.h"

namespace quorbind {

namespace {

constexpr std::string_view kText = "t";
constexpr std::string_view kReadingAid = "rPh";

constexpr std::string_view kEscapeBegin = "_x";
constexpr std::size_t kEscapeDigits = 4;
constexpr std::size_t kEscapeLength = kEscapeBegin.size() + kEscapeDigits + 1;

/// The code unit that `text` begins with an escape of; -1 when it does not begin with one.
int escapedUnit(std::string_view text) {
  if (text.size() < kEscapeLength || !text.starts_with(kEscapeBegin) ||
      text[kEscapeLength - 1] != '_') {
    return -1;
  }
  const char* const begin = text.data() + kEscapeBegin.size();
  unsigned unit = 0;
  constexpr int kHexadecimal = 16;
  const auto read = std::from_chars(begin, begin + kEscapeDigits, unit, kHexadecimal);
  return read.ptr == begin + kEscapeDigits ? static_cast<int>(unit) : -1;
}

bool isSurrogate(int unit) {
  return unit >= 0xD800 && unit <= 0xDFFF;
}

}  // namespace

void XlsxText::startElement(std::string_view name) {
  aids_ += name == kReadingAid ? 1 : 0;
  isInText_ = name == kText;
}

void XlsxText::text(std::string_view text) {
  if (isInText_ && aids_ == 0) {
    appendToCellText(text_, text);
  }
}

void XlsxText::endElement(std::string_view name) {
  aids_ -= name == kReadingAid ? 1 : 0;
  isInText_ = false;
}

std::string XlsxText::value() const {
  return withXlsxEscapesResolved(text_);
}

void XlsxText::clear() {
  text_.clear();
}

std::string withXlsxEscapesResolved(std::string_view text) {
  std::string result;
  std::size_t done = 0;
  for (std::size_t found = text.find(kEscapeBegin); found != std::string_view::npos;
       found = text.find(kEscapeBegin, found)) {
    const int unit = escapedUnit(text.substr(found));
    if (unit < 0) {
      ++found;
      continue;
    }
    result.append(text.substr(done, found - done));
    appendUtf8(result, isSurrogate(unit) ? U'\xFFFD' : static_cast<char32_t>(unit));
    found += kEscapeLength;
    done = found;
  }
  return result.append(text.substr(done));
}

void appendToCellText(std::string& text, std::string_view piece) {
  // An escape takes more room than what it stands for.
  constexpr std::size_t kMost = kLongestCellText * kEscapeLength;
  if (text.size() + piece.size() > kMost) {
    throw WorkbookRefusal("A text is longer than a cell can hold.");
  }
  text += piece;
}

}  // namespace quorbind
