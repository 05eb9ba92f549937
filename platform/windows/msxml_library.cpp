#include "platform/windows/msxml_library.h"

#include <string>
#include <utility>

#include "platform/runtime_error.h"
#include "platform/windows/byte_stream.h"
#include "platform/windows/msxml.h"
#include "platform/windows/msxml_copy.h"
#include "platform/windows/msxml_node.h"
#include "platform/windows/msxml_save.h"
#include "platform/windows/msxml_scan.h"
#include "platform/windows/msxml_tree.h"
#include "platform/xpath_query.h"

namespace quorbind {

namespace {

constexpr const char* kNoTopLevelElement = "XML document must have a top level element.";
constexpr const char* kNotLoaded = "The file can't be parsed.";

/// Listens for nothing but the failures of a scan.
class Silence final : public XmlScanHandler {
 public:
  void startElement(std::string_view, const XmlScanAttributes&) override {}
  void text(std::string_view) override {}
  void endElement(std::string_view) override {}
};

class MsxmlDocument final : public XmlDocument {
 public:
  explicit MsxmlDocument(FileSystem& files) : files_(files), document_(createMsxmlDocument()) {}

  XmlLoadResult load(std::string_view path) override;
  void save(std::string_view path) override;
  [[nodiscard]] XmlNode documentElement() const override;
  [[nodiscard]] std::vector<XmlNode> selectAll(std::string_view query) const override;
  [[nodiscard]] std::vector<XmlNode> elementsByName(std::string_view name) const override;
  [[nodiscard]] XmlNode createElement(std::string_view name) override;
  [[nodiscard]] XmlNode copyOf(const XmlNode& node) override;

 private:
  [[nodiscard]] bool build(std::unique_ptr<ByteReader> bytes);
  [[nodiscard]] DomNode root() const;

  FileSystem& files_;
  ComPtr<IXMLDOMDocument2> document_;
};

XmlLoadResult MsxmlDocument::load(std::string_view path) {
  document_ = createMsxmlDocument();
  Silence silence;
  XmlLoadResult result = scanXml(files_, path, silence);
  if (!result) {
    return result;
  }
  try {
    if (build(files_.open(path))) {
      dropLayout(root());
      return result;
    }
  } catch (const RunTimeError& error) {
    document_ = createMsxmlDocument();
    return unreadable(error);
  }
  document_ = createMsxmlDocument();
  return {.reason = kNotLoaded};
}

/// Has MSXML build the document. The file may be another one than was scanned a moment ago.
bool MsxmlDocument::build(std::unique_ptr<ByteReader> bytes) {
  ByteStream stream(std::move(bytes));
  VARIANT_BOOL isLoaded = VARIANT_FALSE;
  const HRESULT result = document_->load(stream.asArgument(), &isLoaded);
  if (stream.failure() != nullptr) {
    std::rethrow_exception(stream.failure());
  }
  ComPtr<IXMLDOMDocumentType> documentType;
  return result == S_OK && isLoaded != VARIANT_FALSE &&
         document_->get_doctype(documentType.put()) == S_FALSE;
}

void MsxmlDocument::save(std::string_view path) {
  if (!root()) {
    throw RunTimeError(kNoTopLevelElementError, kNoTopLevelElement);
  }
  saveXml(document_.as<IXMLDOMNode>(), files_, path);
}

XmlNode MsxmlDocument::documentElement() const {
  return referenceTo(document_, root());
}

std::vector<XmlNode> MsxmlDocument::selectAll(std::string_view query) const {
  return selectFrom(document_, *document_.get(), query);
}

std::vector<XmlNode> MsxmlDocument::elementsByName(std::string_view name) const {
  // Asked for elements by name, not every release compares the prefix.
  return selectAll("//*[name()=" + quotedForQuery(name, '"') + "]");
}

XmlNode MsxmlDocument::createElement(std::string_view name) {
  return quorbind::createElement(document_, name);
}

XmlNode MsxmlDocument::copyOf(const XmlNode& node) {
  return referenceTo(document_, copyFor(document_, nodeBehind(node)));
}

DomNode MsxmlDocument::root() const {
  ComPtr<IXMLDOMElement> element;
  requireSuccess(document_->get_documentElement(element.put()), document_);
  return element.as<IXMLDOMNode>();
}

}  // namespace

std::unique_ptr<XmlDocument> MsxmlLibrary::createDocument() {
  return std::make_unique<MsxmlDocument>(files_);
}

XmlLoadResult MsxmlLibrary::scan(std::string_view path, XmlScanHandler& handler) {
  return scanXml(files_, path, handler);
}

XmlLoadResult MsxmlLibrary::scan(std::unique_ptr<ByteReader> bytes, XmlScanHandler& handler) {
  return scanXml(std::move(bytes), handler);
}

}  // namespace quorbind
