#pragma once

// The files of a run that only shows what it would do.
//
// Everything is read from the disk, and everything that is written, moved, copied, made or deleted
// is so in memory alone: whoever works on these files meets what it has done before, and the disk
// stays as it is. So a rehearsed run takes the same way as the real one, checks and messages
// included. What only the disk can refuse is refused where it can be known without trying: a file
// that can't be read, a file or folder that may not be written. A disk that is full is not.

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/file_system.h"
#include "platform/locale.h"
#include "platform/portable/path_finder.h"

namespace quorbind {

class RehearsedFiles final : public FileSystem {
 public:
  /// Both are kept by reference. Names that differ in letter case alone mean one file.
  RehearsedFiles(FileSystem& disk, const Locale& locale);

  [[nodiscard]] bool fileExists(std::string_view path) override;
  [[nodiscard]] bool folderExists(std::string_view path) override;
  void createFolder(std::string_view path) override;
  void copyFile(std::string_view from, std::string_view to) override;
  void moveFile(std::string_view from, std::string_view to) override;
  void deleteFile(std::string_view path) override;
  [[nodiscard]] std::string absolutePath(std::string_view path) override;
  [[nodiscard]] bool sameFile(std::string_view left, std::string_view right) override;
  [[nodiscard]] std::vector<std::string> namesIn(std::string_view folder) override;
  [[nodiscard]] std::vector<std::string> fileNamesIn(std::string_view folder) override;
  [[nodiscard]] std::unique_ptr<ByteReader> open(std::string_view path) override;
  [[nodiscard]] std::unique_ptr<FileReplacement> replace(std::string_view path) override;

 private:
  class Replacement;

  struct Nothing {};
  struct Folder {};
  using Bytes = std::shared_ptr<const std::string>;
  /// What stands on the disk under that name, perhaps elsewhere.
  struct DiskFile {
    std::string path;
  };
  struct Entry {
    std::string path;
    std::variant<Nothing, Folder, Bytes, DiskFile> content;
  };

  [[nodiscard]] std::string keyOf(std::string_view path) const;
  [[nodiscard]] const Entry* find(std::string_view path) const;
  void put(std::string_view path, decltype(Entry::content) content);
  /// The contents of an existing file. Raises 53, 75 or 76 for anything else.
  [[nodiscard]] decltype(Entry::content) contentOf(std::string_view path);
  /// Raises 75 or 76 where no file can come to stand, and 70 where none may.
  void requireTarget(std::string_view path);
  void requireRights(std::string_view path);

  FileSystem& disk_;
  const Locale& locale_;
  PathFinder finder_{""};
  /// What differs from the disk.
  std::map<std::string, Entry> entries_;
};

}  // namespace quorbind
