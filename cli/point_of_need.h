#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/exit_status.h"
#include "cli/line_place.h"
#include "cli/workbook_survey.h"
#include "platform/portable/terminal_user_interface.h"

// What is told beside the component's boxes so that what was refused can be mended at once: the
// line at fault with a mark under it, and what would be accepted.

namespace quorbind {

/// Whether a run that ends so was handed something that it does not take.
bool isRefusal(ExitStatus status);

/// Of a run that refused something at `place`; `line` is the text of the line. To be printed: lines
/// ended by LF, the last ones with what would be accepted instead of what each box refuses, or
/// nothing where nothing is known. Boxes that are settled are passed over.
std::string helpWith(const std::vector<ShownMessage>& boxes,
                     const LinePlace& place,
                     const std::optional<std::string>& line);

/// Tells on the error output of a run that ended so what would be accepted instead of what its
/// boxes refuse.
void tellAccepted(ExitStatus status, const std::vector<ShownMessage>& boxes);

/// Shows the box of each rule that a workbook breaks, and under it the place, the cell and what
/// would be accepted. `name` is the user's name for the workbook.
void tellViolations(TerminalUserInterface& ui,
                    const std::string& name,
                    const std::vector<WorkbookViolation>& violations);

}  // namespace quorbind
