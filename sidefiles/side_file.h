#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/platform.h"
#include "platform/xml_document.h"

namespace quorbind {

/// One of a library's side files in memory: read when it is first asked for, changed there, written
/// back whole.
class SideFile {
 public:
  /// `platform` is kept by reference. Nothing is read yet.
  SideFile(const Platform& platform, std::string path);
  virtual ~SideFile() = default;
  SideFile(const SideFile&) = delete;
  SideFile& operator=(const SideFile&) = delete;

  /// Reads the file, unless it is in memory already. False when it is not there or does not load;
  /// the document is then empty. Everything else comes after this.
  bool load();
  /// Writes the document to the file. Raises as XmlDocument::save does, and what is in memory is
  /// then forgotten, because the file is no longer like it.
  void save();
  /// The next `load` reads the file again.
  void forget();
  /// Whether a file that could be read before can't any more: what is done again with it then would
  /// do nothing, and mostly say nothing.
  [[nodiscard]] bool isGone();

 protected:
  [[nodiscard]] const Platform& platform() const { return platform_; }
  [[nodiscard]] XmlDocument& document() const { return *document_; }
  /// Drops whatever refers into the document.
  virtual void dropIndex() = 0;

 private:
  const Platform& platform_;
  std::string path_;
  /// Made by the first `load`.
  std::unique_ptr<XmlDocument> document_;
  bool loaded_ = false;
};

/// Puts a new element with that text behind the last child of `parent`, and answers it.
XmlNode appendTextElement(XmlDocument& document,
                          const XmlNode& parent,
                          std::string_view tag,
                          std::string_view text);

}  // namespace quorbind
