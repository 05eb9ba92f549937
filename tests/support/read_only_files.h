#pragma once

#include "platform/file_system.h"
#include "platform/runtime_error.h"

namespace quorbind::testing {

/// A file system that can be read and not written: every change is refused with error 70.
class ReadOnlyFiles final : public FileSystem {
 public:
  /// Kept by reference.
  explicit ReadOnlyFiles(FileSystem& files) : files_(files) {}

  [[nodiscard]] bool fileExists(std::string_view path) override { return files_.fileExists(path); }
  [[nodiscard]] bool folderExists(std::string_view path) override {
    return files_.folderExists(path);
  }
  void createFolder(std::string_view /*path*/) override { refuse(); }
  void copyFile(std::string_view /*from*/, std::string_view /*to*/) override { refuse(); }
  void moveFile(std::string_view /*from*/, std::string_view /*to*/) override { refuse(); }
  void deleteFile(std::string_view /*path*/) override { refuse(); }
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
    return files_.open(path);
  }
  [[nodiscard]] std::unique_ptr<FileReplacement> replace(std::string_view /*path*/) override {
    refuse();
  }

 private:
  [[noreturn]] static void refuse() { raise(ErrorNumber::kPermissionDenied); }

  FileSystem& files_;
};

}  // namespace quorbind::testing
