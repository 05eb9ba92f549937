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

/// The folders that lead from `upper` down to `lower`, each as a link writes it and with its `/`;
/// none where that lies elsewhere.
std::vector<std::string> wayDown(const fs::path& upper, const fs::path& lower) {
  const fs::path relative = lower.lexically_relative(upper);
  std::vector<std::string> way;
  if (!relative.empty() && relative != "." && *relative.begin() != "..") {
    for (const fs::path& folder : relative) {
      way.push_back(linkPiece(folder.string()) + "/");
    }
  }
  return way;
}

/// Folders of which nothing but the machine's root holds both are not moved together.
bool mayMoveTogether(const fs::path& left, const fs::path& right) {
  return topOf(left) == topOf(right);
}

std::string linkBetween(const fs::path& start, const fs::path& end) {
  if (mayMoveTogether(start, end)) {
    return linkPath(end.lexically_relative(start).string());
  }
  const std::string path = end == end.root_path() ? std::string() : linkPath(end.string());
  return "file://" + path;
}

}  // namespace

LinkBase::LinkBase(const std::string& from, const std::string& target) {
  const fs::path start = namedFolder(from);
  const fs::path end = namedFolder(target);
  target_ = linkBetween(start, end);
  if (mayMoveTogether(start, end)) {
    way_ = wayDown(end, start);
  }
}

std::string LinkBase::to(std::string_view file) const {
  const std::string link = linkPath(file);
  if (way_.empty()) {
    return target_ + "/" + link;
  }
  std::string_view rest = link;
  std::string up;
  for (const std::string& folder : way_) {
    if (up.empty() && rest.starts_with(folder)) {
      rest.remove_prefix(folder.size());
    } else {
      up += "../";
    }
  }
  return up.append(rest);
}

}  // namespace quorbind
