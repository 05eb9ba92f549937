#include "cli/doctor/server_links.h"

#include "cli/doctor/examined_files.h"

namespace quorbind {

void ServerLinks::read(const Platform& platform,
                       Findings& findings,
                       const std::string& library,
                       const std::string& path) {
  std::vector<ListedLink>& links = links_[library];
  readingFile(findings, path, [&] { links = readLinks(platform, path); });
  for (const ListedLink& link : links) {
    places_[linkKeyOf(link)].push_back({library, link.acronym});
  }
}

const std::vector<ListedLink>& ServerLinks::of(const std::string& library) const {
  return links_.at(library);
}

const std::vector<LinkPlace>& ServerLinks::placesOf(const ListedLink& link) const {
  return places_.at(linkKeyOf(link));
}

}  // namespace quorbind
