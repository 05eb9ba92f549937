#include "platform/portable/xml_node_body.h"

#include <memory>

#include "platform/portable/xml_text.h"
#include "platform/runtime_error.h"
#include "platform/xml_writer.h"

namespace quorbind {

namespace {

/// libxml2 keeps attributes in a structure of their own, which begins like that of a node.
xmlNode* asNode(xmlAttr* attribute) {
  return reinterpret_cast<xmlNode*>(attribute);
}

const NodeBody& bodyBehind(const XmlNode& reference) {
  const auto* body = dynamic_cast<const NodeBody*>(&reference.body());
  if (body == nullptr) {
    raise(ErrorNumber::kInvalidProcedureCall);
  }
  return *body;
}

}  // namespace

NodeBody::NodeBody(NodeReferences& references, XmlTree& tree, xmlNode& node)
    : references_(references), tree_(tree), node_(node) {}

std::string NodeBody::name() const {
  switch (node_.type) {
    case XML_TEXT_NODE:
    case XML_CDATA_SECTION_NODE:
      return "#text";
    case XML_COMMENT_NODE:
      return "#comment";
    case XML_PI_NODE:
      return std::string(viewOf(node_.name));
    default:
      return qualifiedNameOf(node_);
  }
}

std::string NodeBody::text() const {
  if (!isElement() && !isAttribute()) {
    return std::string(viewOf(node_.content));
  }
  return textBelow(node_);
}

void NodeBody::setText(std::string_view text) {
  const std::string allowed = xmlCharactersOnly(text);
  if (isAttribute()) {
    tree_.setAttribute(*node_.parent, name(), allowed);
  } else if (isElement()) {
    tree_.setElementText(node_, allowed);
  } else {
    tree_.setContent(node_, allowed);
  }
}

XmlNode NodeBody::firstChild() const {
  return isElement() ? visibleFrom(node_.children) : XmlNode();
}

XmlNode NodeBody::nextSibling() const {
  return isAttribute() ? references_.to(node_.next) : visibleFrom(node_.next);
}

XmlNode NodeBody::firstAttribute() const {
  return isElement() ? references_.to(asNode(node_.properties)) : XmlNode();
}

void NodeBody::setAttribute(std::string_view name, std::string_view value) {
  if (!isElement()) {
    raise(ErrorNumber::kInvalidProcedureCall);
  }
  tree_.setAttribute(node_, std::string(name), xmlCharactersOnly(value));
}

XmlNode NodeBody::attribute(std::string_view name) const {
  return references_.to(asNode(findAttribute(node_, name)));
}

std::vector<XmlNode> NodeBody::selectAll(std::string_view query) const {
  return references_.toAll(tree_.select(query, node_));
}

void NodeBody::insertBefore(const XmlNode& child, const XmlNode& reference) {
  tree_.insert(nodeOf(child), node_, reference ? &nodeOf(reference) : nullptr);
}

void NodeBody::removeChild(const XmlNode& child) {
  tree_.remove(nodeOf(child), node_);
}

xmlNode& NodeBody::nodeOf(const XmlNode& reference) const {
  const NodeBody& body = bodyBehind(reference);
  if (&body.tree_ != &tree_) {
    raise(ErrorNumber::kInvalidProcedureCall);
  }
  return body.node_;
}

/// The first child that the port knows, from `node` on.
XmlNode NodeBody::visibleFrom(xmlNode* node) const {
  while (node != nullptr && !isVisible(*node)) {
    node = node->next;
  }
  return references_.to(node);
}

XmlNode NodeReferences::to(xmlNode* node) {
  if (node == nullptr) {
    return {};
  }
  if (node->_private == nullptr) {
    node->_private = &bodies_.emplace_back(*this, tree_, *node);
  }
  // It belongs to the bodies, so there is nothing to count.
  return XmlNode(std::shared_ptr<XmlNode::Body>(std::shared_ptr<void>(),
                                                static_cast<NodeBody*>(node->_private)));
}

std::vector<XmlNode> NodeReferences::toAll(const std::vector<xmlNode*>& nodes) {
  std::vector<XmlNode> references;
  references.reserve(nodes.size());
  for (xmlNode* node : nodes) {
    references.push_back(to(node));
  }
  return references;
}

xmlNode& nodeBehind(const XmlNode& reference) {
  return bodyBehind(reference).node();
}

}  // namespace quorbind
