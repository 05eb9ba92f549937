#include "catalogue/library_selection.h"

#include "catalogue/book_lookup.h"
#include "catalogue/names.h"
#include "platform/error_trap.h"
#include "platform/file_system.h"
#include "platform/first_element.h"
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

/// Where there is no XML, that is what the user is told, whatever else is missing.
void requireXml(XmlLibrary& xml) {
  (void)xml.createDocument();
}

std::string libraryNamed(std::string_view name) {
  return elementsWith(selection_names::kQuorPath, selection_names::kName, name, '"');
}

/// The relative folder that a library's entry states, if any.
std::string locationOf(const XmlNode& library) {
  const XmlNode location = library.child(selection_names::kLocation);
  return location ? location.text() : std::string();
}

}  // namespace

std::string QuorLocation(const Platform& platform, const std::string& vstrQuorName) {
  return trapped(platform.ui, source::kQuorLocation, std::string(), [&]() -> std::string {
    requireXml(platform.xml);
    const std::string server = platform.toolset.createLibraryServices()->GetQuorServer();
    const std::string file = selectionFileOf(server);
    if (!platform.files.fileExists(file)) {
      platform.ui.show(criticalMessage(std::string(text(Message::kSelectionNotFound))));
      return {};
    }
    std::string folder;
    FirstElement library([&](const XmlNode& entry) { folder = locationOf(entry); });
    if (!library.lookFor(platform.xml, file, [&] { return libraryNamed(vstrQuorName); })) {
      platform.ui.show(criticalMessage(std::string(text(Message::kSelectionNotValid))));
      return {};
    }
    if (!library.isFound()) {
      platform.ui.show(
          criticalMessage((Message::kProduct + vstrQuorName) + Message::kNotPresentInCatalogue));
      return {};
    }
    if (folder.empty()) {
      platform.ui.show(criticalMessage(Message::kLocationMissing + vstrQuorName));
      return {};
    }
    return server + folder + "\\" + std::string(catalogue_names::kFile);
  });
}

std::vector<std::string> QuorNames(const Platform& platform) {
  using Names = std::vector<std::string>;
  return trapped(platform.ui, source::kQuorNames, Names(), [&]() -> Names {
    const std::string server = platform.toolset.createLibraryServices()->GetQuorServer();
    auto names = publishedTexts(platform.xml, selectionFileOf(server), selection_names::kName);
    if (!names) {
      platform.ui.show(criticalMessage(std::string(text(Message::kSelectionNotValid))));
      return {};
    }
    return *std::move(names);
  });
}

}  // namespace quorbind
