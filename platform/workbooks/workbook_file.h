#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/file_system.h"
#include "platform/workbooks/workbook_texts.h"
#include "platform/xml_document.h"

namespace quorbind {

/// How the reading of a workbook ended.
struct WorkbookReading {
  /// Null when the file could not be read as a workbook.
  std::shared_ptr<const WorkbookTexts> texts;
  /// Then why, in one sentence for the user.
  std::string reason;
  /// Then whether that is the file's fault, which could not be read, and not that of what is in it.
  bool isUnreadable = false;

  explicit operator bool() const { return texts != nullptr; }
};

/// Reads a workbook, packed XML or binary as its first bytes tell, whatever its name. Every sheet
/// is read to its end, so that nothing can fail later. Nothing is raised.
WorkbookReading readWorkbookFile(FileSystem& files, XmlLibrary& xml, std::string_view path);

}  // namespace quorbind
