#include "platform/windows/msxml_tree.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/text.h"

namespace quorbind {

namespace {

DomNode neighbour(const DomNode& node,
                  HRESULT (STDMETHODCALLTYPE IXMLDOMNode::*member)(IXMLDOMNode**)) {
  DomNode found;
  requireSuccess((node.get()->*member)(found.put()), node);
  return found;
}

bool isBlank(std::string_view text) {
  return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

bool preservesSpace(const DomNode& element) {
  // One that was set and not loaded is not found by its name in every release.
  const std::vector<DomNode> attributes = attributesOf(element);
  return std::any_of(attributes.begin(), attributes.end(), [](const DomNode& attribute) {
    return nameOf(attribute) == "xml:space" && textOf(attribute) == "preserve";
  });
}

bool hasName(const std::vector<NamespaceDeclaration>& declarations, std::string_view name) {
  return std::any_of(declarations.begin(), declarations.end(), [name](const auto& declaration) {
    return declaration.name == name;
  });
}

/// A value as it stands in a tag, with its references resolved.
std::string withoutReferences(std::string_view value) {
  std::string text(value);
  constexpr std::array<std::pair<std::string_view, std::string_view>, 4> kReferences{
      {{"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&amp;", "&"}}};
  for (const auto& [reference, character] : kReferences) {
    text = replaceAll(text, reference, character);
  }
  return text;
}

/// The declarations in a start tag as MSXML writes it: every value between double quotes.
std::vector<NamespaceDeclaration> declarationsIn(std::string_view tag) {
  std::vector<NamespaceDeclaration> declarations;
  tag.remove_prefix(std::min(tag.find(' '), tag.size()));
  while (tag.starts_with(' ')) {
    const std::size_t equals = tag.find('=');
    const std::size_t end = tag.find('"', equals + 2);
    const std::string_view name = tag.substr(1, equals - 1);
    if (declaresNamespace(name)) {
      declarations.push_back(
          {std::string(name), withoutReferences(tag.substr(equals + 2, end - equals - 2))});
    }
    tag.remove_prefix(end + 1);
  }
  return declarations;
}

std::string startTagOf(const DomNode& element) {
  DomNode copy;
  Bstr tag;
  requireSuccess(element->cloneNode(VARIANT_FALSE, copy.put()), element);
  requireSuccess(copy->get_xml(tag.put()), copy);
  return tag.text();
}

ComPtr<IXMLDOMNamedNodeMap> attributeMapOf(const DomNode& element) {
  ComPtr<IXMLDOMNamedNodeMap> map;
  requireSuccess(element->get_attributes(map.put()), element);
  return map;
}

long countOf(const ComPtr<IXMLDOMNamedNodeMap>& map) {
  long count = 0;
  if (map) {
    requireSuccess(map->get_length(&count), map);
  }
  return count;
}

/// No node where some releases fail: at the declaration of a default namespace.
DomNode attributeAt(const ComPtr<IXMLDOMNamedNodeMap>& map, long index) {
  DomNode attribute;
  if (FAILED(map->get_item(index, attribute.put()))) {
    attribute.reset();
  }
  return attribute;
}

/// Whether the namespace that `declaration` is the name of is needed in `element`.
bool isUsed(const DomNode& element, std::string_view declaration) {
  const std::size_t colon = declaration.find(':');
  std::string query = "descendant-or-self::*[not(contains(name(), ':'))]";
  if (colon != std::string_view::npos) {
    const std::string hasPrefix =
        "starts-with(name(), '" + std::string(declaration.substr(colon + 1)) + ":')";
    query = "descendant-or-self::*[" + hasPrefix + " or @*[" + hasPrefix + "]]";
  }
  DomNode found;
  requireSuccess(element->selectSingleNode(Bstr(query).get(), found.put()), element);
  return static_cast<bool>(found);
}

void insertPlainly(const DomNode& parent, const DomNode& node, const DomNode& next) {
  const Variant place = next ? Variant::ofObject(next.as<IDispatch>()) : Variant();
  requireSuccess(parent->insertBefore(node.get(), place.get(), nullptr), parent);
}

/// An element that stands nowhere.
DomNode newSpacer(const DomNode& node) {
  ComPtr<IXMLDOMDocument> document;
  ComPtr<IXMLDOMElement> spacer;
  requireSuccess(node->get_ownerDocument(document.put()), node);
  requireSuccess(document->createElement(Bstr("spacer").get(), spacer.put()));
  return spacer.as<IXMLDOMNode>();
}

}  // namespace

DOMNodeType typeOf(const DomNode& node) {
  DOMNodeType type = NODE_INVALID;
  requireSuccess(node->get_nodeType(&type), node);
  return type;
}

std::string nameOf(const DomNode& node) {
  Bstr name;
  requireSuccess(node->get_nodeName(name.put()), node);
  return name.text();
}

std::string valueOf(const DomNode& node) {
  Variant value;
  requireSuccess(node->get_nodeValue(value.put()), node);
  return value.type() == VT_NULL ? std::string() : value.text();
}

std::string textOf(const DomNode& node) {
  Bstr text;
  requireSuccess(node->get_text(text.put()), node);
  return text.text();
}

DomNode firstChildOf(const DomNode& node) {
  return neighbour(node, &IXMLDOMNode::get_firstChild);
}

DomNode nextSiblingOf(const DomNode& node) {
  return neighbour(node, &IXMLDOMNode::get_nextSibling);
}

DomNode parentOf(const DomNode& node) {
  return neighbour(node, &IXMLDOMNode::get_parentNode);
}

bool isText(const DomNode& node) {
  const DOMNodeType type = typeOf(node);
  return type == NODE_TEXT || type == NODE_CDATA_SECTION;
}

bool isBlankText(const DomNode& node) {
  return isText(node) && isBlank(valueOf(node));
}

bool isAsWritten(const DomNode& element) {
  if (preservesSpace(element)) {
    return true;
  }
  bool textOnly = true;
  for (DomNode child = firstChildOf(element); child; child = nextSiblingOf(child)) {
    const bool isLayout = typeOf(child) == NODE_TEXT && isBlankText(child);
    if (isText(child) && !isLayout) {
      return true;
    }
    textOnly = textOnly && isText(child);
  }
  return textOnly;
}

void dropLayout(const DomNode& element) {
  if (isAsWritten(element)) {
    return;
  }
  for (DomNode child = firstChildOf(element); child;) {
    DomNode next = nextSiblingOf(child);
    const DOMNodeType type = typeOf(child);
    if (type == NODE_TEXT) {
      requireSuccess(element->removeChild(child.get(), nullptr), element);
    } else if (type == NODE_ELEMENT) {
      dropLayout(child);
    }
    child = std::move(next);
  }
}

std::vector<DomNode> attributesOf(const DomNode& element) {
  const ComPtr<IXMLDOMNamedNodeMap> map = attributeMapOf(element);
  const long count = countOf(map);
  std::vector<DomNode> attributes;
  for (long index = 0; index < count; ++index) {
    DomNode attribute = attributeAt(map, index);
    if (attribute && !declaresNamespace(nameOf(attribute))) {
      attributes.push_back(std::move(attribute));
    }
  }
  return attributes;
}

DomNode attributeOf(const DomNode& element, std::string_view name) {
  const ComPtr<IXMLDOMNamedNodeMap> map = attributeMapOf(element);
  DomNode attribute;
  if (map) {
    requireSuccess(map->getNamedItem(Bstr(name).get(), attribute.put()), map);
  }
  return attribute;
}

bool declaresNamespace(std::string_view attribute) {
  return attribute == "xmlns" || attribute.starts_with("xmlns:");
}

std::vector<NamespaceDeclaration> declarationsOf(const DomNode& element) {
  const ComPtr<IXMLDOMNamedNodeMap> map = attributeMapOf(element);
  const long count = countOf(map);
  std::vector<NamespaceDeclaration> declarations;
  for (long index = 0; index < count; ++index) {
    const DomNode attribute = attributeAt(map, index);
    const std::string name = attribute ? nameOf(attribute) : std::string();
    // Some releases miss one, or give out another one twice.
    if (!attribute || hasName(declarations, name)) {
      return declarationsIn(startTagOf(element));
    }
    if (declaresNamespace(name)) {
      declarations.push_back({name, textOf(attribute)});
    }
  }
  return declarations;
}

std::vector<NamespaceDeclaration> declarationsInForce(const DomNode& element) {
  std::vector<NamespaceDeclaration> inForce;
  for (DomNode outer = element; outer && typeOf(outer) == NODE_ELEMENT; outer = parentOf(outer)) {
    for (NamespaceDeclaration& declaration : declarationsOf(outer)) {
      if (!hasName(inForce, declaration.name)) {
        inForce.push_back(std::move(declaration));
      }
    }
  }
  return inForce;
}

void declareUsed(const DomNode& element, const std::vector<NamespaceDeclaration>& declarations) {
  if (declarations.empty()) {
    return;
  }
  const std::vector<NamespaceDeclaration> inForce = declarationsInForce(element);
  const auto declaring = element.as<IXMLDOMElement>();
  for (const NamespaceDeclaration& declaration : declarations) {
    if (!hasName(inForce, declaration.name) && isUsed(element, declaration.name)) {
      requireSuccess(declaring->setAttribute(Bstr(declaration.name).get(),
                                             Variant::ofText(declaration.uri).get()),
                     declaring);
    }
  }
}

DomNode newText(const ComPtr<IXMLDOMDocument2>& document, std::string_view text) {
  ComPtr<IXMLDOMText> node;
  requireSuccess(document->createTextNode(nullptr, node.put()), document);
  // Some releases take a CR for a line end where a text is made, but not where it gets its value.
  requireSuccess(node->put_nodeValue(Variant::ofText(text).get()));
  return node.as<IXMLDOMNode>();
}

void insertInto(const DomNode& parent, const DomNode& node, const DomNode& next) {
  if (!isText(node)) {
    insertPlainly(parent, node, next);
    return;
  }
  // Some releases would melt a text with the ones beside it, and free it.
  const DomNode before = newSpacer(node);
  const DomNode behind = newSpacer(node);
  insertPlainly(parent, before, next);
  insertPlainly(parent, behind, next);
  insertPlainly(parent, node, behind);
  takeOut(before);
  takeOut(behind);
}

void takeOut(const DomNode& node) {
  if (const DomNode parent = parentOf(node)) {
    requireSuccess(parent->removeChild(node.get(), nullptr), parent);
  }
}

}  // namespace quorbind
