#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/portable/folder_index.h"

namespace quorbind {

/// Finds out how a path is really spelled, part by part: as asked for when that stands, else in the
/// first other letter case that does.
///
/// What stands as asked for costs one look at the disk. For a path that does not, the folder is
/// looked at once more, and its names are in the index (folder_index.h). A folder that was asked
/// for in another case is found part by part once; from then on it costs two looks more.
class PathFinder {
 public:
  struct Place {
    std::string path;
    /// Whether something stood there, be it a link that leads nowhere.
    bool stands = false;
    /// Whether it is already known as a plain file, or as a folder; otherwise it has to be asked.
    bool isKnownFile = false;
    bool isKnownFolder = false;
  };

  /// `root` is the part of all paths that is taken as it is, without a `/` at its end.
  explicit PathFinder(std::string root);

  /// `path` begins with the root and a `/`, and has no other `/` at its end. Parts that do not
  /// exist come back as spelled. Raises 52 for a path longer than the system allows.
  Place find(std::string path);
  /// In no other letter case.
  static Place findAsSpelled(std::string path);

 private:
  Place findInAnyCase(std::string path);
  std::optional<Place> findInOtherSpelling(const std::string& folder, std::string_view name);
  std::optional<Place> findIn(const std::string& folder, std::string_view name);
  void remember(const std::string& folder, const std::string& otherSpelling);

  std::string root_;
  FolderIndex index_;
  /// Folders found in another letter case than asked for, each by the spelling asked for.
  std::unordered_map<std::string, std::string> otherSpellings_;
};

}  // namespace quorbind
