#include "platform/workbooks/xlsx_sheet.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <optional>
#include <string>

#include "platform/text.h"
#include "platform/workbooks/workbook_refusal.h"
#include "platform/workbooks/xlsx_text.h"

namespace quorbind {

namespace {

/// Nothing for a text that is not a number through and through.
template <typename Number>
std::optional<Number> numberIn(std::string_view text) {
  const std::string_view digits = trimAnyOf(text, " \t\r\n");
  Number number{};
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  const bool isWhole = read.ec == std::errc() && read.ptr == digits.data() + digits.size();
  return isWhole ? std::optional(number) : std::nullopt;
}

/// The column that a cell's name (`AB12`) begins with; 0 when it names none.
std::int32_t columnIn(std::string_view cell) {
  constexpr std::int32_t kLetters = 26;
  std::int32_t column = 0;
  for (const char letter : cell) {
    if (letter < 'A' || letter > 'Z' || column > kMostColumns) {
      break;
    }
    column = column * kLetters + (letter - 'A' + 1);
  }
  return column;
}

/// Rows and cells that do not say where they stand follow the one before.
class SheetHandler final : public XmlScanHandler {
 public:
  SheetHandler(const std::vector<TextSpan>& shared, SheetBuilder& builder)
      : shared_(shared), builder_(builder) {}

  void startElement(std::string_view name, const XmlScanAttributes& attributes) override {
    const std::string_view local = localNameOf(name);
    if (local == "row") {
      const std::int32_t next = std::min(place_.row, kMostRows) + 1;
      place_.row = numberIn<std::int32_t>(attributes.value("r")).value_or(next);
      place_.column = 0;
    } else if (local == "c") {
      beginCell(attributes);
    } else if (local == "v") {
      isInValue_ = true;
    } else if (local == "is") {
      isInInline_ = true;
    } else if (isInInline_) {
      inline_.startElement(local);
    }
  }

  void text(std::string_view text) override {
    if (isInValue_) {
      appendToCellText(value_, text);
    } else if (isInInline_) {
      inline_.text(text);
    }
  }

  void endElement(std::string_view name) override {
    const std::string_view local = localNameOf(name);
    if (local == "c") {
      endCell();
    } else if (local == "v") {
      isInValue_ = false;
    } else if (local == "is") {
      isInInline_ = false;
    } else if (isInInline_) {
      inline_.endElement(local);
    }
  }

 private:
  void beginCell(const XmlScanAttributes& attributes) {
    const std::int32_t column = columnIn(attributes.value("r"));
    place_.column = column > 0 ? column : place_.column + 1;
    place_.style = numberIn<std::size_t>(attributes.value("s")).value_or(0);
    type_ = attributes.value("t");
    value_.clear();
    inline_.clear();
  }

  void endCell() {
    if (type_ == "inlineStr") {
      builder_.text(place_, inline_.value());
    } else if (type_ == "str") {
      builder_.text(place_, withXlsxEscapesResolved(value_));
    } else if (trimAnyOf(value_, " \t\r\n").empty()) {
      return;
    } else if (type_ == "s") {
      endSharedText();
    } else if (type_ == "b") {
      builder_.boolean(place_, numberIn<int>(value_).value_or(0) != 0);
    } else if (type_ == "e") {
      builder_.error(place_, value_);
    } else {
      endNumber();
    }
  }

  void endSharedText() {
    const auto number = numberIn<std::size_t>(value_);
    if (!number || *number >= shared_.size()) {
      throw WorkbookRefusal("A cell names a text that the workbook does not have.");
    }
    builder_.text(place_, shared_[*number]);
  }

  void endNumber() {
    if (const auto number = numberIn<double>(value_)) {
      builder_.number(place_, *number);
    } else {
      builder_.text(place_, value_);
    }
  }

  const std::vector<TextSpan>& shared_;
  SheetBuilder& builder_;
  CellPlace place_;
  std::string type_;
  std::string value_;
  XlsxText inline_;
  bool isInValue_ = false;
  bool isInInline_ = false;
};

}  // namespace

void readXlsxSheet(XlsxPackage& package,
                   std::string_view part,
                   const std::vector<TextSpan>& shared,
                   SheetBuilder& builder) {
  SheetHandler handler(shared, builder);
  package.scan(part, handler);
}

}  // namespace quorbind
