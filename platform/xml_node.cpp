#include "platform/runtime_error.h"
#include "platform/xml_document.h"

namespace quorbind {

namespace {

XmlNode firstOf(const std::vector<XmlNode>& nodes) {
  return nodes.empty() ? XmlNode() : nodes.front();
}

}  // namespace

XmlNode::Body& XmlNode::body() const {
  if (body_ == nullptr) {
    raise(ErrorNumber::kObjectNotSet);
  }
  return *body_;
}

std::vector<XmlNode> XmlNode::children() const {
  std::vector<XmlNode> result;
  for (XmlNode node = firstChild(); node; node = node.nextSibling()) {
    result.push_back(node);
  }
  return result;
}

XmlNode XmlNode::child(std::string_view name) const {
  XmlNode node = firstChild();
  while (node && !(node.isElement() && node.name() == name)) {
    node = node.nextSibling();
  }
  return node;
}

XmlNode XmlNode::select(std::string_view query) const {
  return firstOf(selectAll(query));
}

namespace {

/// `find` answers what is to be visited of the document.
template <typename Find>
XmlLoadResult loadAndVisit(XmlLibrary& xml,
                           std::string_view path,
                           XmlElementVisitor& visitor,
                           Find&& find) {
  const auto document = xml.createDocument();
  XmlLoadResult result = document->load(path);
  if (result) {
    visitor.begin();
    for (const XmlNode& element : find(*document)) {
      visitor.visit(element);
    }
  }
  return result;
}

}  // namespace

XmlLoadResult XmlLibrary::visitNamed(std::string_view path,
                                     std::string_view name,
                                     XmlElementVisitor& visitor) {
  return loadAndVisit(*this, path, visitor, [name](const XmlDocument& document) {
    return document.elementsByName(name);
  });
}

XmlLoadResult XmlLibrary::visitSelected(std::string_view path,
                                        std::string_view query,
                                        XmlElementVisitor& visitor) {
  return loadAndVisit(*this, path, visitor, [query](const XmlDocument& document) {
    return document.selectAll(query);
  });
}

XmlNode XmlDocument::select(std::string_view query) const {
  return firstOf(selectAll(query));
}

}  // namespace quorbind
