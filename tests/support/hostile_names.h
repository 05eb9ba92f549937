#pragma once

#include <string>
#include <vector>

namespace quorbind::testing {

/// A name as somebody may put it into a document to have another place looked at.
struct HostileName {
  enum class Leads {
    kOutOfFolder,        ///< by `..`, a drive, a scheme or an alternate stream
    kToNetworkOrDevice,  ///< or, from the root of a drive, there
    kOutOnceDecoded,     ///< only where `%2e` is read as the character that it stands for
    kNowhere             ///< an ordinary name, whatever it looks like
  };

  std::string name;
  Leads leads;
};

/// More than 250 of them. None holds a `#`, a quotation mark or a character that XML can't hold.
const std::vector<HostileName>& hostileNames();

}  // namespace quorbind::testing
