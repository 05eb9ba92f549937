#pragma once

// Texts that go into the XML files of a library as they are typed, and have to be kept as they are.

#include <string>

#include "cli/wiring.h"

namespace quorbind {

/// Tells the user of one with a character that no file can hold. Answers whether there was
/// something to tell.
bool tellNotKept(Wiring& wiring, const std::string& typed);

/// A CommandFailure for such a one.
void requireKeptText(const std::string& typed);

}  // namespace quorbind
