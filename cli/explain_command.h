#pragma once

#include <string>
#include <vector>

#include "cli/exit_status.h"

namespace quorbind {

struct ExplainArguments {
  /// A number, or words of a message; none for the list of all messages.
  std::vector<std::string> question;
  bool json = false;
};

/// Prints what messages mean and how to mend what they tell of, or the list of all messages.
ExitStatus runExplain(const ExplainArguments& arguments);

}  // namespace quorbind
