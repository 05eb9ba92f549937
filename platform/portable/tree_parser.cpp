#include "platform/portable/tree_parser.h"

#include <libxml/SAX2.h>

#include "platform/portable/xml_text.h"

namespace quorbind {

namespace {

constexpr const char* kTooManyParts = "There are too many elements and attributes for its size.";

}  // namespace

TreeParser::TreeParser(XmlBytes::Utf16 utf16) : BoundedXmlParser(utf16) {
  context().sax->characters = &onText;
  context().sax->ignorableWhitespace = &onText;
  context().sax->cdataBlock = &onSection;
  context().sax->comment = &onComment;
  context().sax->processingInstruction = &onInstruction;
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
  count(partsOf(tag));
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
  count(1);
}

void TreeParser::comment(const xmlChar* text) {
  xmlSAX2Comment(&context(), text);
  count(1);
}

void TreeParser::instruction(const xmlChar* target, const xmlChar* data) {
  xmlSAX2ProcessingInstruction(&context(), target, data);
  count(1);
}

void TreeParser::forgetTree() {
  layout_.forget();
}

int TreeParser::partsOf(const StartTag& tag) {
  return 1 + tag.attributeCount + tag.namespaceCount;
}

void TreeParser::count(int parts) {
  parts_ += static_cast<std::size_t>(parts);
  if (parts_ > kPartsOfAnyTree + bytesRead() / kBytesForPart) {
    refuse(kTooManyParts);
  }
}

void TreeParser::onText(void* context, const xmlChar* text, int length) {
  auto& parser = static_cast<TreeParser&>(of(context));
  parser.guarded([&] { parser.text(viewOf(text, text + length)); });
}

void TreeParser::onSection(void* context, const xmlChar* text, int length) {
  auto& parser = static_cast<TreeParser&>(of(context));
  parser.guarded([&] { parser.section(viewOf(text, text + length)); });
}

void TreeParser::onComment(void* context, const xmlChar* text) {
  auto& parser = static_cast<TreeParser&>(of(context));
  parser.guarded([&] { parser.comment(text); });
}

void TreeParser::onInstruction(void* context, const xmlChar* target, const xmlChar* data) {
  auto& parser = static_cast<TreeParser&>(of(context));
  parser.guarded([&] { parser.instruction(target, data); });
}

}  // namespace quorbind
