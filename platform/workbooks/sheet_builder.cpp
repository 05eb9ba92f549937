#include "platform/workbooks/sheet_builder.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "platform/workbooks/workbook_refusal.h"

namespace quorbind {

void SheetBuilder::beginSheet(std::size_t index) {
  sheet_ = index;
  texts_.sheets.resize(std::max(texts_.sheets.size(), index + 1));
}

void SheetBuilder::endSheet() {
  texts_.sheets[sheet_].finish();
}

void SheetBuilder::number(const CellPlace& place, double value) {
  if (!std::isfinite(value)) {
    error(place, "#NUM!");
    return;
  }
  put(place, texts_.pool.keep(formats_.ofStyle(place.style).display(value, dates_)));
}

void SheetBuilder::boolean(const CellPlace& place, bool value) {
  put(place, texts_.pool.keep(value ? "TRUE" : "FALSE"));
}

void SheetBuilder::error(const CellPlace& place, std::string_view name) {
  put(place, texts_.pool.keep(name));
}

void SheetBuilder::text(const CellPlace& place, std::string_view value) {
  const NumberFormat& format = formats_.ofStyle(place.style);
  put(place, texts_.pool.keep(format.leavesTexts() ? value : format.display(value)));
}

void SheetBuilder::text(const CellPlace& place, TextSpan shared) {
  const NumberFormat& format = formats_.ofStyle(place.style);
  if (format.leavesTexts()) {
    put(place, shared);
    return;
  }
  const std::string_view value = texts_.pool.text(shared);
  const std::string shown = format.display(value);
  put(place, shown == value ? shared : texts_.pool.keep(shown));
}

void SheetBuilder::put(const CellPlace& place, TextSpan span) {
  displayed_ += span.size;
  if (displayed_ > kMostDisplayedText) {
    throw WorkbookRefusal("The cells display more text than those of a workbook may.");
  }
  if (span.size > 0) {
    texts_.sheets[sheet_].put(place.row, place.column, span);
  }
}

}  // namespace quorbind
