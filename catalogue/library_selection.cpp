#include "catalogue/library_selection.h"

#include "catalogue/book_lookup.h"
#include "catalogue/names.h"
#include "platform/error_trap.h"
#include "platform/file_system.h"
#include "platform/toolset.h"
#include "platform/xml_document.h"
#include "platform/xpath_query.h"
#include "resources/messages.h"

namespace quorbind {

namespace {

/// `server` is the server's root as it is given: it brings its own `\`.
std::string selectionFileOf(const std::string& server) {
  return std::string(server)
      .append(server_names::kDocsFolder)
      .append("\\")
      .append(server_names::kSelectionFile);
}

/// The relative folder of the library `name`; empty after the user was told that there is none.
std::string locationOf(const XmlDocument& selection, UserInterface& ui, const std::string& name) {
  const XmlNode library =
      selection.select(elementsWith(selection_names::kQuorPath, selection_names::kName, name, '"'));
  if (!library) {
    ui.show(criticalMessage((Message::kProduct + name) + Message::kNotPresentInCatalogue));
    return {};
  }
  const XmlNode location = library.child(selection_names::kLocation);
  std::string folder = location ? location.text() : std::string();
  if (folder.empty()) {
    ui.show(criticalMessage(Message::kLocationMissing + name));
  }
  return folder;
}

}  // namespace

std::string QuorLocation(const Platform& platform, const std::string& vstrQuorName) {
  return trapped(platform.ui, source::kQuorLocation, std::string(), [&]() -> std::string {
    const auto selection = platform.xml.createDocument();
    const std::string server = platform.toolset.createLibraryServices()->GetQuorServer();
    const std::string file = selectionFileOf(server);
    if (!platform.files.fileExists(file)) {
      platform.ui.show(criticalMessage(std::string(text(Message::kSelectionNotFound))));
      return {};
    }
    if (!selection->load(file)) {
      platform.ui.show(criticalMessage(std::string(text(Message::kSelectionNotValid))));
      return {};
    }
    const std::string folder = locationOf(*selection, platform.ui, vstrQuorName);
    return folder.empty() ? folder : server + folder + "\\" + std::string(catalogue_names::kFile);
  });
}

std::vector<std::string> QuorNames(const Platform& platform) {
  using Names = std::vector<std::string>;
  return trapped(platform.ui, source::kQuorNames, Names(), [&]() -> Names {
    const std::string server = platform.toolset.createLibraryServices()->GetQuorServer();
    const auto selection = platform.xml.createDocument();
    if (!selection->load(selectionFileOf(server))) {
      platform.ui.show(criticalMessage(std::string(text(Message::kSelectionNotValid))));
      return {};
    }
    return publishedList(selection->elementsByName(selection_names::kName));
  });
}

}  // namespace quorbind
