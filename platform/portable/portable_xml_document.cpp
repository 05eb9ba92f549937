#include "platform/portable/portable_xml_document.h"

#include <libxml/SAX2.h>

#include <utility>

#include "platform/portable/bounded_xml_parser.h"
#include "platform/portable/layout_filter.h"
#include "platform/portable/xml_node_body.h"
#include "platform/portable/xml_save.h"
#include "platform/portable/xml_text.h"
#include "platform/runtime_error.h"

namespace quorbind {

namespace {

constexpr const char* kNoTopLevelElement = "XML document must have a top level element.";

/// Has libxml2's own handlers build the tree, but for two things: white space goes through the
/// filter, and CDATA sections stay apart, where the handler would melt neighbouring ones into one.
class TreeParser final : public BoundedXmlParser {
 public:
  TreeParser() {
    context().sax->characters = &onText;
    context().sax->ignorableWhitespace = &onText;
    context().sax->cdataBlock = &onCdata;
  }

  [[nodiscard]] std::unique_ptr<XmlTree> takeTree() {
    return std::make_unique<XmlTree>(takeDocument(), std::move(elements_));
  }

 private:
  static TreeParser& treeOf(void* context) { return static_cast<TreeParser&>(of(context)); }

  static void onText(void* context, const xmlChar* text, int length) {
    TreeParser& parser = treeOf(context);
    parser.guarded([&] { parser.layout_.text(viewOf(text, text + length)); });
  }

  static void onCdata(void* context, const xmlChar* text, int length) {
    TreeParser& parser = treeOf(context);
    parser.guarded([&] {
      parser.layout_.expectText();
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
    layout_.startElement();
    elements_.add(*context().node);
  }

  void endElement(const EndTag& tag) override {
    layout_.endElement();
    xmlSAX2EndElementNs(&context(), tag.localName, tag.prefix, tag.uri);
  }

  LayoutFilter layout_{context()};
  ElementIndex elements_;
};

}  // namespace

PortableXmlDocument::PortableXmlDocument(FileSystem& files) : files_(files) {
  begin(std::make_unique<XmlTree>());
}

XmlLoadResult PortableXmlDocument::load(std::string_view path) {
  begin(std::make_unique<XmlTree>());
  TreeParser parser;
  XmlLoadResult result = parser.parse(files_, path);
  if (result) {
    begin(parser.takeTree());
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
  return references_->to(tree_->root());
}

std::vector<XmlNode> PortableXmlDocument::selectAll(std::string_view query) const {
  return references_->toAll(tree_->selectFromDocument(query));
}

std::vector<XmlNode> PortableXmlDocument::elementsByName(std::string_view name) const {
  return references_->toAll(tree_->elementsByName(name));
}

XmlNode PortableXmlDocument::createElement(std::string_view name) {
  return references_->to(&tree_->createElement(std::string(name)));
}

XmlNode PortableXmlDocument::copyOf(const XmlNode& node) {
  return references_->to(&tree_->copyOf(nodeBehind(node)));
}

void PortableXmlDocument::begin(std::unique_ptr<XmlTree> tree) {
  references_.reset();
  tree_ = std::move(tree);
  references_ = std::make_unique<NodeReferences>(*tree_);
}

}  // namespace quorbind
