#pragma once

#include <sys/stat.h>

#include <optional>
#include <string>

#include "platform/portable/system_call.h"
#include "platform/portable/unflushed_disks.h"

namespace quorbind {

/// Copies files to where nothing stands. A copy has no name until it is whole, and nothing of it is
/// left before; that takes the system one name where a temporary takes it two.
///
/// Copies for one folder should come one behind the other: the folder is found, and asked for what
/// holds for all that is made there, with the first of them. One that is renamed meanwhile is still
/// the folder of those behind.
class UnnamedCopies {
 public:
  /// Kept by reference.
  explicit UnnamedCopies(UnflushedDisks& disks) : disks_(disks) {}

  /// Copies `source`, of which nothing was read yet, and its permissions to `path`, where nothing
  /// stands.
  ///
  /// Answers whether it did; if not, nothing was made, and a temporary is the way. That is so where
  /// the file system knows no files without names or can't copy by itself, where something has come
  /// to stand at `path`, and after any failure, which will come up again.
  bool copy(const FileDescriptor& source, const struct stat& sourceStatus, const std::string& path);

 private:
  struct Folder {
    std::string path;
    FileDescriptor file;
    dev_t disk = 0;
    /// Permissions that a new file gets as they are asked for.
    std::optional<mode_t> granted;
  };

  bool enterFolder(const std::string& path);
  bool takePermissions(const FileDescriptor& file, mode_t permissions);
  bool finish(FileDescriptor& file, const char* name);

  UnflushedDisks& disks_;
  /// Of the last copy.
  Folder folder_;
};

}  // namespace quorbind
