#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/text_index.h"

namespace quorbind {

class FileSystem;
class Locale;

/// File names, each once, without regard to letter case like the file system's.
class NameSet {
 public:
  /// Kept by reference.
  explicit NameSet(const Locale& locale) : names_(locale) {}

  /// Whether the name is new.
  bool add(std::string_view name) { return names_.add(name).second; }

  [[nodiscard]] std::size_t size() const { return names_.size(); }
  /// In the order and in the spelling in which they came first.
  [[nodiscard]] std::string_view at(std::size_t number) const { return names_.at(number); }
  [[nodiscard]] std::optional<std::size_t> find(std::string_view name) const {
    return names_.find(name);
  }

 private:
  TextIndex names_;
};

/// Tells what files there are, from one listing of each folder: a book names thousands of documents
/// in a few folders, and to ask the disk for each would take most of the time. A file that comes
/// into a listed folder later, or leaves it, is not seen.
///
/// The first few files of a folder are asked for, since the folder may hold a hundred times as many
/// as the book. So is every file of a folder that can't be listed, every name that a file may have
/// beside the listed one, and every file that is listed in another spelling only: something else
/// may stand under the very name. Once many names have been listed, no other folder is.
class FolderListings {
 public:
  /// Kept by reference.
  FolderListings(FileSystem& files, const Locale& locale) : files_(files), locale_(locale) {}
  ~FolderListings() = default;
  FolderListings(const FolderListings&) = delete;
  FolderListings& operator=(const FolderListings&) = delete;

  /// The path as FileSystem::absolutePath gives it.
  [[nodiscard]] bool hasFile(const std::string& path);

 private:
  static constexpr std::size_t kMostFolders = 10'000;

  struct Folder {
    std::size_t askedFor = 0;
    bool isListed = false;
    /// Of files; nothing for a folder that is not listed.
    std::optional<NameSet> names;
  };
  using Folders = std::unordered_map<std::string, Folder>;

  [[nodiscard]] Folder& folderAt(std::string_view name);
  /// Where they are too many: those that are not listed, as if nothing had been asked of them.
  void forgetSomeFolders();
  [[nodiscard]] std::optional<NameSet> list(const std::string& folder);

  FileSystem& files_;
  const Locale& locale_;
  Folders folders_;
  /// That of the document before, which is most often the next one's, too.
  Folders::value_type* lastFolder_ = nullptr;
  std::size_t mostFolders_ = kMostFolders;
  std::size_t listedNames_ = 0;
};

}  // namespace quorbind
