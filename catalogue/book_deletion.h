#pragma once

#include <string>

#include "platform/platform.h"

namespace quorbind {

/// Takes the entry of the first book whose name is stored as `vstrBookName` out of the catalogue.
/// The catalogue is saved also when there is no such book.
void DeleteQuorNode(const Platform& platform,
                    const std::string& vstrQuorTOcPath,
                    const std::string& vstrBookName);

}  // namespace quorbind
