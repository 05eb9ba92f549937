#pragma once

#include <string>

#include "platform/portable/system_call.h"

namespace quorbind {

/// How a file's access list is given to another.
enum class AccessList {
  kAsItIs,
  /// For a file of another group: that and all others may do what both were allowed.
  kWithoutRightsOfGroup,
};

/// Gives `file` what the file at `path` has beyond owner and permissions: its access list and its
/// other extended attributes, as far as the process may set them and the file system has them.
void copyExtendedAttributes(const std::string& path,
                            const FileDescriptor& file,
                            AccessList accessList);

}  // namespace quorbind
