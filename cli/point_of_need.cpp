#include "cli/point_of_need.h"

#include <iostream>
#include <set>
#include <string_view>

#include "cli/marked_line.h"
#include "cli/message_story.h"
#include "platform/portable/visible_text.h"

namespace quorbind {

namespace {

std::string acceptedLine(std::string_view accepted) {
  return accepted.empty() ? std::string() : "accepted: " + std::string(accepted) + "\n";
}

std::string helpWith(const std::string& file, const WorkbookViolation& violation) {
  std::string text;
  if (violation.cell.sheet > 0) {
    text = "at " + visibleText(placeIn(file, violation.cell)) + "\n";
  }
  if (!violation.cellText.empty() && violation.cell.column > 0) {
    text += markedLine(cellName(violation.cell), violation.cellText, 1, violation.cellText.size());
  }
  return text + acceptedLine(acceptedInsteadOf(violation.box.text));
}

/// A sentence for each box, and each sentence once.
std::string acceptedLines(const std::vector<ShownMessage>& boxes) {
  std::string lines;
  std::set<std::string_view> told;
  for (const ShownMessage& box : boxes) {
    const std::string_view accepted = acceptedInsteadOf(box.text);
    if (!box.isSettled && told.insert(accepted).second) {
      lines += acceptedLine(accepted);
    }
  }
  return lines;
}

}  // namespace

bool isRefusal(ExitStatus status) {
  return status == ExitStatus::kRefused || status == ExitStatus::kInputMissing ||
         status == ExitStatus::kNotParseable;
}

std::string helpWith(const std::vector<ShownMessage>& boxes,
                     const LinePlace& place,
                     const std::optional<std::string>& line) {
  const std::string shown =
      line ? markedLine(std::to_string(place.line), *line, place.column, place.length)
           : std::string();
  return shown + acceptedLines(boxes);
}

void tellAccepted(ExitStatus status, const std::vector<ShownMessage>& boxes) {
  if (isRefusal(status)) {
    std::cerr << acceptedLines(boxes);
  }
}

void tellViolations(TerminalUserInterface& ui,
                    const std::string& name,
                    const std::vector<WorkbookViolation>& violations) {
  for (const WorkbookViolation& violation : violations) {
    ui.show(violation.box);
    if (violation.clipboard) {
      ui.putOnClipboard(*violation.clipboard);
    }
    std::cerr << helpWith(name, violation) << std::flush;
    ui.settle();
  }
}

}  // namespace quorbind
