#pragma once

#include <memory>
#include <string>
#include <utility>

#include "platform/file_system.h"
#include "platform/runtime_error.h"

namespace quorbind::testing {

/// A disk with a single file on it, in memory, that every name to be read leads to. No other file
/// is found, and none can be written: error 70.
class OneFile : public FileSystem {
 public:
  void put(std::string bytes) { bytes_ = std::move(bytes); }

  [[nodiscard]] bool fileExists(std::string_view /*path*/) override { return false; }
  [[nodiscard]] bool folderExists(std::string_view /*path*/) override { return false; }
  void createFolder(std::string_view /*path*/) override { refuse(); }
  void copyFile(std::string_view /*from*/, std::string_view /*to*/) override { refuse(); }
  void moveFile(std::string_view /*from*/, std::string_view /*to*/) override { refuse(); }
  void deleteFile(std::string_view /*path*/) override { refuse(); }
  [[nodiscard]] std::string absolutePath(std::string_view path) override {
    return std::string(path);
  }
  [[nodiscard]] bool sameFile(std::string_view /*left*/, std::string_view /*right*/) override {
    return false;
  }
  [[nodiscard]] std::vector<std::string> namesIn(std::string_view /*folder*/) override {
    return {};
  }
  [[nodiscard]] std::unique_ptr<ByteReader> open(std::string_view /*path*/) override {
    return std::make_unique<Reader>(bytes_);
  }
  [[nodiscard]] std::unique_ptr<FileReplacement> replace(std::string_view /*path*/) override {
    refuse();
  }

 private:
  class Reader final : public ByteReader {
   public:
    explicit Reader(const std::string& bytes) : bytes_(bytes) {}
    std::size_t read(char* buffer, std::size_t size) override {
      const std::size_t count = bytes_.copy(buffer, size, at_);
      at_ += count;
      return count;
    }
    void rewind() override { at_ = 0; }

   private:
    const std::string& bytes_;
    std::size_t at_ = 0;
  };

  [[noreturn]] static void refuse() { raise(ErrorNumber::kPermissionDenied); }

  std::string bytes_;
};

}  // namespace quorbind::testing
