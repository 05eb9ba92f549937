#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/line_place.h"
#include "cli/workbook_survey.h"
#include "platform/portable/terminal_user_interface.h"

// What is told beside the component's boxes so that a table of contents can be mended at once: the
// line at fault with a mark under it, and what would be accepted.

namespace quorbind {

/// Of a run whose last box refused something at `place`; `line` is the text of the line. To be
/// printed: lines ended by LF, or nothing where nothing is known.
std::string helpWith(const std::vector<ShownMessage>& boxes,
                     const LinePlace& place,
                     const std::optional<std::string>& line);

/// Shows the box of each rule that a workbook breaks, and under it the place, the cell and what
/// would be accepted. `name` is the user's name for the workbook.
void tellViolations(UserInterface& ui,
                    const std::string& name,
                    const std::vector<WorkbookViolation>& violations);

}  // namespace quorbind
