#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/text_index.h"

namespace quorbind {

class FileSystem;
class Locale;

/// File names, without regard to letter case like the file system's.
class NameSet {
 public:
  /// Kept by reference.
  explicit NameSet(const Locale& locale) : locale_(locale) {}

  /// Whether the name is new.
  bool add(std::string_view name);

 private:
  const Locale& locale_;
  TextIndex names_;
};

/// Tells what files there are, from one listing of each folder: a book names thousands of documents
/// in a few folders, and to ask the disk for each would take most of the time. A file that comes
/// into a listed folder later, or leaves it, is not seen.
///
/// The first few files of a folder are asked for, since the folder may hold a hundred times as many
/// as the book; so is every file of a folder that can't be listed, and every name that a file may
/// have beside the listed one.
class FolderListings {
 public:
  /// Kept by reference.
  FolderListings(FileSystem& files, const Locale& locale) : files_(files), locale_(locale) {}

  /// The path as FileSystem::absolutePath gives it.
  [[nodiscard]] bool hasFile(const std::string& path);

 private:
  struct Folder {
    std::size_t askedFor = 0;
    bool isListed = false;
    /// Of files, in upper case, sorted; nothing for a folder that can't be listed.
    std::optional<std::vector<std::string>> names;
  };

  [[nodiscard]] std::optional<std::vector<std::string>> list(const std::string& folder) const;

  FileSystem& files_;
  const Locale& locale_;
  std::unordered_map<std::string, Folder> folders_;
};

}  // namespace quorbind
