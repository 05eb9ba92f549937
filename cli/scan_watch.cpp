#include "cli/scan_watch.h"

#include <string>
#include <utility>

#include "bookxml/names.h"

namespace quorbind {

namespace {

/// Passes everything on, and keeps what names documents.
class NamedFilesScan final : public XmlScanHandler {
 public:
  explicit NamedFilesScan(XmlScanHandler& handler) : handler_(handler) {}

  [[nodiscard]] NamedFiles take() { return std::move(found_); }

  void startElement(std::string_view name, const XmlScanAttributes& attributes) override {
    text_.clear();
    handler_.startElement(name, attributes);
  }
  void text(std::string_view text) override {
    text_.append(text);
    handler_.text(text);
  }
  void endElement(std::string_view name) override {
    if (name == book_names::kHeadingFile) {
      found_.headingFiles.add(text_);
    } else if (name == book_names::kBookFile) {
      found_.mainFiles.add(text_);
    }
    text_.clear();
    handler_.endElement(name);
  }

 private:
  XmlScanHandler& handler_;
  std::string text_;
  NamedFiles found_;
};

}  // namespace

std::optional<NamedFiles> ScanWatch::take() {
  return std::exchange(found_, std::nullopt);
}

std::unique_ptr<XmlDocument> ScanWatch::createDocument() {
  return xml_.createDocument();
}

XmlLoadResult ScanWatch::visitNamed(std::string_view path,
                                    std::string_view name,
                                    XmlElementVisitor& visitor) {
  return xml_.visitNamed(path, name, visitor);
}

XmlLoadResult ScanWatch::visitSelected(std::string_view path,
                                       std::string_view query,
                                       XmlElementVisitor& visitor) {
  return xml_.visitSelected(path, query, visitor);
}

XmlLoadResult ScanWatch::scan(std::string_view path, XmlScanHandler& handler) {
  return xml_.scan(path, handler);
}

XmlLoadResult ScanWatch::scan(std::unique_ptr<ByteReader> bytes, XmlScanHandler& handler) {
  NamedFilesScan scan(handler);
  XmlLoadResult result = xml_.scan(std::move(bytes), scan);
  if (result) {
    found_ = scan.take();
  }
  return result;
}

}  // namespace quorbind
