#include "platform/windows/msxml_copy.h"

#include "platform/runtime_error.h"

namespace quorbind {

namespace {

// Node by node, because not every release can import a node or take one over from another document.

/// Whether an attribute of that name is in a namespace that something declares.
bool hasDeclaredPrefix(std::string_view name) {
  return name.find(':') != std::string_view::npos && !name.starts_with("xml:");
}

DomNode newNode(const ComPtr<IXMLDOMDocument2>& document, DOMNodeType type, const DomNode& model) {
  Bstr nameSpace;
  requireSuccess(model->get_namespaceURI(nameSpace.put()), model);
  DomNode node;
  requireSuccess(
      document->createNode(
          Variant::ofInteger(type).get(), Bstr(nameOf(model)).get(), nameSpace.get(), node.put()),
      document);
  return node;
}

DomNode copyValue(const ComPtr<IXMLDOMDocument2>& document,
                  DOMNodeType type,
                  const DomNode& original) {
  DomNode copy = newNode(document, type, original);
  requireSuccess(copy->put_nodeValue(Variant::ofText(valueOf(original)).get()), copy);
  return copy;
}

void copyAttributes(const ComPtr<IXMLDOMDocument2>& document,
                    const DomNode& original,
                    const DomNode& copy) {
  const auto element = copy.as<IXMLDOMElement>();
  for (const DomNode& attribute : attributesOf(original)) {
    const std::string name = nameOf(attribute);
    if (hasDeclaredPrefix(name)) {
      const DomNode made = copyValue(document, NODE_ATTRIBUTE, attribute);
      requireSuccess(element->setAttributeNode(made.as<IXMLDOMAttribute>().get(), nullptr),
                     element);
    } else {
      const Variant value = Variant::ofText(valueOf(attribute));
      requireSuccess(element->setAttribute(Bstr(name).get(), value.get()), element);
    }
  }
}

DomNode copyElement(const ComPtr<IXMLDOMDocument2>& document, const DomNode& original) {
  DomNode copy = newNode(document, NODE_ELEMENT, original);
  copyAttributes(document, original, copy);
  for (DomNode child = firstChildOf(original); child; child = nextSiblingOf(child)) {
    insertInto(copy, copyFor(document, child), DomNode());
  }
  declareUsed(copy, declarationsInForce(original));
  return copy;
}

}  // namespace

DomNode copyFor(const ComPtr<IXMLDOMDocument2>& document, const DomNode& node) {
  const DOMNodeType type = typeOf(node);
  switch (type) {
    case NODE_ELEMENT:
      return copyElement(document, node);
    case NODE_TEXT:
      return newText(document, valueOf(node));
    case NODE_CDATA_SECTION:
    case NODE_COMMENT:
    case NODE_PROCESSING_INSTRUCTION:
      return copyValue(document, type, node);
    default:
      raise(ErrorNumber::kInvalidProcedureCall);
  }
}

}  // namespace quorbind
