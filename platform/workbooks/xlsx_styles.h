#pragma once

#include <string_view>

#include "platform/workbooks/cell_formats.h"
#include "platform/workbooks/xlsx_package.h"

namespace quorbind {

/// Reads the number formats of a workbook's styles.
CellFormats readXlsxStyles(XlsxPackage& package, std::string_view part);

}  // namespace quorbind
