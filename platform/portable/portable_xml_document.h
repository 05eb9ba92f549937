#pragma once

#include <memory>

#include "platform/file_system.h"
#include "platform/portable/xml_node_body.h"
#include "platform/portable/xml_tree.h"
#include "platform/xml_document.h"

namespace quorbind {

/// A document in libxml2's tree. It costs no memory beyond that tree but for references to nodes.
///
/// What is saved has the layout of XmlWriter. Each load begins a new tree, so it ends the
/// references to nodes of the old one.
class PortableXmlDocument final : public XmlDocument {
 public:
  /// `files` outlives the document.
  explicit PortableXmlDocument(FileSystem& files);

  XmlLoadResult load(std::string_view path) override;
  void save(std::string_view path) override;
  [[nodiscard]] XmlNode documentElement() const override;
  [[nodiscard]] std::vector<XmlNode> selectAll(std::string_view query) const override;
  [[nodiscard]] std::vector<XmlNode> elementsByName(std::string_view name) const override;
  [[nodiscard]] XmlNode createElement(std::string_view name) override;
  [[nodiscard]] XmlNode copyOf(const XmlNode& node) override;

 private:
  void begin(std::unique_ptr<XmlTree> tree);

  FileSystem& files_;
  std::unique_ptr<XmlTree> tree_;
  std::unique_ptr<NodeReferences> references_;
};

}  // namespace quorbind
