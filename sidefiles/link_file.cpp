#include "sidefiles/link_file.h"

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

constexpr char kIdentifierQuote = '\'';

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
  return std::string(link.projectName).append("\\").append(link.sourceFilePath);
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
  const std::string_view trimmed = trimBlanks(identifier);
  return identifiers_.contains(trimmed) || trimmed_.contains(trimmed);
}

void LinkFile::record(const LinkIdentifier& link) {
  if (const XmlNode linkId = find(link.identifier)) {
    fillIn(linkId, link);
  } else {
    enter(link);
  }
}

void LinkFile::makeList() {
  list_ =
      appendTextElement(document(), document().select(link_names::kLinks), link_names::kList, "");
}

void LinkFile::dropIndex() {
  list_ = XmlNode();
  identifiers_.clear();
  linkIds_.clear();
  trimmed_.clear();
  indexed_ = false;
}

void LinkFile::requireIndex() {
  if (indexed_) {
    return;
  }
  dropIndex();
  list_ = document().select(link_names::kListPath);
  for (const XmlNode& linkId : document().selectAll(link_names::kLinkIdPath)) {
    addToIndex(linkId);
  }
  indexed_ = true;
}

void LinkFile::addToIndex(const XmlNode& linkId) {
  const std::string identifier = linkId.text();
  const std::string_view trimmed = trimBlanks(identifier);
  if (trimmed.size() < identifier.size()) {
    trimmed_.add(trimmed);
  }
  if (identifiers_.add(identifier).second) {
    linkIds_.push_back(linkId);
  }
}

XmlNode LinkFile::find(std::string_view identifier) {
  requireFitsQuery(identifier, kIdentifierQuote);
  requireIndex();
  const auto found = identifiers_.find(identifier);
  return found ? linkIds_[*found] : XmlNode();
}

void LinkFile::enter(const LinkIdentifier& link) {
  if (rules_ == nullptr) {
    rules_ = platform().toolset.createXmlTextRules();
  }
  const XmlNode entry = document().createElement(link_names::kId);
  const XmlNode linkId = appendTextElement(
      document(), entry, link_names::kLinkId, rules_->ReplaceSpecCharToXMLChar(link.identifier));
  appendTextElement(document(), entry, link_names::kFullLink, link.fullLink);
  appendTextElement(document(), entry, link_names::kSourceFile, sourceFileOf(link));
  appendTextElement(document(), entry, link_names::kBookAcro, link.bookAcro);
  indexed_ = false;
  addToIndex(linkId);
  if (!list_) {
    makeList();
  }
  list_.append(entry);
  indexed_ = true;
}

}  // namespace quorbind
