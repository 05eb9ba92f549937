#include "platform/portable/unnamed_copy.h"

#include <fcntl.h>
#include <unistd.h>

namespace quorbind {

namespace {

using Status = struct stat;

/// What the file was made with is mostly right already, and to ask costs less than to change it.
bool takePermissions(const FileDescriptor& file, const Status& status, mode_t permissions) {
  return (status.st_mode & kPermissionBits) == permissions ||
         ::fchmod(file.number(), permissions) == 0;
}

/// Not every system gives a name to a file that is known by its number alone.
bool giveName(const FileDescriptor& file, const std::string& path) {
  if (::linkat(file.number(), "", AT_FDCWD, path.c_str(), AT_EMPTY_PATH) == 0) {
    return true;
  }
  if (errno != ENOENT && errno != EPERM) {
    return false;
  }
  const std::string self = "/proc/self/fd/" + std::to_string(file.number());
  return ::linkat(AT_FDCWD, self.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) == 0;
}

/// Without a descriptor a file without a name is gone, so that it is closed under its name.
bool finish(FileDescriptor& file,
            const Status& status,
            const std::string& path,
            UnflushedDisks& disks) {
  if (disks.add(file, status.st_dev) && file.close()) {
    return true;
  }
  ::unlink(path.c_str());
  return false;
}

}  // namespace

bool copyWithoutName(const FileDescriptor& source,
                     const Status& sourceStatus,
                     const std::string& path,
                     UnflushedDisks& disks) {
  const mode_t permissions = sourceStatus.st_mode & kPermissionBits;
  FileDescriptor file = openFile(parentOf(path), O_WRONLY | O_TMPFILE, permissions);
  Status status{};
  return file.isOpen() && ::fstat(file.number(), &status) == 0 &&
         takePermissions(file, status, permissions) &&
         copyInKernel(source, file, sourceStatus.st_size) && giveName(file, path) &&
         finish(file, status, path, disks);
}

}  // namespace quorbind
