#pragma once

#include <functional>

#include "cli/exit_status.h"
#include "cli/wiring.h"

namespace quorbind {

/// Runs a subcommand that only shows something, which `listing` does. A failure is told to the
/// user, with what would be accepted instead, and with `json` in one object as well.
ExitStatus runListing(Wiring& wiring, bool json, const std::function<void()>& listing);

}  // namespace quorbind
