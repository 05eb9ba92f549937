#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/runtime_error.h"
#include "platform/xml_document.h"

namespace quorbind::testing {

/// The build's XML, in which one file can be read and not written: saving it is refused with error
/// 70.
class UnsavableXml final : public XmlLibrary {
 public:
  /// The library is kept by reference; `path` is compared letter by letter.
  UnsavableXml(XmlLibrary& xml, std::string path) : xml_(xml), path_(std::move(path)) {}

  std::unique_ptr<XmlDocument> createDocument() override {
    return std::make_unique<Document>(xml_.createDocument(), path_);
  }
  XmlLoadResult scan(std::string_view path, XmlScanHandler& handler) override {
    return xml_.scan(path, handler);
  }
  XmlLoadResult scan(std::unique_ptr<ByteReader> bytes, XmlScanHandler& handler) override {
    return xml_.scan(std::move(bytes), handler);
  }

 private:
  class Document final : public XmlDocument {
   public:
    Document(std::unique_ptr<XmlDocument> document, const std::string& unsavable)
        : document_(std::move(document)), unsavable_(unsavable) {}

    XmlLoadResult load(std::string_view path) override { return document_->load(path); }
    void save(std::string_view path) override {
      if (path == unsavable_) {
        raise(ErrorNumber::kPermissionDenied);
      }
      document_->save(path);
    }
    [[nodiscard]] XmlNode documentElement() const override { return document_->documentElement(); }
    [[nodiscard]] std::vector<XmlNode> selectAll(std::string_view query) const override {
      return document_->selectAll(query);
    }
    [[nodiscard]] std::vector<XmlNode> elementsByName(std::string_view name) const override {
      return document_->elementsByName(name);
    }
    [[nodiscard]] XmlNode createElement(std::string_view name) override {
      return document_->createElement(name);
    }
    [[nodiscard]] XmlNode copyOf(const XmlNode& node) override { return document_->copyOf(node); }

   private:
    std::unique_ptr<XmlDocument> document_;
    const std::string& unsavable_;
  };

  XmlLibrary& xml_;
  const std::string path_;
};

}  // namespace quorbind::testing
