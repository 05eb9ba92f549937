#include "platform/windows/msxml_save.h"

#include <memory>
#include <string>

#include "platform/windows/text_encoder.h"
#include "platform/xml_writer.h"

namespace quorbind {

namespace {

bool isDeclaration(const DomNode& node) {
  return typeOf(node) == NODE_PROCESSING_INSTRUCTION && nameOf(node) == "xml";
}

/// What `data` of a declaration gives `name`; empty when it does not.
std::string_view stated(std::string_view data, std::string_view name) {
  const std::size_t at = data.find(name);
  const std::size_t quote = data.find_first_of("\"'", at);
  if (at == std::string_view::npos || quote == std::string_view::npos) {
    return {};
  }
  data.remove_prefix(quote);
  return data.substr(1, data.find(data.front(), 1) - 1);
}

/// The document's declaration without its markup; empty when it has none.
std::string declarationOf(const DomNode& document) {
  const DomNode first = firstChildOf(document);
  return first && isDeclaration(first) ? valueOf(first) : std::string();
}

std::string declarationLine(std::string_view data) {
  std::string line = "<?xml";
  for (const std::string_view name : {"version", "encoding", "standalone"}) {
    const std::string_view value = stated(data, name);
    if (!value.empty()) {
      line.append(" ").append(name).append("=\"").append(value).append("\"");
    }
  }
  return line.append("?>\r\n");
}

void writeAttributes(XmlWriter& writer, const DomNode& element) {
  for (const NamespaceDeclaration& declaration : declarationsOf(element)) {
    writer.attribute(declaration.name, declaration.uri);
  }
  for (const DomNode& attribute : attributesOf(element)) {
    writer.attribute(nameOf(attribute), textOf(attribute));
  }
}

void writeNode(XmlWriter& writer, const DomNode& node, bool outerAsWritten);

void writeElement(XmlWriter& writer, const DomNode& element, bool outerAsWritten) {
  const bool asWritten = outerAsWritten || isAsWritten(element);
  writer.startElement(nameOf(element), asWritten ? XmlLayout::kAsWritten : XmlLayout::kIndented);
  writeAttributes(writer, element);
  for (DomNode child = firstChildOf(element); child; child = nextSiblingOf(child)) {
    if (asWritten || !isBlankText(child)) {
      writeNode(writer, child, asWritten);
    }
  }
  writer.endElement();
}

void writeNode(XmlWriter& writer, const DomNode& node, bool outerAsWritten) {
  switch (typeOf(node)) {
    case NODE_ELEMENT:
      writeElement(writer, node, outerAsWritten);
      break;
    case NODE_TEXT:
      writer.text(valueOf(node));
      break;
    case NODE_CDATA_SECTION:
      writer.cdata(valueOf(node));
      break;
    case NODE_COMMENT:
      writer.comment(valueOf(node));
      break;
    case NODE_PROCESSING_INSTRUCTION:
      writer.instruction(nameOf(node), valueOf(node));
      break;
    default:
      break;
  }
}

}  // namespace

void saveXml(const DomNode& document, FileSystem& files, std::string_view path) {
  const std::string declaration = declarationOf(document);
  TextEncoder encoder(stated(declaration, "encoding"));
  const std::unique_ptr<FileReplacement> file = files.replace(path);
  file->write(encoder.mark());
  const XmlWriter::Sink sink = [&](std::string_view text) { file->write(encoder.encode(text)); };
  if (!declaration.empty()) {
    sink(declarationLine(declaration));
  }
  XmlWriter writer(sink);
  for (DomNode node = firstChildOf(document); node; node = nextSiblingOf(node)) {
    if (!isText(node) && !isDeclaration(node)) {
      writeNode(writer, node, false);
    }
  }
  writer.endDocument();
  file->commit();
}

}  // namespace quorbind
