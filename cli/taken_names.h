#pragma once

#include <optional>
#include <set>
#include <string>

#include "platform/user_interface.h"

namespace quorbind {

/// The names and acronyms that books have, of which no two may have the same. A book without one
/// takes none.
class TakenNames {
 public:
  // Take a name or an acronym for a book. Where another book has it that book's box is answered.
  std::optional<UserMessage> takeName(const std::string& name);
  std::optional<UserMessage> takeAcronym(const std::string& acronym);

 private:
  std::set<std::string> names_;
  std::set<std::string> acronyms_;
};

}  // namespace quorbind
