#pragma once

#include <string_view>
#include <vector>

#include "platform/workbooks/sheet_builder.h"
#include "platform/workbooks/xlsx_package.h"

namespace quorbind {

/// Reads the cells of one sheet of a packed workbook. `shared` are the texts that cells name by
/// their number.
void readXlsxSheet(XlsxPackage& package,
                   std::string_view part,
                   const std::vector<TextSpan>& shared,
                   SheetBuilder& builder);

}  // namespace quorbind
