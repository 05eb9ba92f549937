#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/file_system.h"

namespace quorbind::testing {

/// A file system that writes down what it is asked, and passes it on.
///
/// Working a name out is no question to a disk and is not written down.
class RecordingFiles final : public FileSystem {
 public:
  struct Call {
    std::string operation;
    std::string path;

    auto operator<=>(const Call&) const = default;
  };

  /// Kept by reference.
  explicit RecordingFiles(FileSystem& files) : files_(files) {}

  /// A call with two names is written down as two.
  [[nodiscard]] const std::vector<Call>& calls() const { return calls_; }
  void forget() { calls_.clear(); }

  [[nodiscard]] bool fileExists(std::string_view path) override {
    note("fileExists", path);
    return files_.fileExists(path);
  }
  [[nodiscard]] bool folderExists(std::string_view path) override {
    note("folderExists", path);
    return files_.folderExists(path);
  }
  void createFolder(std::string_view path) override {
    note("createFolder", path);
    files_.createFolder(path);
  }
  void copyFile(std::string_view from, std::string_view to) override {
    note("copyFile", from);
    note("copyFile", to);
    files_.copyFile(from, to);
  }
  void moveFile(std::string_view from, std::string_view to) override {
    note("moveFile", from);
    note("moveFile", to);
    files_.moveFile(from, to);
  }
  void deleteFile(std::string_view path) override {
    note("deleteFile", path);
    files_.deleteFile(path);
  }
  [[nodiscard]] std::string absolutePath(std::string_view path) override {
    return files_.absolutePath(path);
  }
  [[nodiscard]] bool sameFile(std::string_view left, std::string_view right) override {
    note("sameFile", left);
    note("sameFile", right);
    return files_.sameFile(left, right);
  }
  [[nodiscard]] std::vector<std::string> namesIn(std::string_view folder) override {
    note("namesIn", folder);
    return files_.namesIn(folder);
  }
  [[nodiscard]] std::unique_ptr<ByteReader> open(std::string_view path) override {
    note("open", path);
    return files_.open(path);
  }
  [[nodiscard]] std::unique_ptr<FileReplacement> replace(std::string_view path) override {
    note("replace", path);
    return files_.replace(path);
  }

 private:
  void note(std::string operation, std::string_view path) {
    calls_.push_back({std::move(operation), std::string(path)});
  }

  FileSystem& files_;
  std::vector<Call> calls_;
};

}  // namespace quorbind::testing
