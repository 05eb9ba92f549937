#include "tests/support/watched_xml.h"

#include <array>
#include <string_view>
#include <utility>

#include "platform/runtime_error.h"

namespace quorbind::testing {

namespace {

constexpr std::string_view kNowhere = "C:\\no such folder\\no such file";

int countOf(const std::map<std::string, int>& counts, const std::string& path) {
  const auto found = counts.find(path);
  return found == counts.end() ? 0 : found->second;
}

}  // namespace

class WatchedXml::Document final : public XmlDocument {
 public:
  Document(WatchedXml& library, std::unique_ptr<XmlDocument> document)
      : library_(library), document_(std::move(document)) {}

  XmlLoadResult load(std::string_view path) override {
    ++library_.loads_[std::string(path)];
    return document_->load(library_.isGone_ ? kNowhere : path);
  }
  void save(std::string_view path) override {
    ++library_.saves_[std::string(path)];
    library_.requireDisk();
    library_.requireSpaceFor(*document_);
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
  WatchedXml& library_;
  std::unique_ptr<XmlDocument> document_;
};

WatchedXml::WatchedXml(XmlLibrary& xml, FileSystem& files, std::string scratch)
    : xml_(xml), files_(files), scratch_(std::move(scratch)) {}

int WatchedXml::loadsOf(const std::string& path) const {
  return countOf(loads_, path);
}

int WatchedXml::savesOf(const std::string& path) const {
  return countOf(saves_, path);
}

std::unique_ptr<XmlDocument> WatchedXml::createDocument() {
  return std::make_unique<Document>(*this, xml_.createDocument());
}

XmlLoadResult WatchedXml::scan(std::string_view path, XmlScanHandler& handler) {
  return xml_.scan(isGone_ ? kNowhere : path, handler);
}

void WatchedXml::requireDisk() {
  isGone_ = isGone_ || goesAway_;
  if (isGone_) {
    raise(ErrorNumber::kPathNotFound);
  }
}

XmlLoadResult WatchedXml::scan(std::unique_ptr<ByteReader> bytes, XmlScanHandler& handler) {
  return xml_.scan(std::move(bytes), handler);
}

void WatchedXml::requireSpaceFor(XmlDocument& document) {
  if (limit_ == std::numeric_limits<std::size_t>::max()) {
    return;
  }
  document.save(scratch_);
  std::size_t size = 0;
  {
    const auto reader = files_.open(scratch_);
    std::array<char, 4096> buffer{};
    for (std::size_t read = 1; read > 0; size += read) {
      read = reader->read(buffer.data(), buffer.size());
    }
  }
  files_.deleteFile(scratch_);
  if (size > limit_) {
    raise(ErrorNumber::kDiskFull);
  }
}

}  // namespace quorbind::testing
