#pragma once

#include <string>

namespace quorbind {

/// What a page in the folder `from` puts in front of the names of files below `target`, without a
/// `/` at its end; both are folders of this machine, as the user names them in any letter case. A
/// relative link, which goes on leading there when both are moved or shared together. Folders that
/// share nothing but the machine's root are not moved together: then the whole address, with which
/// the page alone can be moved.
std::string linkBase(const std::string& from, const std::string& target);

}  // namespace quorbind
