#pragma once

#include "platform/read_through_files.h"
#include "platform/runtime_error.h"

namespace quorbind::testing {

/// A file system that can be read and not written: every change is refused with error 70.
class ReadOnlyFiles final : public ReadThroughFiles {
 public:
  using ReadThroughFiles::ReadThroughFiles;

  void createFolder(std::string_view /*path*/) override { refuse(); }
  void copyFile(std::string_view /*from*/, std::string_view /*to*/) override { refuse(); }
  void moveFile(std::string_view /*from*/, std::string_view /*to*/) override { refuse(); }
  void deleteFile(std::string_view /*path*/) override { refuse(); }
  [[nodiscard]] std::unique_ptr<FileReplacement> replace(std::string_view /*path*/) override {
    refuse();
  }

 private:
  [[noreturn]] static void refuse() { raise(ErrorNumber::kPermissionDenied); }
};

}  // namespace quorbind::testing
