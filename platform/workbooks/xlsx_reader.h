#pragma once

#include <string_view>

#include "platform/workbooks/workbook_texts.h"
#include "platform/xml_document.h"

namespace quorbind {

/// Reads a workbook in packed XML (`.xlsx`, `.xlsm`). `bytes` is the whole file. Throws
/// WorkbookRefusal.
WorkbookTexts readXlsx(std::string_view bytes, XmlLibrary& xml);

}  // namespace quorbind
