#include "toolset/link_file_services.h"

#include <unordered_set>
#include <utility>
#include <vector>

#include "catalogue/names.h"
#include "platform/file_system.h"
#include "platform/text_file.h"
#include "platform/xml_writer.h"
#include "sidefiles/names.h"
#include "toolset/loaded_document.h"

namespace quorbind {

namespace {

std::vector<XmlNode> identifiersIn(const XmlDocument& document) {
  return document.selectAll(std::string(link_names::kLinks)
                                .append("/")
                                .append(link_names::kList)
                                .append("/")
                                .append(link_names::kId));
}

/// The text that identifies an entry; one without it can't be linked to, and counts as empty.
std::string keyOf(const XmlNode& identifier) {
  const XmlNode key = identifier.child(link_names::kLinkId);
  return key ? key.text() : std::string();
}

/// The element that holds the identifiers; made when it is missing.
XmlNode listIn(XmlDocument& document) {
  const XmlNode root = document.select(link_names::kLinks);
  XmlNode list = root.child(link_names::kList);
  if (!list) {
    list = document.createElement(link_names::kList);
    root.append(list);
  }
  return list;
}

XmlNode copyOf(const XmlNode& identifier, XmlDocument& target) {
  XmlNode copy = target.createElement(link_names::kId);
  for (const XmlNode& field : identifier.children()) {
    const XmlNode element = target.createElement(field.name());
    element.setText(field.text());
    copy.append(element);
  }
  return copy;
}

/// Appends what `target` lacks of `source` and answers whether there was anything.
bool merge(XmlDocument& target, const XmlDocument& source) {
  std::unordered_set<std::string> known;
  for (const XmlNode& identifier : identifiersIn(target)) {
    known.insert(keyOf(identifier));
  }
  const std::size_t knownBefore = known.size();
  const XmlNode list = listIn(target);
  for (const XmlNode& identifier : identifiersIn(source)) {
    if (known.insert(keyOf(identifier)).second) {
      list.append(copyOf(identifier, target));
    }
  }
  return known.size() != knownBefore;
}

}  // namespace

ReferenceLinkFileServices::ReferenceLinkFileServices(FileSystem& files,
                                                     XmlLibrary& xml,
                                                     ReferenceLibraryServices library)
    : files_(files), xml_(xml), library_(std::move(library)) {}

void ReferenceLinkFileServices::GenerateXMLHeader(std::string_view path,
                                                  std::string_view description,
                                                  std::string_view root) {
  TextWriter file(files_, path);
  file.writeLine(kUnicodeDeclaration);
  XmlWriter writer([&file](std::string_view text) { file.write(text); });
  writer.comment(description);
  writer.startElement(root);
  writer.endDocument();
  file.close();
}

void ReferenceLinkFileServices::MergeLinkIDFiles(std::string_view target, std::string_view source) {
  if (files_.sameFile(target, source)) {
    return;
  }
  const auto identifiers = loadDocument(xml_, source);
  const bool isNew = !files_.fileExists(target);
  if (isNew) {
    GenerateXMLHeader(target, link_names::kDescription, link_names::kLinks);
  }
  const auto document = loadDocument(xml_, target);
  if (merge(*document, *identifiers) || isNew) {
    document->save(target);
  }
}

std::string ReferenceLinkFileServices::GetFolderName(std::string_view acronym,
                                                     std::string_view product) {
  const auto catalogue = xml_.createDocument();
  catalogue->load(
      library_.docsFolder().append(product).append("\\").append(catalogue_names::kFile));
  for (const XmlNode& book : catalogue->selectAll(catalogue_names::kBookPath)) {
    const XmlNode acro = book.child(catalogue_names::kAcro);
    if (acro && acro.text() == acronym) {
      const XmlNode folder = book.child(catalogue_names::kFolder);
      return folder ? folder.text() : std::string(acronym);
    }
  }
  return std::string(acronym);
}

}  // namespace quorbind
