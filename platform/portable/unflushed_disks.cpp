#include "platform/portable/unflushed_disks.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <utility>

namespace quorbind {

bool UnflushedDisks::add(const FileDescriptor& file) {
  struct stat status {};
  if (::fstat(file.number(), &status) != 0) {
    return false;
  }
  if (std::any_of(disks_.begin(), disks_.end(), [&](const Disk& disk) {
        return disk.number == status.st_dev;
      })) {
    return true;
  }
  FileDescriptor kept(::fcntl(file.number(), F_DUPFD_CLOEXEC, 0));
  if (!kept.isOpen()) {
    return false;
  }
  disks_.push_back({status.st_dev, std::move(kept)});
  return true;
}

int UnflushedDisks::flush() {
  int firstError = 0;
  for (const Disk& disk : std::exchange(disks_, {})) {
    if (uninterrupted([&] { return ::syncfs(disk.file.number()); }) != 0 && firstError == 0) {
      firstError = errno;
    }
  }
  return firstError;
}

}  // namespace quorbind
