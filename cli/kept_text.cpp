#include "cli/kept_text.h"

#include "cli/failure.h"
#include "platform/xml_writer.h"

namespace quorbind {

bool isKept(std::string_view text) {
  return xmlCharactersOnly(text) == text;
}

std::string notKept(const std::string& typed) {
  return filledText(text(RuleText::kTextNotKept), {{"TEXT", typed}});
}

bool tellNotKept(Wiring& wiring, const std::string& typed) {
  if (isKept(typed)) {
    return false;
  }
  wiring.ui.show(criticalMessage(notKept(typed)));
  return true;
}

void requireKeptText(const std::string& typed) {
  if (!isKept(typed)) {
    throw CommandFailure(ExitStatus::kRefused, notKept(typed));
  }
}

}  // namespace quorbind
