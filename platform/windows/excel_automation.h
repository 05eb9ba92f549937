#pragma once

#include <memory>
#include <string_view>

#include "platform/spreadsheets.h"
#include "platform/windows/com_types.h"

namespace quorbind {

/// Whether the spreadsheet program is installed whose objects these adapters know.
bool isExcelInstalled();

/// Workbooks through the program that is registered for their files: a workbook is the object that
/// the system gives for the file's name, and everything about it is asked late bound. The program
/// runs unseen as long as something of the workbook is kept, and ends by itself afterwards, unless
/// the user had it open. The thread has entered COM.
///
/// The file is bound for reading only. What else happens while it is opened, such as macros and
/// links to other files, is up to the program's own settings: this way of opening has no say in it.
class ExcelSpreadsheets final : public Spreadsheets {
 public:
  std::unique_ptr<Workbook> open(std::string_view path) override;
};

/// A worksheet object that a host handed in. Raises 91 for none.
std::unique_ptr<Worksheet> wrapWorksheet(ComPtr<IDispatch> sheet);

}  // namespace quorbind
