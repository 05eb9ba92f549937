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

XmlNode XmlDocument::select(std::string_view query) const {
  return firstOf(selectAll(query));
}

}  // namespace quorbind
