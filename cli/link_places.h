#pragma once

#include <map>
#include <string>
#include <vector>

#include "cli/side_file_reader.h"

namespace quorbind {

/// Where a link identifier stands.
struct LinkPlace {
  std::string library;
  std::string acronym;
};

/// Where identifiers stand, by their key.
using LinkPlaces = std::map<std::string, std::vector<LinkPlace>>;

/// The identifier without the blanks around it, as the component compares it between libraries.
std::string linkKeyOf(const ListedLink& link);

/// `LIBRARY (ACRONYM), LIBRARY (ACRONYM)`.
std::string textOf(const std::vector<LinkPlace>& places);

}  // namespace quorbind
