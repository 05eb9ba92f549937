#pragma once

#include <sys/stat.h>

#include <string>

#include "platform/portable/system_call.h"
#include "platform/portable/unflushed_disks.h"

namespace quorbind {

/// Copies `source`, of which nothing was read yet, and its permissions to `path`, where nothing
/// stands. The copy has no name until it is whole, and nothing of it is left before; that takes the
/// system one name where a temporary takes it two.
///
/// Answers whether it did; if not, nothing was made, and a temporary is the way. That is so where
/// the file system knows no files without names or can't copy by itself, where something has come
/// to stand at `path`, and after any failure, which will come up again.
bool copyWithoutName(const FileDescriptor& source,
                     const struct stat& sourceStatus,
                     const std::string& path,
                     UnflushedDisks& disks);

}  // namespace quorbind
