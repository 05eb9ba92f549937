#include "platform/portable/path_finder.h"

#include <sys/stat.h>

#include <climits>
#include <cstddef>
#include <utility>

#include "platform/portable/system_call.h"
#include "platform/runtime_error.h"

namespace quorbind {

namespace {

constexpr std::size_t kMaximumSpellingsKept = 1000;

PathFinder::Place placeIn(const std::string& folder,
                          std::string_view name,
                          const FolderListing& names) {
  const std::optional<std::string_view> spelling = names.spellingOf(name);
  return {pathIn(folder, spelling.value_or(name)), spelling.has_value()};
}

}  // namespace

PathFinder::PathFinder(std::string root) : root_(std::move(root)) {}

PathFinder::Place PathFinder::findAsSpelled(std::string path) {
  struct stat status {};
  const bool stands = ::lstat(path.c_str(), &status) == 0;
  return {.path = std::move(path),
          .stands = stands,
          .isKnownFile = stands && S_ISREG(status.st_mode),
          .isKnownFolder = stands && S_ISDIR(status.st_mode)};
}

PathFinder::Place PathFinder::find(std::string path) {
  if (path.size() >= PATH_MAX) {
    raise(ErrorNumber::kBadFileName);
  }
  Place asSpelled = findAsSpelled(std::move(path));
  return asSpelled.stands ? std::move(asSpelled) : findInAnyCase(std::move(asSpelled.path));
}

// `path` does not stand as spelled.
PathFinder::Place PathFinder::findInAnyCase(std::string path) {
  const bool isRoot = path.size() <= root_.size() + 1;
  if (isRoot || index_.rulesOut(path)) {
    return {std::move(path), false};
  }
  const std::string folder = parentOf(path);
  const std::string_view name = nameIn(path);
  if (const FolderListing* names = index_.listingOf(folder)) {
    return placeIn(folder, name, *names);
  }
  return findInOtherSpelling(folder, name).value_or(Place{std::move(path), false});
}

// `folder` does not stand as spelled, or can't be listed.
std::optional<PathFinder::Place> PathFinder::findInOtherSpelling(const std::string& folder,
                                                                 std::string_view name) {
  const auto known = otherSpellings_.find(folder);
  if (known != otherSpellings_.end()) {
    if (auto place = findIn(known->second, name)) {
      return place;
    }
    otherSpellings_.erase(known);
  }
  const Place standing = findInAnyCase(folder);
  if (!standing.stands || standing.path == folder) {
    return std::nullopt;
  }
  remember(folder, standing.path);
  return findIn(standing.path, name);
}

// Nothing when the folder has gone, or can't be listed.
std::optional<PathFinder::Place> PathFinder::findIn(const std::string& folder,
                                                    std::string_view name) {
  Place asSpelled = findAsSpelled(pathIn(folder, name));
  if (asSpelled.stands) {
    return asSpelled;
  }
  const FolderListing* names = index_.listingOf(folder);
  return names == nullptr ? std::nullopt : std::optional(placeIn(folder, name, *names));
}

void PathFinder::remember(const std::string& folder, const std::string& otherSpelling) {
  if (otherSpellings_.size() >= kMaximumSpellingsKept) {
    otherSpellings_.clear();
  }
  otherSpellings_.insert_or_assign(folder, otherSpelling);
}

}  // namespace quorbind
