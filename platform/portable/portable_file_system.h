#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"
#include "platform/portable/drive_name.h"
#include "platform/portable/path_finder.h"
#include "platform/portable/system_call.h"

namespace quorbind {

/// Files by their drive names, on a system that has no drives and tells letter cases apart.
///
/// The drive `C:` is a folder of the system; other drives do not exist, and what is asked of them
/// raises 76. The working folder counts when it lies on the drive, else the root stands in for it.
/// `..` is resolved in the name, before any symbolic link is followed.
///
/// Anything but a plain file (a device, a pipe) is no file here, and is neither opened nor
/// replaced. Names on the disk that are not UTF-8 can't be reached; `namesIn` gives them with
/// U+FFFD.
///
/// For one thread.
class PortableFileSystem final : public FileSystem {
 public:
  /// `driveRoot` is the folder that `C:\` stands for.
  explicit PortableFileSystem(const std::filesystem::path& driveRoot = "/");

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
  class Copies;

  [[nodiscard]] std::vector<std::string> list(std::string_view folder, Listed listed);
  [[nodiscard]] DriveName nameOf(std::string_view name) const;
  [[nodiscard]] std::string workingFolder() const;
  /// The system's path, in the letter case of the name. Raises 76 for a drive that does not exist.
  [[nodiscard]] std::string pathOf(const DriveName& name) const;
  /// Raises 75 as well, for a name that only a folder can have.
  [[nodiscard]] std::string pathOfFile(const DriveName& name) const;
  /// As the two above, in whatever letter case it stands.
  [[nodiscard]] PathFinder::Place locate(const DriveName& name);
  [[nodiscard]] PathFinder::Place locateFile(const DriveName& name);

  /// The system's path of the drive's root, without a separator at its end.
  std::string root_;
  PathFinder finder_;
};

}  // namespace quorbind
