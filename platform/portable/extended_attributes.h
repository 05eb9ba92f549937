#pragma once

#include <string>

#include "platform/portable/system_call.h"

namespace quorbind {

/// Gives `file` what the file at `path` has beyond owner and permissions: its access list and its
/// other extended attributes, as far as the process may set them and the file system has them.
void copyExtendedAttributes(const std::string& path, const FileDescriptor& file);

}  // namespace quorbind
