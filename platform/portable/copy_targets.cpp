#include "platform/portable/copy_targets.h"

#include <utility>

#include "platform/portable/system_call.h"

namespace quorbind {

PathFinder::Place CopyTargets::find(const std::string& path) {
  Folder* const folder = folderFor(path);
  if (folder == nullptr) {
    return finder_.find(path);
  }
  const std::string name = nameIn(path);
  if (!folder->names) {
    PathFinder::Place asSpelled = PathFinder::findAsSpelled(pathIn(folder->path, name));
    if (asSpelled.stands) {
      return asSpelled;
    }
    if (!list(*folder)) {
      return finder_.find(path);
    }
  }
  const std::string* const spelling = folder->names->spellingOf(name);
  return {pathIn(folder->path, spelling == nullptr ? name : *spelling), spelling != nullptr};
}

void CopyTargets::add(const std::string& path) {
  const auto folder = folders_.find(parentOf(path));
  if (folder != folders_.end() && folder->second.names) {
    folder->second.names->add(nameIn(path));
  }
}

/// Null when it does not stand.
CopyTargets::Folder* CopyTargets::folderFor(const std::string& path) {
  std::string asked = parentOf(path);
  if (const auto known = folders_.find(asked); known != folders_.end()) {
    return &known->second;
  }
  PathFinder::Place place = finder_.find(asked);
  if (!place.stands) {
    return nullptr;
  }
  return &folders_.try_emplace(std::move(asked), Folder{std::move(place.path), {}}).first->second;
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

}  // namespace quorbind
