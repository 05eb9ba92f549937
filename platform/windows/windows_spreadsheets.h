#pragma once

#include <memory>
#include <string_view>

#include "platform/file_system.h"
#include "platform/spreadsheets.h"
#include "platform/windows/excel_automation.h"
#include "platform/workbooks/file_spreadsheets.h"
#include "platform/xml_document.h"

namespace quorbind {

/// Workbooks as this machine can read them: through the spreadsheet program where it is installed,
/// else from their files.
class WindowsSpreadsheets final : public Spreadsheets {
 public:
  /// Both are kept by reference.
  WindowsSpreadsheets(FileSystem& files, XmlLibrary& xml) : files_(files, xml) {}

  std::unique_ptr<Workbook> open(std::string_view path) override {
    return isExcelInstalled() ? excel_.open(path) : files_.open(path);
  }

 private:
  ExcelSpreadsheets excel_;
  FileSpreadsheets files_;
};

}  // namespace quorbind
