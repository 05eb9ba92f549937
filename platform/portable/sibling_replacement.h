#pragma once

#include <string>
#include <string_view>

#include "platform/file_system.h"
#include "platform/portable/system_call.h"
#include "platform/portable/unflushed_disks.h"

namespace quorbind {

/// Replaces a file by writing a temporary in the same folder and renaming it over the file.
///
/// A symbolic link at the file's name stays; the file that it leads to is replaced. The temporary
/// has the old file's permissions, access list and other extended attributes, and its owner where
/// the process may give it away, before the first byte is written to it. Once a write or a flush
/// has failed the temporary is gone and every further call raises 57: bytes that a failed flush has
/// dropped would not be written by another. Where the folder can't be flushed a new file goes
/// again.
class SiblingReplacement final : public FileReplacement {
 public:
  /// Begins to replace (or create) the file at `path`. Raises what FileSystem::replace raises.
  explicit SiblingReplacement(const std::string& path);
  ~SiblingReplacement() override;
  SiblingReplacement(const SiblingReplacement&) = delete;
  SiblingReplacement& operator=(const SiblingReplacement&) = delete;

  void write(std::string_view bytes) override;
  void commit() override;
  [[nodiscard]] bool standsAllTheSame() const override { return isUnderName_; }
  /// The same, but leaves the flush to `disks`.
  void commitUnflushed(UnflushedDisks& disks);

  /// Writes everything from here to the end of `source`, and takes its permissions instead of those
  /// of the old file. Raises what `write` raises.
  void copyFrom(const FileDescriptor& source);

 private:
  void flushBuffer();
  void writeThrough(std::string_view bytes);
  /// Closes the temporary and puts it under the name.
  void putUnderName();
  void flushName();
  void requireOpen() const;
  [[noreturn]] void fail(int error);
  void discard();

  std::string target_;
  std::string temporary_;
  FileDescriptor file_;
  std::string buffer_;
  /// Nothing stood under the name.
  bool isNew_ = false;
  bool isUnderName_ = false;
};

}  // namespace quorbind
