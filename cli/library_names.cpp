#include "cli/library_names.h"

#include "cli/failure.h"
#include "cli/required_document.h"
#include "platform/file_system.h"
#include "platform/folder_listings.h"
#include "platform/paths.h"
#include "platform/toolset.h"

namespace quorbind {

std::vector<std::string> libraryNames(Wiring& wiring, const LibraryPaths& server) {
  if (wiring.files.fileExists(server.selection)) {
    static_cast<void>(loadRequired(wiring.module.platform, server.selection));
  }
  std::vector<std::string> names;
  readingInput(nativeName(server.selection),
               [&] { names = wiring.toolset.createProductServices()->GetAvailableProducts(); });
  NameSet known(wiring.module.platform.locale);
  std::erase_if(names,
                [&](const std::string& name) { return !staysInFolder(name) || !known.add(name); });
  return names;
}

}  // namespace quorbind
