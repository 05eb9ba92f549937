#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <optional>
#include <string>

#include "platform/portable/system_call.h"
#include "platform/portable/unflushed_disks.h"

namespace quorbind {

/// Copies files to where nothing stands. A copy has no name until it is whole, and nothing of it is
/// left before; that takes the system one name where a temporary takes it two.
///
/// What permissions the system gives to new files of a folder is looked at once for copies that
/// come one behind the other and ask for the same: it is taken that nobody restricts them further
/// in between.
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
  /// What a file of the folder got as it was asked for.
  struct Granted {
    mode_t permissions = 0;
    dev_t disk = 0;
  };

  void enterFolderOf(const std::string& path);
  std::optional<dev_t> takePermissions(const FileDescriptor& file, mode_t permissions);
  bool finish(FileDescriptor& file, dev_t disk, const std::string& path);

  UnflushedDisks& disks_;
  /// That of the copy before.
  std::string folder_;
  std::optional<Granted> granted_;
};

}  // namespace quorbind
