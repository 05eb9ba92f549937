#include "toolset/folder_listings.h"

#include <algorithm>

#include "platform/error_trap.h"
#include "platform/file_system.h"
#include "platform/locale.h"
#include "platform/paths.h"

namespace quorbind {

bool NameSet::add(std::string_view name) {
  return names_.insert(locale_.upperCase(name)).second;
}

bool FolderListings::hasFile(const std::string& path) {
  const Listing& listing = listingOf(std::string(folderPartOf(path)));
  return mayHold(listing, fileNameOf(path)) && files_.fileExists(path);
}

bool FolderListings::mayHold(const Listing& listing, std::string_view name) const {
  return !listing || std::binary_search(listing->begin(), listing->end(), locale_.upperCase(name));
}

const FolderListings::Listing& FolderListings::listingOf(const std::string& folder) {
  const auto found = listings_.find(folder);
  return found != listings_.end() ? found->second
                                  : listings_.emplace(folder, list(folder)).first->second;
}

FolderListings::Listing FolderListings::list(const std::string& folder) const {
  Listing listing;
  ignoringErrors([&] { listing = files_.namesIn(folder); });
  if (listing) {
    for (std::string& name : *listing) {
      name = locale_.upperCase(name);
    }
    std::sort(listing->begin(), listing->end());
  }
  return listing;
}

}  // namespace quorbind
