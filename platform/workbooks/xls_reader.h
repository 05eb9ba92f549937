#pragma once

#include <string_view>

#include "platform/workbooks/workbook_texts.h"

namespace quorbind {

/// Reads a binary workbook (`.xls`) as Excel 97 and later save it. `bytes` is the stream of its
/// records. Throws WorkbookRefusal.
WorkbookTexts readXls(std::string_view bytes);

}  // namespace quorbind
