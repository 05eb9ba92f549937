#pragma once

#include <cstdint>
#include <string>

#include "workflow/forms/module.h"

namespace quorbind {

/// Makes sure that the process-wide current name and acronym are those of the book to be added:
/// asks for them unless both are known, and holds them against the catalogue at
/// `vstrQuorTOcPath`. True unless the user gave up.
bool mbGetFormInput(Module& module, const std::string& vstrQuorTOcPath, std::int16_t vintType);

}  // namespace quorbind
