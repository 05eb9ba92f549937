#include "platform/portable/bounded_xml_parser.h"

#include <libxml/SAX2.h>
#include <libxml/parserInternals.h>

#include <algorithm>
#include <utility>

#include "platform/portable/xml_messages.h"
#include "platform/portable/xml_text.h"
#include "platform/runtime_error.h"

namespace quorbind {

namespace {

constexpr const char* kFileMissing = "The system cannot locate the object specified.";
constexpr const char* kDocumentType = "A document type declaration is not allowed.";
constexpr const char* kTooManyAttributes = "An element has too many attributes or namespaces.";
constexpr const char* kNameTooLong = "A name is too long.";

/// What the declaration of a file says that was recoded.
constexpr const char* kUtf16 = "UTF-16";

/// XML_PARSE_NOENT has the references of XML itself replaced in attributes as well; with document
/// types refused there are no others.
constexpr int kOptions = XML_PARSE_HUGE | XML_PARSE_NONET | XML_PARSE_NOENT | XML_PARSE_COMPACT;

/// libxml2 gives its table of attributes twice the room that it needs and some more, so a table of
/// this size has too many in it. That of the namespaces in force holds two fields of each.
constexpr int kTooLargeAttributeTable = 3 * kXmlAttributeFields * kMaximumXmlAttributes;
constexpr int kTooManyNamespaceFields = 2 * kMaximumXmlAttributes;

std::string tooDeep() {
  return "More than " + std::to_string(kMaximumXmlDepth) + " elements stand inside each other.";
}

std::string reasonFor(const RunTimeError& error) {
  const bool missing = error.is(ErrorNumber::kFileNotFound) || error.is(ErrorNumber::kPathNotFound);
  return missing ? kFileMissing : error.description();
}

void setEncoding(xmlDoc& document, const char* name) {
  xmlChar* const encoding = xmlCharStrdup(name);
  if (encoding == nullptr) {
    raise(ErrorNumber::kOutOfMemory);
  }
  xmlFree(const_cast<xmlChar*>(document.encoding));
  document.encoding = encoding;
}

bool breaksTheDocument(const xmlError& error) {
  const bool breaksNamespaces =
      error.domain == XML_FROM_NAMESPACE && error.code >= XML_NS_ERR_XML_NAMESPACE;
  return error.level == XML_ERR_FATAL || breaksNamespaces;
}

}  // namespace

BoundedXmlParser::BoundedXmlParser(XmlBytes::Utf16 utf16)
    : context_(xmlNewParserCtxt()), utf16_(utf16) {
  if (context_ == nullptr) {
    raise(ErrorNumber::kOutOfMemory);
  }
  context_->_private = this;
  xmlSAXHandler& handlers = *context_->sax;
  handlers.internalSubset = &onDocumentType;
  handlers.startElementNs = &onStartElement;
  handlers.endElementNs = &onEndElement;
}

XmlLoadResult BoundedXmlParser::parse(FileSystem& files, std::string_view path) {
  std::unique_ptr<ByteReader> bytes;
  try {
    bytes = files.open(path);
  } catch (const RunTimeError& error) {
    isUnreadable_ = true;
    return {.reason = reasonFor(error)};
  }
  return parse(std::move(bytes));
}

XmlLoadResult BoundedXmlParser::parse(std::unique_ptr<ByteReader> bytes) {
  bytes_.emplace(std::move(bytes), utf16_);
  const XmlMessages messages([this](const xmlError& error) { listen(error); });
  document_.reset(
      xmlCtxtReadIO(context_.get(), &readBytes, nullptr, this, nullptr, nullptr, kOptions));
  bytes_->close();
  if (isOver()) {
    document_.reset();
  } else if (document_ && bytes_->areRecoded()) {
    setEncoding(*document_, kUtf16);
  }
  if (exception_ != nullptr) {
    std::rethrow_exception(exception_);
  }
  return failure_.value_or(XmlLoadResult{.loaded = true});
}

bool BoundedXmlParser::needsFileAsItStands() const {
  return bytes_ && bytes_->areRecoded() && !isUnreadable_ &&
         (failure_.has_value() || bytes_->endedEarly());
}

BoundedXmlParser& BoundedXmlParser::of(void* context) {
  return *static_cast<BoundedXmlParser*>(static_cast<xmlParserCtxt*>(context)->_private);
}

int BoundedXmlParser::readBytes(void* self, char* buffer, int size) {
  auto& parser = *static_cast<BoundedXmlParser*>(self);
  int count = 0;
  parser.guarded([&] { count = parser.read(buffer, size); });
  return count;
}

int BoundedXmlParser::read(char* buffer, int size) {
  if (attributesPileUp()) {
    refuse(kTooManyAttributes);
    return 0;
  }
  try {
    const std::size_t count = bytes_->take(buffer, static_cast<std::size_t>(size));
    bytesRead_ += count;
    return static_cast<int>(count);
  } catch (const RunTimeError& error) {
    isUnreadable_ = true;
    fail({.reason = reasonFor(error)});
    return 0;
  }
}

/// Whether the start tag being read is already beyond the bound. It must not be read to its end, as
/// the comparing is done before the tag is handed over.
bool BoundedXmlParser::attributesPileUp() const {
  return context_->maxatts > kTooLargeAttributeTable || context_->nsNr > kTooManyNamespaceFields;
}

void BoundedXmlParser::onDocumentType(void* context,
                                      const xmlChar* /*name*/,
                                      const xmlChar* /*publicId*/,
                                      const xmlChar* /*systemId*/) {
  BoundedXmlParser& parser = of(context);
  parser.guarded([&] { parser.refuse(kDocumentType); });
  // The end of the file would come too late: the declaration may be in memory already.
  xmlStopParser(parser.context_.get());
}

void BoundedXmlParser::onStartElement(void* context,
                                      const xmlChar* localName,
                                      const xmlChar* prefix,
                                      const xmlChar* uri,
                                      int namespaceCount,
                                      const xmlChar** namespaces,
                                      int attributeCount,
                                      int defaultedCount,
                                      const xmlChar** attributes) {
  BoundedXmlParser& parser = of(context);
  parser.guarded([&] {
    const StartTag tag{localName,
                       prefix,
                       uri,
                       namespaceCount,
                       namespaces,
                       attributeCount,
                       defaultedCount,
                       attributes};
    parser.checkBounds(tag);
    if (!parser.isOver()) {
      parser.startElement(tag);
    }
  });
}

void BoundedXmlParser::onEndElement(void* context,
                                    const xmlChar* localName,
                                    const xmlChar* prefix,
                                    const xmlChar* uri) {
  BoundedXmlParser& parser = of(context);
  parser.guarded([&] {
    --parser.depth_;
    parser.endElement({localName, prefix, uri});
  });
}

void BoundedXmlParser::checkBounds(const StartTag& tag) {
  if (++depth_ > kMaximumXmlDepth) {
    refuse(tooDeep());
  }
  if (tag.attributeCount > kMaximumXmlAttributes || attributesPileUp()) {
    refuse(kTooManyAttributes);
  }
  checkNames(tag);
}

void BoundedXmlParser::checkNames(const StartTag& tag) {
  std::size_t longest = viewOf(tag.localName).size();
  for (int i = 0; i < tag.attributeCount; ++i) {
    longest = std::max(longest, viewOf(tag.attribute(i).localName).size());
  }
  if (longest > kMaximumXmlNameLength) {
    refuse(kNameTooLong);
  }
}

void BoundedXmlParser::listen(const xmlError& error) {
  if (breaksTheDocument(error)) {
    guarded([&] {
      if (error.line > 0) {
        // libxml2 has no better name for the column.
        fail({.line = error.line, .column = error.int2, .reason = oneLine(error.message)});
      } else {
        // Of bytes that are no characters only the line can be told: the parser is elsewhere.
        fail({.line = xmlSAX2GetLineNumber(context_.get()), .reason = oneLine(error.message)});
      }
    });
  }
}

void BoundedXmlParser::fail(XmlLoadResult failure) {
  if (!failure_) {
    failure_ = std::move(failure);
  }
}

void BoundedXmlParser::refuse(std::string reason) {
  fail({.line = xmlSAX2GetLineNumber(context_.get()),
        .column = xmlSAX2GetColumnNumber(context_.get()),
        .reason = std::move(reason)});
}

}  // namespace quorbind
