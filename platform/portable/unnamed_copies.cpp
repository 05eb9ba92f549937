#include "platform/portable/unnamed_copies.h"

#include <fcntl.h>
#include <unistd.h>

#include <utility>

namespace quorbind {

namespace {

FileDescriptor makeWithoutName(const FileDescriptor& folder, mode_t permissions) {
  return FileDescriptor(uninterrupted([&] {
    return ::openat(folder.number(), ".", O_WRONLY | O_TMPFILE | O_CLOEXEC, permissions);
  }));
}

/// Not every system gives a name to a file that is known by its number alone.
bool giveName(const FileDescriptor& file, const FileDescriptor& folder, const char* name) {
  if (::linkat(file.number(), "", folder.number(), name, AT_EMPTY_PATH) == 0) {
    return true;
  }
  if (errno != ENOENT && errno != EPERM) {
    return false;
  }
  const std::string self = "/proc/self/fd/" + std::to_string(file.number());
  return ::linkat(AT_FDCWD, self.c_str(), folder.number(), name, AT_SYMLINK_FOLLOW) == 0;
}

}  // namespace

bool UnnamedCopies::copy(const FileDescriptor& source,
                         const struct stat& sourceStatus,
                         const std::string& path) {
  if (!enterFolder(parentOf(path))) {
    return false;
  }
  const mode_t permissions = sourceStatus.st_mode & kPermissionBits;
  FileDescriptor file = makeWithoutName(folder_.file, permissions);
  const std::string name = nameIn(path);
  return file.isOpen() && takePermissions(file, permissions) &&
         copyInKernel(source, file, sourceStatus.st_size) &&
         giveName(file, folder_.file, name.c_str()) && finish(file, name.c_str());
}

/// Answers false where it can't be entered.
bool UnnamedCopies::enterFolder(const std::string& path) {
  if (folder_.path == path && folder_.file.isOpen()) {
    return true;
  }
  struct stat status {};
  Folder entered{path, openFile(path, O_PATH | O_DIRECTORY), 0, {}};
  if (!entered.file.isOpen() || ::fstat(entered.file.number(), &status) != 0) {
    return false;
  }
  entered.disk = status.st_dev;
  folder_ = std::move(entered);
  return true;
}

/// What the file was made with is mostly right already, and to ask costs less than to change it;
/// once asked, it is known.
bool UnnamedCopies::takePermissions(const FileDescriptor& file, mode_t permissions) {
  if (folder_.granted == permissions) {
    return true;
  }
  struct stat status {};
  if (::fstat(file.number(), &status) != 0) {
    return false;
  }
  if ((status.st_mode & kPermissionBits) != permissions) {
    return ::fchmod(file.number(), permissions) == 0;
  }
  folder_.granted = permissions;
  return true;
}

/// Without a descriptor a file without a name is gone, so that it is closed under its name.
bool UnnamedCopies::finish(FileDescriptor& file, const char* name) {
  if (disks_.add(file, folder_.disk) && file.close()) {
    return true;
  }
  ::unlinkat(folder_.file.number(), name, 0);
  return false;
}

}  // namespace quorbind
