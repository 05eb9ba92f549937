#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include "platform/text_store.h"
#include "platform/xml_document.h"

namespace quorbind {

/// What a book file has in the elements that name documents, as it stands there and in its order.
struct NamedFiles {
  TextStore mainFiles;
  TextStore headingFiles;
};

/// An XML library for the tool set, which walks through a book file that it copies: it remembers
/// what the last such walk found, so that nobody has to parse the copy to tell of its documents.
class ScanWatch final : public XmlLibrary {
 public:
  /// Kept by reference.
  explicit ScanWatch(XmlLibrary& xml) : xml_(xml) {}

  /// What was found since the last call; nothing where no walk came to its end.
  [[nodiscard]] std::optional<NamedFiles> take();

  [[nodiscard]] std::unique_ptr<XmlDocument> createDocument() override;
  XmlLoadResult visitNamed(std::string_view path,
                           std::string_view name,
                           XmlElementVisitor& visitor) override;
  XmlLoadResult visitSelected(std::string_view path,
                              std::string_view query,
                              XmlElementVisitor& visitor) override;
  XmlLoadResult scan(std::string_view path, XmlScanHandler& handler) override;
  /// Of a file that is copied the tool set reads the bytes itself.
  XmlLoadResult scan(std::unique_ptr<ByteReader> bytes, XmlScanHandler& handler) override;

 private:
  XmlLibrary& xml_;
  std::optional<NamedFiles> found_;
};

}  // namespace quorbind
