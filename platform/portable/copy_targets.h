#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/portable/folder_index.h"
#include "platform/portable/path_finder.h"

namespace quorbind {

/// Finds out under which paths the copies of a series come. The series itself changes the folders
/// that it copies to all the time, so that what the index knows of them never holds: to find out
/// that a name is free, the folder would be listed anew for every file.
///
/// A folder is listed when the first name is not found in it as spelled; from then on the listing
/// decides, together with what the series adds. A file that somebody else puts there meanwhile, in
/// another letter case, is not seen.
class CopyTargets {
 public:
  /// Kept by reference.
  explicit CopyTargets(PathFinder& finder) : finder_(finder) {}

  /// As PathFinder::find.
  [[nodiscard]] PathFinder::Place find(const std::string& path);
  /// Takes note of a file that has come to `path`, where `find` had found none.
  void add(const std::string& path);

 private:
  struct Folder {
    /// As it is really spelled.
    std::string path;
    /// Nothing before it is needed, and where the folder can't be listed.
    std::optional<FolderListing> names;
  };

  using Spellings = std::unordered_map<std::string, Folder*>;

  Folder* folderFor(const std::string& path);
  static bool list(Folder& folder);
  static PathFinder::Place findInListing(const Folder& folder, std::string_view name);

  PathFinder& finder_;
  /// Those that stand, by how they are really spelled.
  std::unordered_map<std::string, Folder> folders_;
  /// The same by the spellings asked for.
  Spellings asked_;
  /// Most often the one that is asked for next, too.
  Spellings::value_type* lastAsked_ = nullptr;
};

}  // namespace quorbind
