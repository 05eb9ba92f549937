#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"

namespace quorbind {

/// A file system that asks another one, and leaves to derived classes what becomes of changes: a
/// base for those that watch or refuse them.
class ReadThroughFiles : public FileSystem {
 public:
  /// Kept by reference.
  explicit ReadThroughFiles(FileSystem& files) : files_(files) {}

  [[nodiscard]] bool fileExists(std::string_view path) override { return files_.fileExists(path); }
  [[nodiscard]] bool folderExists(std::string_view path) override {
    return files_.folderExists(path);
  }
  [[nodiscard]] std::string absolutePath(std::string_view path) override {
    return files_.absolutePath(path);
  }
  [[nodiscard]] bool sameFile(std::string_view left, std::string_view right) override {
    return files_.sameFile(left, right);
  }
  [[nodiscard]] std::vector<std::string> namesIn(std::string_view folder) override {
    return files_.namesIn(folder);
  }
  [[nodiscard]] std::vector<std::string> fileNamesIn(std::string_view folder) override {
    return files_.fileNamesIn(folder);
  }
  [[nodiscard]] std::unique_ptr<ByteReader> open(std::string_view path) override {
    return files_.open(path);
  }

 protected:
  [[nodiscard]] FileSystem& files() const { return files_; }

 private:
  FileSystem& files_;
};

}  // namespace quorbind
