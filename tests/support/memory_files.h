#pragma once

#include <cstddef>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"

namespace quorbind::testing {

/// A disk in memory, the drive `C:`, on which nothing waits for a device: for tests that write a
/// great many files. It can be full, and files can be protected. Letter case does not count in its
/// names (A to Z).
///
/// Tests name files as TemporaryFolder does, from the root and with `/`.
class MemoryFiles : public FileSystem {
 public:
  MemoryFiles();

  /// Writes a file, making its folders, whatever the disk's limit and protections say.
  void write(std::string_view name, std::string_view bytes);
  /// Throws std::runtime_error when there is no such file.
  [[nodiscard]] std::string read(std::string_view name) const;
  [[nodiscard]] bool has(std::string_view name) const;
  void makeFolder(std::string_view name);
  /// Takes a file, or a folder with everything in it, away.
  void remove(std::string_view name);
  /// Everything on the disk, as TemporaryFolder tells it.
  [[nodiscard]] std::map<std::string, std::string> contents() const;
  /// Puts the disk back to what `contents` answered once, without a limit and protections.
  void restore(const std::map<std::string, std::string>& contents);

  /// From now on no file may become larger than this: error 61.
  void limitFilesTo(std::size_t bytes) { limit_ = bytes; }
  /// The disk has room for so many more files, new ones or new versions; then it is full: error 61.
  void fillUpAfter(std::size_t files) { filesLeft_ = files; }
  /// From now on the file can be read, and not written, moved or deleted: error 70.
  void protect(std::string_view name);

  [[nodiscard]] bool fileExists(std::string_view path) override;
  [[nodiscard]] bool folderExists(std::string_view path) override;
  void createFolder(std::string_view path) override;
  void copyFile(std::string_view from, std::string_view to) override;
  void moveFile(std::string_view from, std::string_view to) override;
  void deleteFile(std::string_view path) override;
  [[nodiscard]] std::string absolutePath(std::string_view path) override;
  [[nodiscard]] bool sameFile(std::string_view left, std::string_view right) override;
  [[nodiscard]] std::vector<std::string> namesIn(std::string_view folder) override;
  [[nodiscard]] std::unique_ptr<ByteReader> open(std::string_view path) override;
  [[nodiscard]] std::unique_ptr<FileReplacement> replace(std::string_view path) override;

 private:
  class Reader;
  class Replacement;

  struct Entry {
    /// From the root, with `/`, as it was spelled.
    std::string name;
    /// Nothing for a folder.
    std::shared_ptr<const std::string> bytes;
  };

  [[nodiscard]] const Entry* find(const std::string& key) const;
  /// The bytes of an existing file. Raises 53, 75 or 76 for anything else.
  [[nodiscard]] std::shared_ptr<const std::string> bytesOf(std::string_view path);
  void put(const std::string& name, std::shared_ptr<const std::string> bytes);
  /// Raises 61 where a file of that size has no room.
  void requireRoom(std::size_t bytes) const;
  /// Raises 75 or 76 where no file can come to stand, and 70 where none may.
  void requireTarget(std::string_view path);

  /// By their names in capitals.
  std::map<std::string, Entry> entries_;
  std::set<std::string> protected_;
  std::size_t limit_ = std::numeric_limits<std::size_t>::max();
  std::size_t filesLeft_ = std::numeric_limits<std::size_t>::max();
};

}  // namespace quorbind::testing
