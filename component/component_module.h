#pragma once

#include "workflow/forms/module.h"

namespace quorbind {

/// What this DLL has once for all its objects, with the ports of this system. Made when it is first
/// asked for; stays until releaseComponentModule. Refer to it only from objects that keep the
/// server in use.
Module& componentModule();

/// Lets go of the module, if there is one. Called when nothing of the server is in use.
void releaseComponentModule() noexcept;

}  // namespace quorbind
