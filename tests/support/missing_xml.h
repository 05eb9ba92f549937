#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/runtime_error.h"
#include "platform/xml_document.h"

namespace quorbind::testing {

/// A machine without an XML library: error 429 for whatever is asked of it.
class MissingXml final : public XmlLibrary {
 public:
  MissingXml() : MissingXml(std::string(describe(ErrorNumber::kCannotCreateObject))) {}
  /// Its error can be told from that of other things that are missing.
  explicit MissingXml(std::string description) : description_(std::move(description)) {}

  std::unique_ptr<XmlDocument> createDocument() override { fail(); }
  XmlLoadResult scan(std::string_view /*path*/, XmlScanHandler& /*handler*/) override { fail(); }
  XmlLoadResult scan(std::unique_ptr<ByteReader> /*bytes*/, XmlScanHandler& /*handler*/) override {
    fail();
  }

 private:
  [[noreturn]] void fail() const {
    throw RunTimeError(static_cast<std::int32_t>(ErrorNumber::kCannotCreateObject), description_);
  }

  std::string description_;
};

}  // namespace quorbind::testing
