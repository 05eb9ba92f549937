#include "platform/portable/unflushed_disks.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <utility>

namespace quorbind {

bool UnflushedDisks::add(const FileDescriptor& file) {
  struct stat status {};
  return ::fstat(file.number(), &status) == 0 && add(file, status.st_dev);
}

bool UnflushedDisks::add(const FileDescriptor& file, dev_t disk) {
  if (std::any_of(
          disks_.begin(), disks_.end(), [&](const Disk& known) { return known.number == disk; })) {
    return true;
  }
  FileDescriptor kept(::fcntl(file.number(), F_DUPFD_CLOEXEC, 0));
  if (!kept.isOpen()) {
    return false;
  }
  disks_.push_back({disk, std::move(kept)});
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
