#pragma once

#include <memory>
#include <string_view>

#include "platform/file_system.h"
#include "platform/xml_document.h"

namespace quorbind {

/// XML by the newest MSXML that is installed, with the file-system port under it. Without any
/// MSXML every operation raises 429. The thread has entered COM.
class MsxmlLibrary final : public XmlLibrary {
 public:
  /// `files` outlives the library and its documents.
  explicit MsxmlLibrary(FileSystem& files) : files_(files) {}

  [[nodiscard]] std::unique_ptr<XmlDocument> createDocument() override;
  XmlLoadResult scan(std::string_view path, XmlScanHandler& handler) override;
  XmlLoadResult scan(std::unique_ptr<ByteReader> bytes, XmlScanHandler& handler) override;

 private:
  FileSystem& files_;
};

}  // namespace quorbind
