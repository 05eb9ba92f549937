#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/folder_listings.h"
#include "platform/text_store.h"

namespace quorbind {

class Locale;

/// Paths of files, each once, without regard to letter case like the file system's.
///
/// The names stand folder by folder: a book brings thousands of files into a few folders, and whole
/// paths would take several times the memory.
class PathSet {
 public:
  /// Kept by reference.
  explicit PathSet(const Locale& locale) : locale_(locale) {}
  ~PathSet() = default;
  PathSet(const PathSet&) = delete;
  PathSet& operator=(const PathSet&) = delete;

  /// Whether the path is new.
  bool add(std::string_view path);
  /// The same for somebody who needn't know, which costs little before an `add` in the same folder.
  /// Until then it stands as often as it was noted.
  void note(std::string_view path);

 private:
  struct Names {
    NameSet known;
    TextStore noted = {};
  };

  Names& namesIn(std::string_view folder);

  const Locale& locale_;
  /// By the folder's name in upper case.
  std::unordered_map<std::string, Names> folders_;
  /// That of the path before, as it was spelled, which is most often the next one's, too.
  std::string lastFolder_;
  Names* lastNames_ = nullptr;
};

}  // namespace quorbind
