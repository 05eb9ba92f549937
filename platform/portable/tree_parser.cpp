#include "platform/portable/tree_parser.h"

#include <libxml/SAX2.h>

#include "platform/portable/xml_text.h"

namespace quorbind {

TreeParser::TreeParser(XmlBytes::Utf16 utf16) : BoundedXmlParser(utf16) {
  context().sax->characters = &onText;
  context().sax->ignorableWhitespace = &onText;
  context().sax->cdataBlock = &onSection;
}

void TreeParser::startElement(const StartTag& tag) {
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
}

void TreeParser::endElement(const EndTag& tag) {
  layout_.endElement();
  xmlSAX2EndElementNs(&context(), tag.localName, tag.prefix, tag.uri);
}

void TreeParser::text(std::string_view text) {
  layout_.text(text);
}

void TreeParser::section(std::string_view text) {
  layout_.expectText();
  xmlAddChild(
      context().node,
      xmlNewCDataBlock(context().myDoc, unendedXmlTextOf(text), static_cast<int>(text.size())));
}

void TreeParser::onText(void* context, const xmlChar* text, int length) {
  auto& parser = static_cast<TreeParser&>(of(context));
  parser.guarded([&] { parser.text(viewOf(text, text + length)); });
}

void TreeParser::onSection(void* context, const xmlChar* text, int length) {
  auto& parser = static_cast<TreeParser&>(of(context));
  parser.guarded([&] { parser.section(viewOf(text, text + length)); });
}

}  // namespace quorbind
