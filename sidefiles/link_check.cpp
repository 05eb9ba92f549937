#include "sidefiles/link_check.h"

#include <algorithm>
#include <utility>

#include "platform/error_trap.h"
#include "platform/file_system.h"
#include "platform/paths.h"
#include "platform/text.h"
#include "platform/toolset.h"
#include "platform/xml_document.h"
#include "sidefiles/link_file.h"
#include "sidefiles/names.h"

namespace quorbind {

namespace {

bool isTakenBy(const Platform& platform, const std::string& path, std::string_view identifier) {
  const std::vector<std::string> taken = trimmedLinkIds(platform, path);
  return std::find(taken.begin(), taken.end(), trimBlanks(identifier)) != taken.end();
}

}  // namespace

bool CheckDuplicateLinkID(const Platform& platform, const std::string& identifier) {
  return trapped(platform.ui, source::kCheckDuplicateLinkId, false, [&] {
    const std::vector<std::string> files = productLinkFiles(platform);
    const bool isTaken = std::any_of(files.begin(), files.end(), [&](const std::string& path) {
      return isTakenBy(platform, path, identifier);
    });
    if (isTaken) {
      tellOfTakenLinkId(platform, identifier);
    }
    return isTaken;
  });
}

std::vector<std::string> productLinkFiles(const Platform& platform) {
  const std::string root = platform.toolset.createLibraryServices()->GetQuorServer();
  std::vector<std::string> files;
  for (const std::string& product :
       platform.toolset.createProductServices()->GetAvailableProducts()) {
    std::string path = linkFileBelow(root, product);
    // The names come out of the server's list; one that leads elsewhere has no file.
    if (nameBelow(product) && platform.files.fileExists(path)) {
      files.push_back(std::move(path));
    }
  }
  return files;
}

std::vector<std::string> trimmedLinkIds(const Platform& platform, const std::string& path) {
  const auto document = platform.xml.createDocument();
  document->load(path);
  std::vector<std::string> identifiers;
  for (const XmlNode& linkId : document->selectAll(link_names::kLinkIdPath)) {
    identifiers.emplace_back(trimBlanks(linkId.text()));
  }
  return identifiers;
}

}  // namespace quorbind
