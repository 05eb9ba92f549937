#include "platform/portable/xml_node_body.h"

#include <memory>

#include "platform/portable/xml_text.h"
#include "platform/runtime_error.h"
#include "platform/xml_writer.h"

namespace quorbind {

namespace {

class NodeBody final : public XmlNode::Body {
 public:
  NodeBody(XmlTree& tree, xmlNode& node) : tree_(tree), node_(node) {}

  [[nodiscard]] xmlNode& node() const { return node_; }

  [[nodiscard]] bool isElement() const override { return node_.type == XML_ELEMENT_NODE; }
  [[nodiscard]] std::string name() const override;
  [[nodiscard]] std::string text() const override;
  void setText(std::string_view text) override;
  [[nodiscard]] XmlNode firstChild() const override;
  [[nodiscard]] XmlNode nextSibling() const override;
  [[nodiscard]] XmlNode firstAttribute() const override;
  void setAttribute(std::string_view name, std::string_view value) override;
  [[nodiscard]] XmlNode attribute(std::string_view name) const override;
  [[nodiscard]] std::vector<XmlNode> selectAll(std::string_view query) const override;
  void insertBefore(const XmlNode& child, const XmlNode& reference) override;
  void removeChild(const XmlNode& child) override;

 private:
  [[nodiscard]] bool isAttribute() const { return node_.type == XML_ATTRIBUTE_NODE; }
  [[nodiscard]] xmlNode& nodeOf(const XmlNode& reference) const;
  [[nodiscard]] XmlNode visibleFrom(xmlNode* node) const;

  XmlTree& tree_;
  xmlNode& node_;
};

/// libxml2 keeps attributes in a structure of their own, which begins like that of a node.
xmlNode* asNode(xmlAttr* attribute) {
  return reinterpret_cast<xmlNode*>(attribute);
}

void appendTextBelow(std::string& text, const xmlNode& node) {
  for (const xmlNode* child = node.children; child != nullptr; child = child->next) {
    if (child->type == XML_TEXT_NODE || child->type == XML_CDATA_SECTION_NODE) {
      text += viewOf(child->content);
    } else {
      appendTextBelow(text, *child);
    }
  }
}

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
  std::string text;
  appendTextBelow(text, node_);
  return text;
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
  return isAttribute() ? referenceTo(tree_, node_.next) : visibleFrom(node_.next);
}

XmlNode NodeBody::firstAttribute() const {
  return isElement() ? referenceTo(tree_, asNode(node_.properties)) : XmlNode();
}

void NodeBody::setAttribute(std::string_view name, std::string_view value) {
  if (!isElement()) {
    raise(ErrorNumber::kInvalidProcedureCall);
  }
  tree_.setAttribute(node_, std::string(name), xmlCharactersOnly(value));
}

XmlNode NodeBody::attribute(std::string_view name) const {
  return referenceTo(tree_, asNode(findAttribute(node_, name)));
}

std::vector<XmlNode> NodeBody::selectAll(std::string_view query) const {
  return referencesTo(tree_, tree_.select(query, node_));
}

void NodeBody::insertBefore(const XmlNode& child, const XmlNode& reference) {
  tree_.insert(nodeOf(child), node_, reference ? &nodeOf(reference) : nullptr);
}

void NodeBody::removeChild(const XmlNode& child) {
  tree_.remove(nodeOf(child), node_);
}

const NodeBody& bodyBehind(const XmlNode& reference) {
  const auto* body = dynamic_cast<const NodeBody*>(&reference.body());
  if (body == nullptr) {
    raise(ErrorNumber::kInvalidProcedureCall);
  }
  return *body;
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
  return referenceTo(tree_, node);
}

}  // namespace

XmlNode referenceTo(XmlTree& tree, xmlNode* node) {
  return node == nullptr ? XmlNode() : XmlNode(std::make_shared<NodeBody>(tree, *node));
}

xmlNode& nodeBehind(const XmlNode& reference) {
  return bodyBehind(reference).node();
}

std::vector<XmlNode> referencesTo(XmlTree& tree, const std::vector<xmlNode*>& nodes) {
  std::vector<XmlNode> references;
  references.reserve(nodes.size());
  for (xmlNode* node : nodes) {
    references.push_back(referenceTo(tree, node));
  }
  return references;
}

}  // namespace quorbind
