#include "platform/portable/unnamed_copies.h"

#include <fcntl.h>
#include <unistd.h>

namespace quorbind {

namespace {

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

}  // namespace

bool UnnamedCopies::copy(const FileDescriptor& source,
                         const struct stat& sourceStatus,
                         const std::string& path) {
  enterFolderOf(path);
  const mode_t permissions = sourceStatus.st_mode & kPermissionBits;
  FileDescriptor file = openFile(folder_, O_WRONLY | O_TMPFILE, permissions);
  if (!file.isOpen()) {
    return false;
  }
  const std::optional<dev_t> disk = takePermissions(file, permissions);
  return disk && copyInKernel(source, file, sourceStatus.st_size) && giveName(file, path) &&
         finish(file, *disk, path);
}

void UnnamedCopies::enterFolderOf(const std::string& path) {
  if (!isIn(folder_, path)) {
    folder_ = parentOf(path);
    granted_.reset();
  }
}

/// Answers the file's disk; nothing on failure. What the file was made with is mostly right
/// already, and to ask costs less than to change it.
std::optional<dev_t> UnnamedCopies::takePermissions(const FileDescriptor& file,
                                                    mode_t permissions) {
  if (granted_ && granted_->permissions == permissions) {
    return granted_->disk;
  }
  struct stat status {};
  if (::fstat(file.number(), &status) != 0) {
    return std::nullopt;
  }
  if ((status.st_mode & kPermissionBits) == permissions) {
    granted_ = Granted{permissions, status.st_dev};
  } else if (::fchmod(file.number(), permissions) != 0) {
    return std::nullopt;
  }
  return status.st_dev;
}

/// Without a descriptor a file without a name is gone, so that it is closed under its name.
bool UnnamedCopies::finish(FileDescriptor& file, dev_t disk, const std::string& path) {
  if (disks_.add(file, disk) && file.close()) {
    return true;
  }
  ::unlink(path.c_str());
  return false;
}

}  // namespace quorbind
