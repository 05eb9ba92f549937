#include "platform/portable/portable_xml_document.h"

#include <memory>
#include <utility>

#include "platform/portable/element_index.h"
#include "platform/portable/tree_parser.h"
#include "platform/portable/xml_node_body.h"
#include "platform/portable/xml_save.h"
#include "platform/runtime_error.h"

namespace quorbind {

namespace {

constexpr const char* kNoTopLevelElement = "XML document must have a top level element.";

/// Builds the tree of a whole document.
class DocumentParser final : public TreeParser {
 public:
  using TreeParser::TreeParser;

  [[nodiscard]] std::unique_ptr<XmlTree> takeTree() {
    return std::make_unique<XmlTree>(takeDocument(), std::move(elements_));
  }

 private:
  void startElement(const StartTag& tag) override {
    TreeParser::startElement(tag);
    elements_.add(*innermost());
  }

  ElementIndex elements_;
};

}  // namespace

PortableXmlDocument::PortableXmlDocument(FileSystem& files) : files_(files) {
  begin(std::make_unique<XmlTree>());
}

XmlLoadResult PortableXmlDocument::load(std::string_view path) {
  begin(std::make_unique<XmlTree>());
  auto parser = std::make_unique<DocumentParser>(XmlBytes::Utf16::kAsUtf8);
  XmlLoadResult result = parser->parse(files_, path);
  if (parser->needsFileAsItStands()) {
    parser = std::make_unique<DocumentParser>(XmlBytes::Utf16::kAsItStands);
    result = parser->parse(files_, path);
  }
  if (result) {
    begin(parser->takeTree());
  }
  return result;
}

void PortableXmlDocument::save(std::string_view path) {
  if (tree_->root() == nullptr) {
    throw RunTimeError(kNoTopLevelElementError, kNoTopLevelElement);
  }
  const std::unique_ptr<FileReplacement> file = files_.replace(path);
  writeXml(tree_->document(), *file);
  file->commit();
}

XmlNode PortableXmlDocument::documentElement() const {
  return references_->to(tree_->root());
}

std::vector<XmlNode> PortableXmlDocument::selectAll(std::string_view query) const {
  return references_->toAll(tree_->selectFromDocument(query));
}

std::vector<XmlNode> PortableXmlDocument::elementsByName(std::string_view name) const {
  return references_->toAll(tree_->elementsByName(name));
}

XmlNode PortableXmlDocument::createElement(std::string_view name) {
  return references_->to(&tree_->createElement(std::string(name)));
}

XmlNode PortableXmlDocument::copyOf(const XmlNode& node) {
  return references_->to(&tree_->copyOf(nodeBehind(node)));
}

void PortableXmlDocument::begin(std::unique_ptr<XmlTree> tree) {
  references_.reset();
  tree_ = std::move(tree);
  references_ = std::make_unique<NodeReferences>(*tree_);
}

}  // namespace quorbind
