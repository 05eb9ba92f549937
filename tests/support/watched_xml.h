#pragma once

#include <cstddef>
#include <limits>
#include <map>
#include <string>

#include "platform/file_system.h"
#include "platform/xml_document.h"

namespace quorbind::testing {

/// An XML library that counts what is loaded and saved, and whose disk can be too small for a
/// document: saving one of more than `limit` bytes raises 61 and leaves the file as it was. It can
/// also go away: saving then raises 76, and no file loads any more.
class WatchedXml final : public XmlLibrary {
 public:
  /// Kept by reference. `scratch` names a file that may be written to see how large a document is.
  WatchedXml(XmlLibrary& xml, FileSystem& files, std::string scratch);

  void limitSavesTo(std::size_t bytes) { limit_ = bytes; }
  /// The first time that something is to be saved the disk is gone.
  void goAwayAtTheFirstSave() { goesAway_ = true; }
  /// How often the file was loaded, with success or without, and how often it was saved.
  [[nodiscard]] int loadsOf(const std::string& path) const;
  [[nodiscard]] int savesOf(const std::string& path) const;

  [[nodiscard]] std::unique_ptr<XmlDocument> createDocument() override;
  XmlLoadResult scan(std::string_view path, XmlScanHandler& handler) override;
  XmlLoadResult scan(std::unique_ptr<ByteReader> bytes, XmlScanHandler& handler) override;

 private:
  class Document;

  void requireDisk();
  void requireSpaceFor(XmlDocument& document);

  XmlLibrary& xml_;
  FileSystem& files_;
  std::string scratch_;
  bool goesAway_ = false;
  bool isGone_ = false;
  std::size_t limit_ = std::numeric_limits<std::size_t>::max();
  std::map<std::string, int> loads_;
  std::map<std::string, int> saves_;
};

}  // namespace quorbind::testing
