#include "sidefiles/link_file.h"

#include <array>

#include "catalogue/names.h"
#include "platform/error_trap.h"
#include "platform/file_system.h"
#include "platform/text.h"
#include "platform/xml_writer.h"
#include "platform/xpath_query.h"
#include "resources/messages.h"
#include "sidefiles/names.h"

namespace quorbind {

namespace {

constexpr char kQuote = '\'';

XmlNode nextElement(XmlNode node) {
  do {
    node = node.nextSibling();
  } while (node && !node.isElement());
  return node;
}

/// The element behind `node`. Raises 91 without one.
XmlNode requireNextElement(const XmlNode& node) {
  XmlNode next = nextElement(node);
  if (!next) {
    raise(ErrorNumber::kObjectNotSet);
  }
  return next;
}

std::string sourceFileOf(const LinkIdentifier& link) {
  return link.projectName + "\\" + link.sourceFilePath;
}

/// Fills in the entry whose first field is `linkId`. The acronym goes one field further than the
/// one that is meant for it: an entry of the usual four fields can't be filled in, as published.
void fillIn(const XmlNode& linkId, const LinkIdentifier& link) {
  const XmlNode fullLink = requireNextElement(linkId);
  const XmlNode sourceFile = requireNextElement(fullLink);
  const XmlNode behindAcronym = requireNextElement(requireNextElement(sourceFile));
  fullLink.setText(link.fullLink);
  sourceFile.setText(sourceFileOf(link));
  behindAcronym.setText(link.bookAcro);
}

void makeFile(const Platform& platform, const std::string& path, LinkFile& file) {
  platform.toolset.createLinkFileServices()->GenerateXMLHeader(
      path, link_names::kDescription, link_names::kLinks);
  file.load();
  file.makeList();
  file.save();
}

}  // namespace

void AddToLinkIDFile(const Platform& platform,
                     const std::string& strLinkIDFilePath,
                     const std::string& strLinkID,
                     const std::string& strFullLink,
                     const std::string& strSourceFilePath,
                     const std::string& strProjectName,
                     const std::string& strBookAcro) {
  trapped(platform.ui, source::kAddToLinkIdFile, [&] {
    LinkFile file(platform, strLinkIDFilePath);
    if (platform.files.fileExists(strLinkIDFilePath)) {
      file.load();
    } else {
      makeFile(platform, strLinkIDFilePath, file);
    }
    if (file.leadsSomewhere(strLinkID)) {
      tellOfTakenLinkId(platform, strLinkID);
      return;
    }
    file.record({.identifier = strLinkID,
                 .fullLink = strFullLink,
                 .sourceFilePath = strSourceFilePath,
                 .projectName = strProjectName,
                 .bookAcro = strBookAcro});
    file.save();
  });
}

std::string linkFileBelow(std::string serverRoot, std::string_view product) {
  return serverRoot.append(server_names::kDocsFolder)
      .append("\\")
      .append(product)
      .append("\\")
      .append(link_names::kFile);
}

std::string linkFileOf(Toolset& toolset, std::string_view product) {
  return linkFileBelow(toolset.createLibraryServices()->GetQuorServer(), product);
}

void tellOfTakenLinkId(const Platform& platform, std::string_view identifier) {
  platform.ui.show(criticalMessage(std::string(identifier) + Message::kLinkIdAlreadyExists));
}

bool LinkFile::leadsSomewhere(std::string_view identifier) {
  const XmlNode linkId = find(identifier);
  const XmlNode fullLink = linkId ? nextElement(linkId) : XmlNode();
  return fullLink && !trimBlanks(fullLink.text()).empty();
}

bool LinkFile::hasTrimmed(std::string_view identifier) {
  requireIndex();
  return trimmed_.contains(std::string(trimBlanks(identifier)));
}

void LinkFile::record(const LinkIdentifier& link) {
  requireFitsQuery(link.identifier, kQuote);
  if (const XmlNode linkId = find(link.identifier)) {
    fillIn(linkId, link);
  } else {
    enter(link);
  }
}

void LinkFile::makeList() {
  appendTextElement(document(), document().select(link_names::kLinks), link_names::kList, "");
}

void LinkFile::dropIndex() {
  identifiers_.clear();
  trimmed_.clear();
  indexed_ = false;
}

void LinkFile::requireIndex() {
  if (indexed_) {
    return;
  }
  for (const XmlNode& entry : document().selectAll(link_names::kIdPath)) {
    addToIndex(entry);
  }
  indexed_ = true;
}

void LinkFile::addToIndex(const XmlNode& entry) {
  XmlNode first;
  for (XmlNode field = entry.firstChild(); field; field = field.nextSibling()) {
    if (field.name() == link_names::kLinkId) {
      first = first ? first : field;
      const std::string identifier = field.text();
      trimmed_.insert(std::string(trimBlanks(identifier)));
      identifiers_.try_emplace(identifier, first);
    }
  }
}

XmlNode LinkFile::find(std::string_view identifier) {
  requireIndex();
  const auto found = identifiers_.find(std::string(identifier));
  return found == identifiers_.end() ? XmlNode() : found->second;
}

void LinkFile::enter(const LinkIdentifier& link) {
  if (rules_ == nullptr) {
    rules_ = platform().toolset.createXmlTextRules();
  }
  const XmlNode entry = document().createElement(link_names::kId);
  appendTextElement(
      document(), entry, link_names::kLinkId, rules_->ReplaceSpecCharToXMLChar(link.identifier));
  appendTextElement(document(), entry, link_names::kFullLink, link.fullLink);
  appendTextElement(document(), entry, link_names::kSourceFile, sourceFileOf(link));
  appendTextElement(document(), entry, link_names::kBookAcro, link.bookAcro);
  document().select(link_names::kListPath).append(entry);
  addToIndex(entry);
}

}  // namespace quorbind
