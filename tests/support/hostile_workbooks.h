#pragma once

#include <string>

#include "tests/support/workbook_bytes.h"

namespace quorbind::testing {

// Files that no reader may take for a workbook.

/// As spreadsheet programs lock one with a password.
std::string encryptedWorkbook();
/// A small packed file, a sheet of which unpacks to 8 MB of nothing.
std::string bombOfSpaces();
/// A small file whose cells all display one long text, 280 MB and more of it.
std::string bombOfSharedTexts(WorkbookKind kind);

}  // namespace quorbind::testing
