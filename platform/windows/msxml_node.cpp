#include "platform/windows/msxml_node.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "platform/runtime_error.h"
#include "platform/windows/msxml_tree.h"
#include "platform/xml_writer.h"

namespace quorbind {

namespace {

constexpr const char* kNulInQuery = "A query can't hold a NUL character.";

void require(bool condition) {
  if (!condition) {
    raise(ErrorNumber::kInvalidProcedureCall);
  }
}

bool canBeChild(const DomNode& node) {
  switch (typeOf(node)) {
    case NODE_ELEMENT:
    case NODE_TEXT:
    case NODE_CDATA_SECTION:
    case NODE_COMMENT:
    case NODE_PROCESSING_INSTRUCTION:
      return true;
    default:
      return false;
  }
}

bool isLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}
bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

bool isAttribute(const DomNode& node) {
  return typeOf(node) == NODE_ATTRIBUTE;
}

/// Whether `node` is one that the port knows as a child.
bool isVisible(const DomNode& node) {
  return canBeChild(node) && !isBlankText(node);
}

bool isMatch(const DomNode& node) {
  return isAttribute(node) ? !declaresNamespace(nameOf(node)) : isVisible(node);
}

/// Whether `name` can be the name of an element or an attribute, prefix apart. MSXML has its own
/// mind about letters beyond ASCII.
bool isUnprefixedName(std::string_view name) {
  const auto isNameCharacter = [](char c) {
    const bool isBeyondAscii = (static_cast<unsigned char>(c) & 0x80U) != 0;
    return isBeyondAscii || isLetter(c) || isDigit(c) || c == '_' || c == '-' || c == '.';
  };
  return !name.empty() && !isDigit(name.front()) && name.front() != '-' && name.front() != '.' &&
         std::all_of(name.begin(), name.end(), isNameCharacter);
}

/// Lets an element be known again as long as the mark lives. Not every release of MSXML has one
/// object for one node, so that objects can't be compared.
class Mark {
 public:
  /// Finds the marked one among the node that it starts from and those that this stands in.
  static constexpr const char* kQuery = "ancestor-or-self::*[@quorbind-mark]";
  static constexpr std::string_view kName = "quorbind-mark";

  explicit Mark(const DomNode& element) : element_(element.as<IXMLDOMElement>()) {
    requireSuccess(element_->setAttribute(Bstr(kName).get(), Variant::ofText("").get()), element_);
  }
  ~Mark() { element_->removeAttribute(name_.get()); }
  Mark(const Mark&) = delete;
  Mark& operator=(const Mark&) = delete;

 private:
  ComPtr<IXMLDOMElement> element_;
  Bstr name_{kName};
};

DomNode newElement(const ComPtr<IXMLDOMDocument2>& document, std::string_view name) {
  ComPtr<IXMLDOMElement> element;
  requireSuccess(document->createElement(Bstr(name).get(), element.put()), document);
  return element.as<IXMLDOMNode>();
}

class NodeBody final : public XmlNode::Body {
 public:
  NodeBody(ComPtr<IXMLDOMDocument2> document, DomNode node)
      : document_(std::move(document)), node_(std::move(node)) {}

  [[nodiscard]] const DomNode& node() const { return node_; }

  [[nodiscard]] bool isElement() const override { return typeOf(node_) == NODE_ELEMENT; }
  [[nodiscard]] std::string name() const override;
  [[nodiscard]] std::string text() const override { return textOf(node_); }
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
  [[nodiscard]] const DomNode& nodeOf(const XmlNode& reference) const;
  [[nodiscard]] bool isChild(const DomNode& node) const;
  [[nodiscard]] bool standsIn(const DomNode& node) const;
  [[nodiscard]] XmlNode visibleFrom(DomNode node) const;
  [[nodiscard]] XmlNode nextAttribute() const;
  [[nodiscard]] DomNode ownerOfAttribute() const;
  [[nodiscard]] std::string namespaceOf(std::string_view prefix) const;
  void addAttribute(std::string_view name, std::string_view nameSpace, const Variant& value) const;
  void setElementText(std::string_view text) const;
  void becomeText(std::string_view text);

  ComPtr<IXMLDOMDocument2> document_;
  DomNode node_;
};

std::string NodeBody::name() const {
  return isText(node_) ? "#text" : nameOf(node_);
}

void NodeBody::setText(std::string_view text) {
  const std::string allowed = xmlCharactersOnly(text);
  switch (typeOf(node_)) {
    case NODE_ELEMENT:
      setElementText(allowed);
      return;
    case NODE_CDATA_SECTION:
      becomeText(allowed);
      return;
    case NODE_COMMENT:
      require(fitsComment(allowed));
      break;
    case NODE_PROCESSING_INSTRUCTION:
      require(fitsInstruction(allowed));
      break;
    default:
      break;
  }
  requireSuccess(node_->put_nodeValue(Variant::ofText(allowed).get()), node_);
}

void NodeBody::setElementText(std::string_view text) const {
  // MSXML's own way of doing this may free nodes that there are references to.
  while (const DomNode child = firstChildOf(node_)) {
    takeOut(child);
  }
  if (!text.empty()) {
    insertInto(node_, newText(document_, text), DomNode());
  }
}

/// The document's encoding may lack a character, and there are no references in CDATA sections.
void NodeBody::becomeText(std::string_view text) {
  DomNode replacement = newText(document_, text);
  if (const DomNode parent = parentOf(node_)) {
    insertInto(parent, replacement, node_);
    takeOut(node_);
  }
  node_ = std::move(replacement);
}

XmlNode NodeBody::firstChild() const {
  return isElement() ? visibleFrom(firstChildOf(node_)) : XmlNode();
}

XmlNode NodeBody::nextSibling() const {
  return isAttribute(node_) ? nextAttribute() : visibleFrom(nextSiblingOf(node_));
}

XmlNode NodeBody::nextAttribute() const {
  const DomNode owner = ownerOfAttribute();
  if (!owner) {
    return {};
  }
  const std::string ownName = nameOf(node_);
  const std::vector<DomNode> attributes = attributesOf(owner);
  auto attribute = std::find_if(attributes.begin(), attributes.end(), [&](const DomNode& other) {
    return nameOf(other) == ownName;
  });
  const bool isLast = attribute == attributes.end() || ++attribute == attributes.end();
  return isLast ? XmlNode() : referenceTo(document_, *attribute);
}

XmlNode NodeBody::firstAttribute() const {
  if (!isElement()) {
    return {};
  }
  const std::vector<DomNode> attributes = attributesOf(node_);
  return attributes.empty() ? XmlNode() : referenceTo(document_, attributes.front());
}

DomNode NodeBody::ownerOfAttribute() const {
  DomNode owner;
  requireSuccess(node_->selectSingleNode(Bstr("..").get(), owner.put()), node_);
  return owner;
}

void NodeBody::setAttribute(std::string_view name, std::string_view value) {
  require(isElement() && !declaresNamespace(name));
  const Variant allowed = Variant::ofText(xmlCharactersOnly(value));
  if (const DomNode attribute = attributeOf(node_, name)) {
    requireSuccess(attribute->put_nodeValue(allowed.get()), attribute);
    return;
  }
  const std::size_t colon = name.find(':');
  const bool hasPrefix = colon != std::string_view::npos;
  require(isUnprefixedName(hasPrefix ? name.substr(colon + 1) : name));
  const std::string prefix(name.substr(0, hasPrefix ? colon : 0));
  if (hasPrefix && prefix != "xml") {
    addAttribute(name, namespaceOf(prefix), allowed);
  } else {
    const auto element = node_.as<IXMLDOMElement>();
    requireSuccess(element->setAttribute(Bstr(name).get(), allowed.get()), element);
  }
}

/// Adds an attribute with a prefix.
void NodeBody::addAttribute(std::string_view name,
                            std::string_view nameSpace,
                            const Variant& value) const {
  DomNode attribute;
  requireSuccess(document_->createNode(Variant::ofInteger(NODE_ATTRIBUTE).get(),
                                       Bstr(name).get(),
                                       Bstr(nameSpace).get(),
                                       attribute.put()),
                 document_);
  requireSuccess(attribute->put_nodeValue(value.get()), attribute);
  const auto element = node_.as<IXMLDOMElement>();
  requireSuccess(element->setAttributeNode(attribute.as<IXMLDOMAttribute>().get(), nullptr),
                 element);
}

XmlNode NodeBody::attribute(std::string_view name) const {
  return isElement() && !declaresNamespace(name) ? referenceTo(document_, attributeOf(node_, name))
                                                 : XmlNode();
}

std::vector<XmlNode> NodeBody::selectAll(std::string_view query) const {
  return selectFrom(document_, *node_.get(), query);
}

void NodeBody::insertBefore(const XmlNode& child, const XmlNode& reference) {
  const DomNode& node = nodeOf(child);
  require(isElement() && canBeChild(node) && !standsIn(node));
  DomNode next;
  DomNode behindNext;
  if (reference) {
    next = nodeOf(reference);
    require(isChild(next));
    behindNext = nextSiblingOf(next);
  }
  const DomNode formerParent = parentOf(node);
  takeOut(node);
  const bool wasItsOwnReference = next && !parentOf(next);
  insertInto(node_, node, wasItsOwnReference ? behindNext : next);
  if (formerParent && typeOf(node) == NODE_ELEMENT) {
    declareUsed(node, declarationsInForce(formerParent));
  }
}

void NodeBody::removeChild(const XmlNode& child) {
  const DomNode& node = nodeOf(child);
  require(isChild(node));
  takeOut(node);
}

const NodeBody& bodyBehind(const XmlNode& reference) {
  const auto* body = dynamic_cast<const NodeBody*>(&reference.body());
  require(body != nullptr);
  return *body;
}

const DomNode& NodeBody::nodeOf(const XmlNode& reference) const {
  const NodeBody& body = bodyBehind(reference);
  require(body.document_.get() == document_.get());
  return body.node_;
}

bool NodeBody::isChild(const DomNode& node) const {
  const DomNode parent = parentOf(node);
  if (!parent || !isElement()) {
    return false;
  }
  const Mark mark(node_);
  return static_cast<bool>(attributeOf(parent, Mark::kName));
}

/// Whether this is `node`, or a node below it.
bool NodeBody::standsIn(const DomNode& node) const {
  if (typeOf(node) != NODE_ELEMENT) {
    return false;
  }
  const Mark mark(node);
  DomNode found;
  requireSuccess(node_->selectSingleNode(Bstr(Mark::kQuery).get(), found.put()), node_);
  return static_cast<bool>(found);
}

/// The first child that the port knows, from `node` on.
XmlNode NodeBody::visibleFrom(DomNode node) const {
  while (node && !isVisible(node)) {
    node = nextSiblingOf(node);
  }
  return referenceTo(document_, std::move(node));
}

/// The namespace that `prefix` stands for here. Raises 5 when it is declared nowhere.
std::string NodeBody::namespaceOf(std::string_view prefix) const {
  const std::string name = std::string("xmlns:").append(prefix);
  for (const NamespaceDeclaration& declaration : declarationsInForce(node_)) {
    if (declaration.name == name) {
      return declaration.uri;
    }
  }
  raise(ErrorNumber::kInvalidProcedureCall);
}

}  // namespace

XmlNode referenceTo(const ComPtr<IXMLDOMDocument2>& document, ComPtr<IXMLDOMNode> node) {
  return node ? XmlNode(std::make_shared<NodeBody>(document, std::move(node))) : XmlNode();
}

const ComPtr<IXMLDOMNode>& nodeBehind(const XmlNode& reference) {
  return bodyBehind(reference).node();
}

XmlNode createElement(const ComPtr<IXMLDOMDocument2>& document, std::string_view name) {
  require(isUnprefixedName(name));
  return referenceTo(document, newElement(document, name));
}

std::vector<XmlNode> selectFrom(const ComPtr<IXMLDOMDocument2>& document,
                                IXMLDOMNode& start,
                                std::string_view query) {
  if (query.find('\0') != std::string_view::npos) {
    throw RunTimeError(kInvalidQueryError, kNulInQuery);
  }
  ComPtr<IXMLDOMNodeList> list;
  const HRESULT result = start.selectNodes(Bstr(query).get(), list.put());
  if (FAILED(result)) {
    const RunTimeError error = runTimeErrorOf(result, descriptionLeftBy(&start, DomNode::id()));
    throw RunTimeError(kInvalidQueryError, error.description());
  }
  long count = 0;
  requireSuccess(list->get_length(&count), list);
  std::vector<XmlNode> found;
  for (long index = 0; index < count; ++index) {
    DomNode node;
    requireSuccess(list->get_item(index, node.put()), list);
    if (node && isMatch(node)) {
      found.push_back(referenceTo(document, std::move(node)));
    }
  }
  return found;
}

}  // namespace quorbind
