#pragma once

#include <string_view>

namespace quorbind {

/// Clears the clipboard, then puts `text` on it. A program that holds the clipboard is given a
/// moment to let go of it; after that the failure is raised by the system's own number.
void putTextOnClipboard(std::string_view text);

}  // namespace quorbind
