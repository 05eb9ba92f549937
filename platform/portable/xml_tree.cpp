#include "platform/portable/xml_tree.h"

#include <libxml/parserInternals.h>
#include <libxml/xmlerror.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <utility>

#include "platform/portable/path_query.h"
#include "platform/portable/xml_layout.h"
#include "platform/portable/xml_messages.h"
#include "platform/portable/xml_text.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "platform/xml_writer.h"

namespace quorbind {

namespace {

constexpr const char* kNoNodesAskedFor = "The query does not ask for nodes.";
constexpr const char* kNulInQuery = "A query can't contain the character 0.";
constexpr std::string_view kNul("\0", 1);
constexpr std::string_view kNamespaceDeclaration = "xmlns";

void require(bool condition) {
  if (!condition) {
    raise(ErrorNumber::kInvalidProcedureCall);
  }
}

/// libxml2 answers a null pointer where memory is short.
template <typename Pointer>
Pointer made(Pointer pointer) {
  if (pointer == nullptr) {
    raise(ErrorNumber::kOutOfMemory);
  }
  return pointer;
}

bool isUnprefixedName(const std::string& name) {
  return !contains(name, kNul) && xmlValidateNCName(xmlTextOf(name), 0) == 0;
}

bool canBeChild(const xmlNode& node) {
  switch (node.type) {
    case XML_ELEMENT_NODE:
    case XML_TEXT_NODE:
    case XML_CDATA_SECTION_NODE:
    case XML_COMMENT_NODE:
    case XML_PI_NODE:
      return true;
    default:
      return false;
  }
}

bool isChildOf(const xmlNode& node, const xmlNode& parent) {
  return node.parent == &parent && canBeChild(node);
}

bool standsInside(const xmlNode& node, const xmlNode& other) {
  const xmlNode* outer = &node;
  while (outer != nullptr && outer != &other) {
    outer = outer->parent;
  }
  return outer != nullptr;
}

/// libxml2's own functions would melt neighbouring texts into one and free the other.
void link(xmlNode& child, xmlNode& parent, xmlNode* next) {
  xmlNode* const previous = next == nullptr ? parent.last : next->prev;
  child.parent = &parent;
  child.next = next;
  child.prev = previous;
  (previous == nullptr ? parent.children : previous->next) = &child;
  (next == nullptr ? parent.last : next->prev) = &child;
}

bool isTextNode(const xmlNode& node) {
  return node.type == XML_TEXT_NODE || node.type == XML_CDATA_SECTION_NODE;
}

void appendTextBelow(std::string& text, const xmlNode& node) {
  for (const xmlNode* child = node.children; child != nullptr; child = child->next) {
    if (isTextNode(*child)) {
      text += viewOf(child->content);
    } else {
      appendTextBelow(text, *child);
    }
  }
}

/// The element behind `element` in document order; null behind the last one.
xmlNode* nextElement(xmlNode* element) {
  xmlNode* next = xmlFirstElementChild(element);
  while (next == nullptr && element != nullptr && element->type == XML_ELEMENT_NODE) {
    next = xmlNextElementSibling(element);
    element = element->parent;
  }
  return next;
}

}  // namespace

XmlTree::XmlTree() : XmlTree(XmlDocHandle(made(xmlNewDoc(nullptr)))) {}

XmlTree::XmlTree(XmlDocHandle document) : owned_(std::move(document)), document_(owned_.get()) {}

XmlTree::XmlTree(xmlDoc& document) : document_(&document) {}

XmlTree::XmlTree(XmlDocHandle document, ElementIndex elements)
    : owned_(std::move(document)), document_(owned_.get()), elements_(std::move(elements)) {}

XmlTree::~XmlTree() {
  // None is freed before all have been looked at: one may stand in another.
  const auto loose = std::remove_if(onceLoose_.begin(), onceLoose_.end(), [](const xmlNode* node) {
    return node->parent != nullptr;
  });
  std::sort(onceLoose_.begin(), loose);
  std::for_each(onceLoose_.begin(), std::unique(onceLoose_.begin(), loose), xmlFreeNode);
}

xmlNode* XmlTree::root() const {
  return xmlDocGetRootElement(document_);
}

xmlNode& XmlTree::createElement(const std::string& name) {
  require(isUnprefixedName(name));
  // The names of a document that was read are kept in its dictionary, each once.
  xmlDict* const names = document_->dict;
  XmlNodeHandle node(
      names == nullptr ? xmlNewDocNode(document_, nullptr, xmlTextOf(name), nullptr)
                       : xmlNewDocNodeEatName(
                             document_,
                             nullptr,
                             const_cast<xmlChar*>(made(xmlDictLookup(names, xmlTextOf(name), -1))),
                             nullptr));
  onceLoose_.push_back(made(node.get()));
  return *node.release();
}

xmlNode& XmlTree::copyOf(xmlNode& node) {
  require(canBeChild(node));
  XmlNodeHandle copy(made(xmlDocCopyNode(&node, document_, 1)));
  onceLoose_.push_back(copy.get());
  return *copy.release();
}

void XmlTree::insert(xmlNode& child, xmlNode& parent, xmlNode* reference) {
  require(parent.type == XML_ELEMENT_NODE && canBeChild(child));
  require(reference == nullptr || isChildOf(*reference, parent));
  require(!standsInside(parent, child));
  if (reference == &child) {
    return;
  }
  elements_.reset();
  if (!onceLoose_.empty() && onceLoose_.back() == &child) {
    onceLoose_.pop_back();
  }
  xmlUnlinkNode(&child);
  link(child, parent, reference);
  if (child.type == XML_ELEMENT_NODE) {
    xmlDOMWrapReconcileNamespaces(nullptr, &child, 0);
  }
}

void XmlTree::remove(xmlNode& child, const xmlNode& parent) {
  require(isChildOf(child, parent));
  takeOut(child);
}

void XmlTree::takeOut(xmlNode& child) {
  elements_.reset();
  onceLoose_.push_back(&child);
  xmlUnlinkNode(&child);
}

void XmlTree::setElementText(xmlNode& element, const std::string& text) {
  xmlNode* const first = element.children;
  if (!text.empty() && first != nullptr && first->next == nullptr && first->type == XML_TEXT_NODE) {
    setContent(*first, text);
    return;
  }
  while (element.children != nullptr) {
    takeOut(*element.children);
  }
  if (!text.empty()) {
    link(newText(text), element, nullptr);
  }
}

/// As libxml2's parser makes one: a short text stands in the node itself, where elements
/// have their attributes and namespaces.
xmlNode& XmlTree::newText(const std::string& text) {
  constexpr std::size_t kRoom = 2 * sizeof(void*);
  static_assert(offsetof(xmlNode, nsDef) == offsetof(xmlNode, properties) + sizeof(void*));
  const bool fits = text.size() < kRoom;
  xmlNode& node = *made(xmlNewDocText(document_, fits ? nullptr : xmlTextOf(text)));
  if (fits) {
    node.content = reinterpret_cast<xmlChar*>(&node.properties);
    std::memcpy(node.content, text.c_str(), text.size() + 1);
  }
  return node;
}

void XmlTree::setContent(xmlNode& node, const std::string& text) {
  require(node.type != XML_COMMENT_NODE || fitsComment(text));
  require(node.type != XML_PI_NODE || fitsInstruction(text));
  if (node.type == XML_CDATA_SECTION_NODE) {
    // The document's encoding may lack a character, and there are no references in CDATA sections.
    node.type = XML_TEXT_NODE;
    node.name = xmlStringText;
  }
  xmlNodeSetContent(&node, xmlTextOf(text));
}

void XmlTree::setAttribute(xmlNode& element, const std::string& name, const std::string& value) {
  if (const xmlAttr* attribute = findAttribute(element, name)) {
    made(xmlSetNsProp(&element, attribute->ns, attribute->name, xmlTextOf(value)));
    return;
  }
  const std::size_t colon = name.find(':');
  const std::string local = colon == std::string::npos ? name : name.substr(colon + 1);
  require(isUnprefixedName(local) && name != kNamespaceDeclaration);
  xmlNs* nameSpace = nullptr;
  if (colon != std::string::npos) {
    nameSpace = xmlSearchNs(document_, &element, xmlTextOf(name.substr(0, colon)));
    require(nameSpace != nullptr && colon > 0);
  }
  made(xmlNewNsProp(&element, nameSpace, xmlTextOf(local), xmlTextOf(value)));
}

std::vector<xmlNode*> XmlTree::selectFromDocument(std::string_view query) {
  auto& document = *reinterpret_cast<xmlNode*>(document_);
  const auto path = PathQuery::read(query);
  if (!path) {
    return selectByXPath(query, document);
  }
  return elements_ ? path->find(*document_, *elements_) : path->find(document);
}

std::vector<xmlNode*> XmlTree::select(std::string_view query, xmlNode& start) {
  const auto path = PathQuery::read(query);
  return path ? path->find(start) : selectByXPath(query, start);
}

std::vector<xmlNode*> XmlTree::selectByXPath(std::string_view query, xmlNode& start) {
  const XPathResultHandle result = evaluate(query, start);
  std::vector<xmlNode*> nodes;
  for (int i = 0; i < xmlXPathNodeSetGetLength(result->nodesetval); ++i) {
    xmlNode* const node = result->nodesetval->nodeTab[i];
    if (node->type == XML_ATTRIBUTE_NODE || isVisible(*node)) {
      nodes.push_back(node);
    }
  }
  return nodes;
}

std::vector<xmlNode*> XmlTree::elementsByName(std::string_view name) const {
  if (elements_ && !contains(name, ":")) {
    return elements_->named(name, *document_);
  }
  return elementsNamed(root(), name);
}

XPathResultHandle XmlTree::evaluate(std::string_view query, xmlNode& start) {
  if (contains(query, kNul)) {
    throw RunTimeError(kInvalidQueryError, kNulInQuery);
  }
  const XmlMessages silence;
  if (queries_ == nullptr) {
    queries_.reset(made(xmlXPathNewContext(document_)));
  }
  queries_->node = &start;
  xmlResetLastError();
  XPathResultHandle result(xmlXPathEval(xmlTextOf(std::string(query)), queries_.get()));
  if (result == nullptr) {
    throw RunTimeError(kInvalidQueryError, oneLine(made(xmlGetLastError())->message));
  }
  if (result->type != XPATH_NODESET) {
    throw RunTimeError(kInvalidQueryError, kNoNodesAskedFor);
  }
  return result;
}

std::vector<xmlNode*> elementsNamed(xmlNode* root, std::string_view name) {
  std::vector<xmlNode*> found;
  for (xmlNode* element = root; element != nullptr; element = nextElement(element)) {
    if (hasName(*element, name)) {
      found.push_back(element);
    }
  }
  return found;
}

xmlAttr* findAttribute(const xmlNode& element, std::string_view name) {
  if (element.type != XML_ELEMENT_NODE) {
    return nullptr;
  }
  xmlAttr* attribute = element.properties;
  while (attribute != nullptr && !hasName(*attribute, name)) {
    attribute = attribute->next;
  }
  return attribute;
}

std::string textBelow(const xmlNode& node) {
  std::string text;
  appendTextBelow(text, node);
  return text;
}

bool hasTextBelow(const xmlNode& node, std::string_view text) {
  const xmlNode* const child = node.children;
  if (child != nullptr && child->next == nullptr && isTextNode(*child)) {
    return viewOf(child->content) == text;
  }
  return textBelow(node) == text;
}

bool isVisible(const xmlNode& node) {
  return canBeChild(node) && !isBlankText(node);
}

}  // namespace quorbind
