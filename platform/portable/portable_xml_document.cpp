#include "platform/portable/portable_xml_document.h"

#include <libxml/SAX2.h>

#include "platform/portable/bounded_xml_parser.h"
#include "platform/portable/xml_layout.h"
#include "platform/portable/xml_node_body.h"
#include "platform/portable/xml_save.h"
#include "platform/portable/xml_text.h"
#include "platform/runtime_error.h"

namespace quorbind {

namespace {

constexpr const char* kNoTopLevelElement = "XML document must have a top level element.";

/// Has libxml2's own handlers build the tree, but for CDATA sections: they would melt neighbouring
/// ones into one.
class TreeParser final : public BoundedXmlParser {
 public:
  TreeParser() { context().sax->cdataBlock = &onCdata; }

  using BoundedXmlParser::takeDocument;

 private:
  static void onCdata(void* context, const xmlChar* text, int length) {
    auto& parser = static_cast<TreeParser&>(of(context));
    parser.guarded([&] {
      xmlAddChild(parser.context().node, xmlNewCDataBlock(parser.context().myDoc, text, length));
    });
  }

  void startElement(const StartTag& tag) override {
    xmlSAX2StartElementNs(&context(),
                          tag.localName,
                          tag.prefix,
                          tag.uri,
                          tag.namespaceCount,
                          tag.namespaces,
                          tag.attributeCount,
                          tag.defaultedCount,
                          tag.attributes);
  }

  void endElement(const EndTag& tag) override {
    xmlSAX2EndElementNs(&context(), tag.localName, tag.prefix, tag.uri);
  }
};

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

PortableXmlDocument::PortableXmlDocument(FileSystem& files)
    : files_(files), tree_(std::make_unique<XmlTree>()) {}

XmlLoadResult PortableXmlDocument::load(std::string_view path) {
  tree_ = std::make_unique<XmlTree>();
  TreeParser parser;
  XmlLoadResult result = parser.parse(files_, path);
  if (result) {
    tree_ = std::make_unique<XmlTree>(parser.takeDocument());
    dropLayout(*tree_->root());
  }
  return result;
}

void PortableXmlDocument::save(std::string_view path) {
  if (tree_->root() == nullptr) {
    throw RunTimeError(kNoTopLevelElementError, kNoTopLevelElement);
  }
  const std::unique_ptr<FileReplacement> file = files_.replace(path);
  writeXml(tree_->document(), *file);
  file->commit();
}

XmlNode PortableXmlDocument::documentElement() const {
  return referenceTo(*tree_, tree_->root());
}

std::vector<XmlNode> PortableXmlDocument::selectAll(std::string_view query) const {
  return referencesTo(*tree_, tree_->selectFromDocument(query));
}

std::vector<XmlNode> PortableXmlDocument::elementsByName(std::string_view name) const {
  std::vector<XmlNode> found;
  for (xmlNode* element = tree_->root(); element != nullptr; element = nextElement(element)) {
    if (hasName(*element, name)) {
      found.push_back(referenceTo(*tree_, element));
    }
  }
  return found;
}

XmlNode PortableXmlDocument::createElement(std::string_view name) {
  return referenceTo(*tree_, &tree_->createElement(std::string(name)));
}

XmlNode PortableXmlDocument::copyOf(const XmlNode& node) {
  return referenceTo(*tree_, &tree_->copyOf(nodeBehind(node)));
}

}  // namespace quorbind
