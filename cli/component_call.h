#pragma once

#include <functional>

#include "cli/wiring.h"

namespace quorbind {

/// Calls an operation of the component, which answers nothing about how it ended: its boxes and the
/// files tell. AlreadyTold when one of them says so: a write or a read that failed; a value that no
/// lookup can hold, or an ordinary refusal; a file that lacks what the operation needs.
void callComponent(Wiring& wiring, const std::function<void()>& call);

}  // namespace quorbind
