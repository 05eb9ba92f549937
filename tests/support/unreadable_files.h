#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/file_system.h"
#include "platform/runtime_error.h"

namespace quorbind::testing {

/// A file system with one file that can be opened and copied, and whose device fails when it is
/// read.
class UnreadableFiles final : public FileSystem {
 public:
  /// `unreadable` is the full name of that file. The file system is kept by reference.
  UnreadableFiles(FileSystem& files, std::string unreadable)
      : files_(files), unreadable_(std::move(unreadable)) {}

  /// From now on it can't be copied either.
  void failToCopy() { canCopy_ = false; }

  [[nodiscard]] bool fileExists(std::string_view path) override { return files_.fileExists(path); }
  [[nodiscard]] bool folderExists(std::string_view path) override {
    return files_.folderExists(path);
  }
  void createFolder(std::string_view path) override { files_.createFolder(path); }
  void copyFile(std::string_view from, std::string_view to) override {
    if (!canCopy_ && isUnreadable(from)) {
      raise(ErrorNumber::kDeviceIoError);
    }
    files_.copyFile(from, to);
  }
  void moveFile(std::string_view from, std::string_view to) override { files_.moveFile(from, to); }
  void deleteFile(std::string_view path) override { files_.deleteFile(path); }
  [[nodiscard]] std::string absolutePath(std::string_view path) override {
    return files_.absolutePath(path);
  }
  [[nodiscard]] bool sameFile(std::string_view left, std::string_view right) override {
    return files_.sameFile(left, right);
  }
  [[nodiscard]] std::vector<std::string> namesIn(std::string_view folder) override {
    return files_.namesIn(folder);
  }
  [[nodiscard]] std::unique_ptr<ByteReader> open(std::string_view path) override {
    return isUnreadable(path) ? std::make_unique<FailingReader>() : files_.open(path);
  }
  [[nodiscard]] std::unique_ptr<FileReplacement> replace(std::string_view path) override {
    return files_.replace(path);
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
    return files_.absolutePath(path) == unreadable_;
  }

  FileSystem& files_;
  std::string unreadable_;
  bool canCopy_ = true;
};

}  // namespace quorbind::testing
