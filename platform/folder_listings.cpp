#include "platform/folder_listings.h"

#include <algorithm>

#include "platform/error_trap.h"
#include "platform/file_system.h"
#include "platform/locale.h"
#include "platform/paths.h"
#include "platform/runtime_error.h"

namespace quorbind {

namespace {

constexpr std::size_t kAskedForFirst = 16;

/// A short name holds a `~`, and what stands at the end of a name may not count.
bool mayBeAnotherName(std::string_view name) {
  return name.find('~') != std::string_view::npos || name.ends_with('.') || name.ends_with(' ');
}

bool isThere(const RunTimeError& error) {
  return !error.is(ErrorNumber::kPathNotFound) && !error.is(ErrorNumber::kPathFileAccessError);
}

}  // namespace

bool FolderListings::hasFile(const std::string& path) {
  const std::string folderName(folderPartOf(path));
  const std::string_view name = fileNameOf(path);
  Folder& folder = folders_[folderName];
  if (mayBeAnotherName(name) || ++folder.askedFor <= kAskedForFirst) {
    return files_.fileExists(path);
  }
  if (!folder.isListed) {
    folder.names = list(folderName);
    folder.isListed = true;
  }
  return folder.names ? std::binary_search(
                            folder.names->begin(), folder.names->end(), locale_.upperCase(name))
                      : files_.fileExists(path);
}

/// Nothing where a file that is there might be left out.
std::optional<std::vector<std::string>> FolderListings::list(const std::string& folder) const {
  std::vector<std::string> names;
  if (const auto error = errorOf([&] { names = files_.fileNamesIn(folder); });
      error && isThere(*error)) {
    return std::nullopt;
  }
  for (std::string& name : names) {
    name = locale_.upperCase(name);
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace quorbind
