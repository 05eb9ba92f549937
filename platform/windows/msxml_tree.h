#pragma once

// Plain functions over MSXML's nodes: what its documents are asked in more than one place. A call
// that fails raises MSXML's own number and description.

#include <string>
#include <string_view>
#include <vector>

#include "platform/windows/com_types.h"
#include "platform/windows/msxml_interfaces.h"

namespace quorbind {

using DomNode = ComPtr<IXMLDOMNode>;

DOMNodeType typeOf(const DomNode& node);
/// The qualified name.
std::string nameOf(const DomNode& node);
/// The node's own value; empty where it can have none.
std::string valueOf(const DomNode& node);
/// The text of everything in the node.
std::string textOf(const DomNode& node);

/// No node where there is none.
DomNode firstChildOf(const DomNode& node);
DomNode nextSiblingOf(const DomNode& node);
DomNode parentOf(const DomNode& node);

/// Text or a CDATA section.
bool isText(const DomNode& node);
/// That, and nothing in it but white space.
bool isBlankText(const DomNode& node);

/// Whether the white space of `element`, and of everything in it, belongs to its content: it has
/// text among its children, or white space is all it has, or it says so by `xml:space`.
bool isAsWritten(const DomNode& element);

/// Removes every text below `element` that only lays it out.
void dropLayout(const DomNode& element);

/// The attributes of an element, in order. Declarations of namespaces, which stand among them in
/// MSXML, are none.
std::vector<DomNode> attributesOf(const DomNode& element);
/// No node when there is none of that qualified name.
DomNode attributeOf(const DomNode& element, std::string_view name);
/// Whether an attribute of that name would be a declaration.
bool declaresNamespace(std::string_view attribute);

struct NamespaceDeclaration {
  std::string name;  ///< `xmlns`, or `xmlns:` and the prefix
  std::string uri;
};

/// What an element declares, in order.
std::vector<NamespaceDeclaration> declarationsOf(const DomNode& element);
/// What is in force inside an element: its own declarations and those that it stands in, each name
/// once.
std::vector<NamespaceDeclaration> declarationsInForce(const DomNode& element);

/// Has an element declare those of `declarations`, which were in force where it came from, that it
/// uses and that are not in force where it is.
void declareUsed(const DomNode& element, const std::vector<NamespaceDeclaration>& declarations);

/// A new text that stands nowhere.
DomNode newText(const ComPtr<IXMLDOMDocument2>& document, std::string_view text);

/// Puts a node that stands nowhere into `parent`, in front of `next` or, when that is no node,
/// behind the last child.
void insertInto(const DomNode& parent, const DomNode& node, const DomNode& next);
/// Takes a node out of its parent, if it has one.
void takeOut(const DomNode& node);

}  // namespace quorbind
