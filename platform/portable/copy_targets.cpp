#include "platform/portable/copy_targets.h"

#include <utility>

#include "platform/portable/system_call.h"

namespace quorbind {

PathFinder::Place CopyTargets::find(const std::string& path) {
  Folder* const folder = folderFor(path);
  if (folder == nullptr) {
    return finder_.find(path);
  }
  const std::string_view name = nameIn(path);
  if (!folder->names) {
    PathFinder::Place asSpelled = PathFinder::findAsSpelled(pathIn(folder->path, name));
    if (asSpelled.stands) {
      return asSpelled;
    }
    if (!list(*folder)) {
      return finder_.find(path);
    }
  }
  return findInListing(*folder, name);
}

void CopyTargets::add(const std::string& path) {
  Folder* const folder = folderFor(path);
  if (folder != nullptr && folder->names) {
    folder->names->add(nameIn(path));
  }
}

/// Null when it does not stand.
CopyTargets::Folder* CopyTargets::folderFor(const std::string& path) {
  if (lastAsked_ != nullptr && isIn(lastAsked_->first, path)) {
    return lastAsked_->second;
  }
  std::string asked = parentOf(path);
  if (const auto known = asked_.find(asked); known != asked_.end()) {
    lastAsked_ = &*known;
    return known->second;
  }
  PathFinder::Place place = finder_.find(asked);
  if (!place.stands) {
    return nullptr;
  }
  Folder& folder = folders_.try_emplace(place.path, Folder{place.path, {}}).first->second;
  lastAsked_ = &*asked_.emplace(std::move(asked), &folder).first;
  return &folder;
}

/// Answers whether it can be.
bool CopyTargets::list(Folder& folder) {
  const auto names = listFolder(folder.path);
  if (!names) {
    return false;
  }
  folder.names.emplace();
  for (const std::string& name : *names) {
    folder.names->add(name);
  }
  return true;
}

// Of several spellings the listing has one; the one that was asked for comes first.
PathFinder::Place CopyTargets::findInListing(const Folder& folder, std::string_view name) {
  const std::optional<std::string_view> spelling = folder.names->spellingOf(name);
  if (!spelling) {
    return {pathIn(folder.path, name), false};
  }
  if (*spelling != name) {
    PathFinder::Place asSpelled = PathFinder::findAsSpelled(pathIn(folder.path, name));
    if (asSpelled.stands) {
      return asSpelled;
    }
  }
  return {pathIn(folder.path, *spelling), true};
}

}  // namespace quorbind
