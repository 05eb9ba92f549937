#include "cli/point_of_need.h"

#include <iostream>

#include "cli/marked_line.h"
#include "cli/message_story.h"
#include "platform/portable/visible_text.h"

namespace quorbind {

namespace {

std::string acceptedLine(std::string_view box) {
  const std::string_view accepted = acceptedInsteadOf(box);
  return accepted.empty() ? std::string() : "accepted: " + std::string(accepted) + "\n";
}

std::string helpWith(const std::string& file, const WorkbookViolation& violation) {
  std::string text;
  if (violation.cell.sheet > 0) {
    text = "at " + visibleText(placeIn(file, violation.cell)) + "\n";
  }
  if (violation.clipboard && violation.cell.column > 0) {
    text +=
        markedLine(cellName(violation.cell), *violation.clipboard, 1, violation.clipboard->size());
  }
  return text + acceptedLine(violation.box.text);
}

}  // namespace

std::string helpWith(const std::vector<ShownMessage>& boxes,
                     const LinePlace& place,
                     const std::optional<std::string>& line) {
  const std::string shown =
      line ? markedLine(std::to_string(place.line), *line, place.column, place.length)
           : std::string();
  return shown + (boxes.empty() ? std::string() : acceptedLine(boxes.back().text));
}

void tellViolations(UserInterface& ui,
                    const std::string& name,
                    const std::vector<WorkbookViolation>& violations) {
  for (const WorkbookViolation& violation : violations) {
    ui.show(violation.box);
    if (violation.clipboard) {
      ui.putOnClipboard(*violation.clipboard);
    }
    std::cerr << helpWith(name, violation) << std::flush;
  }
}

}  // namespace quorbind
