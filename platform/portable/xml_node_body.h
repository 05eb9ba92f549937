#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "platform/portable/xml_tree.h"
#include "platform/xml_document.h"

namespace quorbind {

class NodeReferences;

/// What a reference to a node of libxml2 does.
class NodeBody final : public XmlNode::Body {
 public:
  /// The references and the tree live longer.
  NodeBody(NodeReferences& references, XmlTree& tree, xmlNode& node);

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

  NodeReferences& references_;
  XmlTree& tree_;
  xmlNode& node_;
};

/// The references to the nodes of one tree. A node has one body for all of them, made when it is
/// first referred to.
class NodeReferences {
 public:
  /// `tree` lives longer. Nobody else keeps something in its nodes' `_private`.
  explicit NodeReferences(XmlTree& tree) : tree_(tree) {}
  NodeReferences(const NodeReferences&) = delete;
  NodeReferences& operator=(const NodeReferences&) = delete;

  /// No node for a null pointer.
  XmlNode to(xmlNode* node);
  std::vector<XmlNode> toAll(const std::vector<xmlNode*>& nodes);
  /// Ends all references; their nodes are about to go.
  void forget() { bodies_.clear(); }

 private:
  XmlTree& tree_;
  std::deque<NodeBody> bodies_;
};

/// The node that a reference stands for, of whatever document. Raises 5 when it is not one of
/// libxml2's, and 91 for no node.
xmlNode& nodeBehind(const XmlNode& reference);

}  // namespace quorbind
