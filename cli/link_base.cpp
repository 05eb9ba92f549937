#include "cli/link_base.h"

#include <algorithm>
#include <filesystem>

#include "cli/html_text.h"
#include "platform/portable/path_finder.h"

namespace quorbind {

namespace {

namespace fs = std::filesystem;

/// A browser takes folders by their names, and follows no link of the disk before it goes back over
/// `..`; so the name stays as it was typed, but for its letter case, which a browser does not pass
/// over. One with `..` of its own has to be followed first.
fs::path namedFolder(const std::string& folder) {
  const fs::path full = fs::absolute(folder);
  const bool goesBack = std::find(full.begin(), full.end(), "..") != full.end();
  const fs::path named = goesBack ? fs::weakly_canonical(full) : full.lexically_normal();
  const fs::path bare = named.has_filename() ? named : named.parent_path();
  return PathFinder("").find(bare.string()).path;
}

/// The name behind the root; empty for the root itself.
fs::path topOf(const fs::path& folder) {
  const fs::path below = folder.relative_path();
  return below.empty() ? fs::path() : *below.begin();
}

}  // namespace

std::string linkBase(const std::string& from, const std::string& target) {
  const fs::path start = namedFolder(from);
  const fs::path end = namedFolder(target);
  if (topOf(start) == topOf(end)) {
    return linkPath(end.lexically_relative(start).string());
  }
  const std::string path = end == end.root_path() ? std::string() : linkPath(end.string());
  return "file://" + path;
}

}  // namespace quorbind
