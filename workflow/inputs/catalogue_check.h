#pragma once

#include <string>

#include "workflow/forms/module.h"

namespace quorbind {

/// Tells the user when the catalogue at `vstrQuorTOcPath` already has a book of that name or that
/// acronym, and shows the book dialog again, once for each; what is entered there is accepted
/// without another look, the name in its stored form. False when the catalogue does not load, else
/// True. The texts may be the current name and acronym themselves, which the dialog changes
/// meanwhile.
bool mbCheckQuorTOCForBook(Module& module,
                           const std::string& vstrQuorTOcPath,
                           const std::string& vstrBookName,
                           const std::string& vstrBookAcro);

}  // namespace quorbind
