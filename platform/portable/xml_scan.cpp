#include "platform/portable/xml_scan.h"

#include <string>
#include <utility>

#include "platform/portable/bounded_xml_parser.h"
#include "platform/portable/xml_text.h"

namespace quorbind {

namespace {

/// Builds no tree: of libxml2's own handlers those that would are taken off.
class ScanParser final : public BoundedXmlParser {
 public:
  explicit ScanParser(XmlScanHandler& handler) : handler_(handler) {
    xmlSAXHandler& handlers = *context().sax;
    handlers.characters = &onText;
    handlers.ignorableWhitespace = &onText;
    handlers.cdataBlock = &onText;
    handlers.comment = nullptr;
    handlers.processingInstruction = nullptr;
  }

 private:
  /// The attributes of one start tag where libxml2 keeps them.
  class Attributes final : public XmlScanAttributes {
   public:
    Attributes(const StartTag& tag, xmlParserCtxt& context) : tag_(tag), context_(context) {}

    [[nodiscard]] std::string_view value(std::string_view name) const override {
      for (int i = 0; i < tag_.attributeCount; ++i) {
        const Attribute attribute = tag_.attribute(i);
        if (isNamed(attribute.prefix, attribute.localName, name)) {
          return viewOf(attribute.valueBegin, attribute.valueEnd);
        }
      }
      return {};
    }
    [[nodiscard]] std::size_t line() const override {
      return static_cast<std::size_t>(xmlSAX2GetLineNumber(&context_));
    }

   private:
    const StartTag& tag_;
    xmlParserCtxt& context_;
  };

  void startElement(const StartTag& tag) override {
    handler_.startElement(nameOf(tag.prefix, tag.localName), Attributes(tag, context()));
  }

  void endElement(const EndTag& tag) override {
    handler_.endElement(nameOf(tag.prefix, tag.localName));
  }

  static void onText(void* context, const xmlChar* text, int length) {
    auto& parser = static_cast<ScanParser&>(of(context));
    parser.guarded([&] { parser.handler_.text(viewOf(text, text + length)); });
  }

  [[nodiscard]] std::string_view nameOf(const xmlChar* prefix, const xmlChar* local) {
    if (prefix == nullptr) {
      return viewOf(local);
    }
    name_ = qualifiedName(prefix, local);
    return name_;
  }

  XmlScanHandler& handler_;
  std::string name_;
};

}  // namespace

XmlLoadResult scanXml(FileSystem& files, std::string_view path, XmlScanHandler& handler) {
  ScanParser parser(handler);
  return parser.parse(files, path);
}

XmlLoadResult scanXml(std::unique_ptr<ByteReader> bytes, XmlScanHandler& handler) {
  ScanParser parser(handler);
  return parser.parse(std::move(bytes));
}

}  // namespace quorbind
