#include "platform/portable/xml_save.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/portable/xml_handles.h"
#include "platform/portable/xml_layout.h"
#include "platform/portable/xml_messages.h"
#include "platform/portable/xml_text.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "platform/text_encoding.h"
#include "platform/xml_writer.h"

namespace quorbind {

namespace {

/// What xmlDoc::standalone says besides 0 and 1.
constexpr int kNoDeclaration = -1;
constexpr int kNotStated = -2;

bool isUtf8(std::string_view encoding) {
  return encoding.empty() || equalIgnoringAsciiCase(encoding, "UTF-8") ||
         equalIgnoringAsciiCase(encoding, "UTF8");
}

bool isUtf16(std::string_view encoding) {
  return equalIgnoringAsciiCase(encoding, "UTF-16") || equalIgnoringAsciiCase(encoding, "UTF16") ||
         equalIgnoringAsciiCase(encoding, "ISO-10646-UCS-2");
}

/// Encodes through libxml2, which writes what an encoding lacks as a character reference.
class Encoder {
 public:
  /// The document was read in `encoding`. One that can't be written, or in which no parser would
  /// find its way to the declaration again, raises 57.
  explicit Encoder(const std::string& encoding)
      : encoder_(xmlFindCharEncodingHandler(encoding.c_str())), bytes_(xmlBufferCreate()) {
    require(encoder_ != nullptr && bytes_ != nullptr);
    xmlCharEncOutFunc(encoder_.get(), bytes_.get(), nullptr);
    const std::string_view begin = encode("<?xml");
    require(xmlDetectCharEncoding(reinterpret_cast<const xmlChar*>(begin.data()),
                                  static_cast<int>(begin.size())) != XML_CHAR_ENCODING_NONE);
  }

  /// The view holds until the next call.
  std::string_view encode(std::string_view utf8) {
    const XmlBufferHandle source(
        xmlBufferCreateStatic(const_cast<char*>(utf8.data()), utf8.size()));
    require(source != nullptr);
    xmlBufferEmpty(bytes_.get());
    xmlCharEncOutFunc(encoder_.get(), bytes_.get(), source.get());
    require(xmlBufferLength(source.get()) == 0);
    const xmlChar* const begin = xmlBufferContent(bytes_.get());
    return viewOf(begin, begin + xmlBufferLength(bytes_.get()));
  }

 private:
  static void require(bool condition) {
    if (!condition) {
      raise(ErrorNumber::kDeviceIoError);
    }
  }

  XmlEncoderHandle encoder_;
  XmlBufferHandle bytes_;
};

/// Where UTF-8 goes to come out in `file` in the encoding.
XmlWriter::Sink sinkInto(FileReplacement& file, const std::string& encoding) {
  if (isUtf8(encoding)) {
    return [&file](std::string_view text) { file.write(text); };
  }
  if (isUtf16(encoding)) {
    file.write(kUtf16LittleEndianMark);
    return [&file, bytes = std::string()](std::string_view text) mutable {
      bytes.clear();
      appendUtf16LittleEndian(bytes, text);
      file.write(bytes);
    };
  }
  return [&file, encoder = std::make_shared<Encoder>(encoding)](std::string_view text) {
    file.write(encoder->encode(text));
  };
}

std::string declarationOf(const xmlDoc& document) {
  if (document.standalone == kNoDeclaration) {
    return {};
  }
  std::string line = "<?xml version=\"";
  line.append(viewOf(document.version)).append("\"");
  if (document.encoding != nullptr) {
    line.append(" encoding=\"").append(viewOf(document.encoding)).append("\"");
  }
  if (document.standalone != kNotStated) {
    line.append(document.standalone == 1 ? " standalone=\"yes\"" : " standalone=\"no\"");
  }
  return line.append("?>\r\n");
}

void writeAttributes(XmlWriter& writer, const xmlNode& element) {
  for (const xmlNs* space = element.nsDef; space != nullptr; space = space->next) {
    const std::string name =
        space->prefix == nullptr ? "xmlns" : std::string("xmlns:").append(viewOf(space->prefix));
    writer.attribute(name, viewOf(space->href));
  }
  for (const xmlAttr* attribute = element.properties; attribute != nullptr;
       attribute = attribute->next) {
    const xmlNode* const value = attribute->children;
    writer.attribute(qualifiedNameOf(*attribute),
                     value == nullptr ? std::string_view() : viewOf(value->content));
  }
}

void writeNode(XmlWriter& writer, const xmlNode& node, bool outerAsWritten);

void writeElement(XmlWriter& writer, const xmlNode& element, bool outerAsWritten) {
  const bool asWritten = outerAsWritten || isAsWritten(element);
  writer.startElement(qualifiedNameOf(element),
                      asWritten ? XmlLayout::kAsWritten : XmlLayout::kIndented);
  writeAttributes(writer, element);
  for (const xmlNode* child = element.children; child != nullptr; child = child->next) {
    if (asWritten || !isBlankText(*child)) {
      writeNode(writer, *child, asWritten);
    }
  }
  writer.endElement();
}

void writeNode(XmlWriter& writer, const xmlNode& node, bool outerAsWritten) {
  switch (node.type) {
    case XML_ELEMENT_NODE:
      writeElement(writer, node, outerAsWritten);
      break;
    case XML_TEXT_NODE:
      writer.text(viewOf(node.content));
      break;
    case XML_CDATA_SECTION_NODE:
      writer.cdata(viewOf(node.content));
      break;
    case XML_COMMENT_NODE:
      writer.comment(viewOf(node.content));
      break;
    case XML_PI_NODE:
      writer.instruction(viewOf(node.name), viewOf(node.content));
      break;
    default:
      break;
  }
}

}  // namespace

void writeXml(const xmlDoc& document, FileReplacement& file) {
  const XmlMessages silence;
  XmlWriter::Sink sink = sinkInto(file, std::string(viewOf(document.encoding)));
  sink(declarationOf(document));
  XmlWriter writer(std::move(sink));
  for (const xmlNode* node = document.children; node != nullptr; node = node->next) {
    writeNode(writer, *node, false);
  }
  writer.endDocument();
}

}  // namespace quorbind
