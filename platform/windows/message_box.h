#pragma once

#include <windows.h>

#include "platform/user_interface.h"

namespace quorbind {

/// Shows `message` over `owner` (null: over nothing) until the user closes it. A lone carriage
/// return in its text is a line break. A text that would be taller than a screen is shown without
/// its middle.
void showMessageBox(HWND owner, const UserMessage& message);

}  // namespace quorbind
