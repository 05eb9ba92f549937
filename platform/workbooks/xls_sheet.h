#pragma once

#include <vector>

#include "platform/workbooks/sheet_builder.h"
#include "platform/workbooks/xls_records.h"

namespace quorbind {

/// Reads the cells of one sheet of a binary workbook; `records` stands at its beginning and
/// afterwards behind its end. `shared` are the texts that cells name by their number.
void readXlsSheet(XlsRecordReader& records,
                  const std::vector<TextSpan>& shared,
                  SheetBuilder& builder);

}  // namespace quorbind
