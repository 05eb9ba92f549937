#pragma once

#include <libxml/tree.h>

#include "platform/file_system.h"

namespace quorbind {

/// Writes a document that has a root, with its declaration if it has one, in the encoding that it
/// declares. Raises what FileReplacement::write raises; committing is the caller's.
void writeXml(const xmlDoc& document, FileReplacement& file);

}  // namespace quorbind
