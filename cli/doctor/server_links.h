#pragma once

#include <string>
#include <vector>

#include "cli/doctor/finding.h"
#include "cli/link_places.h"
#include "cli/side_file_reader.h"
#include "platform/platform.h"

namespace quorbind {

/// The link identifiers of all libraries of a server, which have to differ from each other.
class ServerLinks {
 public:
  /// Reads the file of a library. What is wrong with it is told to `findings`.
  void read(const Platform& platform,
            Findings& findings,
            const std::string& library,
            const std::string& path);

  [[nodiscard]] const std::vector<ListedLink>& of(const std::string& library) const;
  /// Where the identifier stands.
  [[nodiscard]] const std::vector<LinkPlace>& placesOf(const ListedLink& link) const;

 private:
  std::map<std::string, std::vector<ListedLink>> links_;
  LinkPlaces places_;
};

}  // namespace quorbind
