#pragma once

#include <sys/types.h>

#include <vector>

#include "platform/portable/system_call.h"

namespace quorbind {

/// The disks that files were written to and that were not flushed since. One flush makes everything
/// on a disk last: contents, names, folders.
class UnflushedDisks {
 public:
  /// Notes the disk of `file`, which may be closed afterwards. False, with errno, on failure.
  bool add(const FileDescriptor& file);
  /// The same where the disk's number is known.
  bool add(const FileDescriptor& file, dev_t disk);
  /// Flushes each of the disks once and forgets it, whatever comes of it. Answers 0 or the first
  /// error.
  int flush();

 private:
  struct Disk {
    dev_t number;
    /// Open since before the first byte was written: the system tells an error of writing to whom
    /// had a file open when it came up.
    FileDescriptor file;
  };

  std::vector<Disk> disks_;
};

}  // namespace quorbind
