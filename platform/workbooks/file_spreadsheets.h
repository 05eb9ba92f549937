#pragma once

#include <memory>
#include <string_view>

#include "platform/file_system.h"
#include "platform/spreadsheets.h"
#include "platform/xml_document.h"

namespace quorbind {

/// Workbooks read from their files, without any program's help: packed XML and binary ones, shown
/// as a program set to English would. A workbook is read whole when it is opened.
class FileSpreadsheets final : public Spreadsheets {
 public:
  /// Both are kept by reference.
  FileSpreadsheets(FileSystem& files, XmlLibrary& xml) : files_(files), xml_(xml) {}

  std::unique_ptr<Workbook> open(std::string_view path) override;

 private:
  FileSystem& files_;
  XmlLibrary& xml_;
};

}  // namespace quorbind
