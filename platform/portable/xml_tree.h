#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/portable/element_index.h"
#include "platform/portable/xml_handles.h"

namespace quorbind {

/// Owns the nodes of one document: those that stand in it, and those that stand nowhere, because
/// they were just made or were taken out. No node is freed before the tree.
///
/// Nodes are libxml2's own. The operations raise 5 for what would leave no tree.
class XmlTree {
 public:
  /// A tree without a root.
  XmlTree();
  explicit XmlTree(XmlDocHandle document);
  /// A tree over nodes that somebody else owns, and their document.
  explicit XmlTree(xmlDoc& document);
  /// A document as it was read, with all of its elements.
  XmlTree(XmlDocHandle document, ElementIndex elements);
  ~XmlTree();
  XmlTree(const XmlTree&) = delete;
  XmlTree& operator=(const XmlTree&) = delete;

  [[nodiscard]] const xmlDoc& document() const { return *document_; }
  /// Null without one.
  [[nodiscard]] xmlNode* root() const;

  /// Raises 5 for what is no name, and for a name with a prefix: nothing could declare it.
  [[nodiscard]] xmlNode& createElement(const std::string& name);

  /// A copy of `node`, which may be one of another document, with everything in it. Raises 5 for an
  /// attribute.
  [[nodiscard]] xmlNode& copyOf(xmlNode& node);

  /// Puts `child` into the element `parent`, in front of `reference` or, without one, behind the
  /// last child. It leaves the place where it stands.
  void insert(xmlNode& child, xmlNode& parent, xmlNode* reference);
  /// Takes a child of `parent` out of it.
  void remove(xmlNode& child, const xmlNode& parent);

  /// Replaces everything in an element by `text`, which must be text that XML can hold.
  void setElementText(xmlNode& element, const std::string& text);
  /// The same for a text, a comment or a processing instruction.
  void setContent(xmlNode& node, const std::string& text);
  /// Raises 5 for what is no name, and for a prefix that is not declared where the element stands.
  void setAttribute(xmlNode& element, const std::string& name, const std::string& value);

  /// The nodes that an XPath query finds from `start`, in document order: elements, attributes,
  /// comments, instructions and texts that are not blank. An invalid query, or one for something
  /// else than nodes, raises kInvalidQueryError.
  [[nodiscard]] std::vector<xmlNode*> select(std::string_view query, xmlNode& start);
  [[nodiscard]] std::vector<xmlNode*> selectFromDocument(std::string_view query);
  /// The elements of that name, which may have a prefix, in document order.
  [[nodiscard]] std::vector<xmlNode*> elementsByName(std::string_view name) const;

 private:
  void takeOut(xmlNode& child);
  [[nodiscard]] xmlNode& newText(const std::string& text);
  [[nodiscard]] std::vector<xmlNode*> selectByXPath(std::string_view query, xmlNode& start);
  [[nodiscard]] XPathResultHandle evaluate(std::string_view query, xmlNode& start);

  /// None for a tree over what somebody else owns.
  XmlDocHandle owned_;
  xmlDoc* document_;
  /// Nothing for a tree that was changed since it was read.
  std::optional<ElementIndex> elements_;
  /// Every node that ever stood nowhere, some more than once.
  std::vector<xmlNode*> onceLoose_;
  /// Made by the first query.
  XPathContextHandle queries_;
};

/// Those of `root`, which may be null, and of the elements in it that have that name, which may
/// have a prefix, in document order.
std::vector<xmlNode*> elementsNamed(xmlNode* root, std::string_view name);

/// The first attribute of that name, which may have a prefix; null without one.
xmlAttr* findAttribute(const xmlNode& element, std::string_view name);

/// The text of everything below an element or attribute, comments and instructions left out.
std::string textBelow(const xmlNode& node);
/// Whether that is `text`.
bool hasTextBelow(const xmlNode& node, std::string_view text);

/// Whether `node` is one that the port knows as a child: not a text of white space alone.
bool isVisible(const xmlNode& node);

}  // namespace quorbind
