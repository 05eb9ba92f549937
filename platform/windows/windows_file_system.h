#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"
#include "platform/windows/patience.h"

namespace quorbind {

/// The system's own files. Names may be longer than 260 characters; those of devices raise 52.
///
/// A copy has its source's attributes and, as always on this system, the access rights of the file
/// that it replaces or of the folder that it comes into. Files are opened so that others may go on
/// reading, writing, renaming and deleting them. One that another program holds is waited for.
///
/// What was opened and what is being replaced must not outlive this object.
class WindowsFileSystem final : public FileSystem {
 public:
  [[nodiscard]] bool fileExists(std::string_view path) override;
  [[nodiscard]] bool folderExists(std::string_view path) override;
  void createFolder(std::string_view path) override;
  void copyFile(std::string_view from, std::string_view to) override;
  [[nodiscard]] std::unique_ptr<CopySeries> beginCopies() override;
  void moveFile(std::string_view from, std::string_view to) override;
  void deleteFile(std::string_view path) override;
  [[nodiscard]] std::string absolutePath(std::string_view path) override;
  [[nodiscard]] bool sameFile(std::string_view left, std::string_view right) override;
  [[nodiscard]] std::vector<std::string> namesIn(std::string_view folder) override;
  [[nodiscard]] std::vector<std::string> fileNamesIn(std::string_view folder) override;
  [[nodiscard]] std::unique_ptr<ByteReader> open(std::string_view path) override;
  [[nodiscard]] std::unique_ptr<FileReplacement> replace(std::string_view path) override;

 private:
  Patience patience_;
};

}  // namespace quorbind
