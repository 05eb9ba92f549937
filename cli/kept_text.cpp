#include "cli/kept_text.h"

#include "cli/failure.h"
#include "platform/xml_writer.h"

namespace quorbind {

namespace {

std::string faultOf(const std::string& typed) {
  return filledText(text(RuleText::kTextNotKept), {{"TEXT", typed}});
}

}  // namespace

bool isKept(std::string_view text) {
  return xmlCharactersOnly(text) == text;
}

bool tellNotKept(Wiring& wiring, const std::string& typed) {
  if (isKept(typed)) {
    return false;
  }
  wiring.ui.show(criticalMessage(faultOf(typed)));
  return true;
}

void requireKeptText(const std::string& typed) {
  if (!isKept(typed)) {
    throw CommandFailure(ExitStatus::kRefused, faultOf(typed));
  }
}

}  // namespace quorbind
