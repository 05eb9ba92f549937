#pragma once

#include <string>
#include <string_view>

namespace quorbind {

/// A text file of the command's own, which is gone when the object is, and also when a signal ends
/// the process before: hang-up, interrupt, quit, termination, broken pipe. One exists at a time.
///
/// Failures are RunTimeErrors with the numbers of the file-system port; the file is gone then.
class TemporaryFile {
 public:
  /// Makes a file of a new name in `folder`, which is named as this machine does.
  explicit TemporaryFile(const std::string& folder);
  ~TemporaryFile();
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  /// As this machine names it; ends in `.txt`.
  [[nodiscard]] const std::string& path() const { return path_; }

  void write(std::string_view bytes);
  /// Ends writing.
  void close();

 private:
  void flush();

  std::string path_;
  int descriptor_ = -1;
  std::string buffer_;
};

/// A file that another part of this process is going to make under a known name, and that is gone
/// when the object is, and also when one of those signals ends the process before. Not beside a
/// TemporaryFile, nor another one of these.
class FileToRemove {
 public:
  /// `path` is named as this machine does.
  explicit FileToRemove(std::string path);
  ~FileToRemove();
  FileToRemove(const FileToRemove&) = delete;
  FileToRemove& operator=(const FileToRemove&) = delete;

 private:
  std::string path_;
};

}  // namespace quorbind
