#pragma once

#include <stdexcept>
#include <string>

namespace quorbind {

/// Ends the reading of a workbook: the file is damaged, of another kind, or beyond a limit. It says
/// why in one sentence, and never leaves `readWorkbookFile`.
class WorkbookRefusal : public std::runtime_error {
 public:
  explicit WorkbookRefusal(const std::string& reason) : std::runtime_error(reason) {}
};

}  // namespace quorbind
