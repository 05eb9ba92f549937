#pragma once

#include <string>
#include <string_view>

namespace quorbind::testing {

/// Claims of a workbook's file what must hold of any: that reading it gives a text or a reason,
/// twice the same; and of a library that its books are added to that it stays whole.
void claimWorkbookIsRead(const std::string& bytes, std::string_view name);

}  // namespace quorbind::testing
