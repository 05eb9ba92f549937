#include "cli/taken_names.h"

#include "resources/messages.h"

namespace quorbind {

namespace {

std::optional<UserMessage> take(std::set<std::string>& taken,
                                const std::string& text,
                                Message beginning) {
  if (text.empty() || taken.insert(text).second) {
    return std::nullopt;
  }
  return criticalMessage((beginning + text) + Message::kAlreadyExists);
}

}  // namespace

std::optional<UserMessage> TakenNames::takeName(const std::string& name) {
  return take(names_, name, Message::kErrorBookName);
}

std::optional<UserMessage> TakenNames::takeAcronym(const std::string& acronym) {
  return take(acronyms_, acronym, Message::kErrorBookAcro);
}

}  // namespace quorbind
