#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/read_through_files.h"
#include "platform/runtime_error.h"

namespace quorbind::testing {

/// A file system with one file that can be opened and copied, and whose device fails when it is
/// read.
class UnreadableFiles final : public ReadThroughFiles {
 public:
  /// `unreadable` is the full name of that file. The file system is kept by reference.
  UnreadableFiles(FileSystem& files, std::string unreadable)
      : ReadThroughFiles(files), unreadable_(std::move(unreadable)) {}

  /// From now on it can't be copied either.
  void failToCopy() { canCopy_ = false; }

  void createFolder(std::string_view path) override { files().createFolder(path); }
  void copyFile(std::string_view from, std::string_view to) override {
    if (!canCopy_ && isUnreadable(from)) {
      raise(ErrorNumber::kDeviceIoError);
    }
    files().copyFile(from, to);
  }
  void moveFile(std::string_view from, std::string_view to) override { files().moveFile(from, to); }
  void deleteFile(std::string_view path) override { files().deleteFile(path); }
  [[nodiscard]] std::unique_ptr<ByteReader> open(std::string_view path) override {
    return isUnreadable(path) ? std::make_unique<FailingReader>() : files().open(path);
  }
  [[nodiscard]] std::unique_ptr<FileReplacement> replace(std::string_view path) override {
    return files().replace(path);
  }

 private:
  class FailingReader final : public ByteReader {
   public:
    std::size_t read(char* /*buffer*/, std::size_t /*size*/) override {
      raise(ErrorNumber::kDeviceIoError);
    }
    void rewind() override {}
  };

  [[nodiscard]] bool isUnreadable(std::string_view path) const {
    return files().absolutePath(path) == unreadable_;
  }

  std::string unreadable_;
  bool canCopy_ = true;
};

}  // namespace quorbind::testing
