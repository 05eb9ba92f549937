#include "cli/paths.h"

#include <algorithm>
#include <filesystem>

#include "catalogue/names.h"
#include "platform/paths.h"
#include "platform/text.h"
#include "sidefiles/names.h"

namespace quorbind {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSeparator = "\\";
constexpr std::string_view kRootDrive = "C:";

/// As far as the folder exists its links are followed, because `..` behind a link leads elsewhere
/// than its text says.
fs::path resolved(const fs::path& folder) {
  std::error_code failed;
  fs::path result = fs::weakly_canonical(folder, failed);
  if (failed) {
    result = folder.lexically_normal();
  }
  return result.has_filename() ? result : result.parent_path();
}

}  // namespace

std::string componentFile(const std::string& native) {
  const fs::path full = fs::absolute(native);
  return withBackslashes((resolved(full.parent_path()) / full.filename()).string());
}

std::string componentFolder(const std::string& native) {
  std::string folder = withBackslashes(resolved(fs::absolute(native)).string());
  return folder == kSeparator ? std::string() : folder;
}

std::string nativeName(std::string_view component) {
  component.remove_prefix(component.starts_with(kRootDrive) ? kRootDrive.size() : 0);
  std::string name(component);
  std::replace(name.begin(), name.end(), '\\', '/');
  return name;
}

bool staysBelow(std::string_view name) {
  const Pieces parts(name, kSeparator);
  return parts.count() > 0 && std::all_of(parts.begin(), parts.end(), staysInFolder);
}

LibraryPaths::LibraryPaths(const std::string& server, const std::string& library)
    : serverRoot(componentFolder(server) + "\\"),
      docsFolder(serverRoot + std::string(server_names::kDocsFolder) + "\\"),
      location(joinedPath(server_names::kDocsFolder, library)),
      folder(docsFolder + library),
      catalogue(joinedPath(folder, catalogue_names::kFile)),
      bookCategories(joinedPath(folder, category_names::kFile)),
      searchKeywords(joinedPath(folder, keyword_names::kFile)),
      linkIds(joinedPath(folder, link_names::kFile)),
      selection(docsFolder + std::string(server_names::kSelectionFile)),
      defaultCategories(docsFolder + std::string(server_names::kDefaultCategoriesFile)) {}

}  // namespace quorbind
