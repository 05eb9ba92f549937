#include "cli/kept_text.h"

#include "cli/failure.h"
#include "workflow/forms/name_rules.h"

namespace quorbind {

bool tellNotKept(Wiring& wiring, const std::string& typed) {
  const auto refusal = refusalOfCharacters(typed);
  if (refusal) {
    wiring.ui.show(criticalMessage(*refusal));
  }
  return refusal.has_value();
}

void requireKeptText(const std::string& typed) {
  if (const auto refusal = refusalOfCharacters(typed)) {
    throw CommandFailure(ExitStatus::kRefused, *refusal);
  }
}

}  // namespace quorbind
