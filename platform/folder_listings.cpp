#include "platform/folder_listings.h"

#include <algorithm>
#include <vector>

#include "platform/error_trap.h"
#include "platform/file_system.h"
#include "platform/locale.h"
#include "platform/paths.h"
#include "platform/runtime_error.h"

namespace quorbind {

namespace {

constexpr std::size_t kAskedForFirst = 16;
/// A table of contents may name one folder in a thousand spellings.
constexpr std::size_t kMostListedNames = 500'000;

constexpr std::string_view kReplacementCharacter = "\xEF\xBF\xBD";

/// A short name holds a `~`, what stands at the end of a name may not count, and a name that is no
/// Unicode is listed with other characters.
bool mayBeAnotherName(std::string_view name) {
  return name.find('~') != std::string_view::npos || name.ends_with('.') || name.ends_with(' ') ||
         name.find(kReplacementCharacter) != std::string_view::npos;
}

bool isThere(const RunTimeError& error) {
  return !error.is(ErrorNumber::kPathNotFound) && !error.is(ErrorNumber::kPathFileAccessError);
}

}  // namespace

bool FolderListings::hasFile(const std::string& path) {
  forgetSomeFolders();
  const std::string_view name = fileNameOf(path);
  Folder& folder = folderAt(folderPartOf(path));
  if (mayBeAnotherName(name) || ++folder.askedFor <= kAskedForFirst) {
    return files_.fileExists(path);
  }
  if (!folder.isListed) {
    folder.names = list(lastFolder_->first);
    folder.isListed = true;
  }
  if (!folder.names) {
    return files_.fileExists(path);
  }
  const auto found = folder.names->find(name);
  return found && (folder.names->at(*found) == name || files_.fileExists(path));
}

FolderListings::Folder& FolderListings::folderAt(std::string_view name) {
  if (lastFolder_ == nullptr || lastFolder_->first != name) {
    lastFolder_ = &*folders_.try_emplace(std::string(name)).first;
  }
  return lastFolder_->second;
}

void FolderListings::forgetSomeFolders() {
  if (folders_.size() >= mostFolders_) {
    lastFolder_ = nullptr;
    std::erase_if(folders_, [](const auto& folder) { return !folder.second.isListed; });
    mostFolders_ = std::max(kMostFolders, 2 * folders_.size());
  }
}

/// Nothing where a file that is there might be left out.
std::optional<NameSet> FolderListings::list(const std::string& folder) {
  if (listedNames_ > kMostListedNames) {
    return std::nullopt;
  }
  std::vector<std::string> names;
  if (const auto error = errorOf([&] { names = files_.fileNamesIn(folder); });
      error && isThere(*error)) {
    return std::nullopt;
  }
  listedNames_ += names.size();
  NameSet set(locale_);
  for (const std::string& name : names) {
    set.add(name);
  }
  return set;
}

}  // namespace quorbind
