#pragma once

#include <memory>

#include "platform/file_system.h"
#include "platform/xml_document.h"

namespace quorbind {

/// XML by libxml2, with the file-system port under it.
///
/// Documents of different threads have nothing in common. Nothing is ever printed.
class PortableXmlLibrary final : public XmlLibrary {
 public:
  /// `files` outlives the library and its documents.
  explicit PortableXmlLibrary(FileSystem& files);

  [[nodiscard]] std::unique_ptr<XmlDocument> createDocument() override;
  XmlLoadResult visitNamed(std::string_view path,
                           std::string_view name,
                           XmlElementVisitor& visitor) override;
  XmlLoadResult visitSelected(std::string_view path,
                              std::string_view query,
                              XmlElementVisitor& visitor) override;
  XmlLoadResult scan(std::string_view path, XmlScanHandler& handler) override;
  XmlLoadResult scan(std::unique_ptr<ByteReader> bytes, XmlScanHandler& handler) override;

 private:
  FileSystem& files_;
};

}  // namespace quorbind
