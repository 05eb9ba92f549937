#pragma once

// Texts that go into the XML files of a library as they are typed. One with a character that no
// XML file can hold would stand there as another text, and would not be found again.

#include <string>
#include <string_view>

#include "cli/wiring.h"

namespace quorbind {

/// Whether a file can hold every character of it.
[[nodiscard]] bool isKept(std::string_view text);

/// What is to be said of one that no file can hold.
[[nodiscard]] std::string notKept(const std::string& typed);

/// Tells the user of one that no file can hold. Answers whether there was something to tell.
bool tellNotKept(Wiring& wiring, const std::string& typed);

/// A CommandFailure for one that no file can hold.
void requireKeptText(const std::string& typed);

}  // namespace quorbind
