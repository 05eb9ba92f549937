#pragma once

#include <cstddef>
#include <string_view>

#include "platform/portable/bounded_xml_parser.h"
#include "platform/portable/layout_filter.h"

namespace quorbind {

/// The most elements, attributes, namespaces, comments, sections and instructions that a tree has:
/// so many, and one for each of so many bytes of its file. What systems write has half of them at
/// most, and the memory that a tree takes is bound to the size of the file.
inline constexpr std::size_t kPartsOfAnyTree = 200'000;
inline constexpr std::size_t kBytesForPart = 10;

/// Has libxml2's own handlers build the tree, but for two things: white space goes through the
/// filter, and CDATA sections stay apart, where the handler would melt neighbouring ones into one.
/// A tree with more parts than the bound is refused.
class TreeParser : public BoundedXmlParser {
 public:
  explicit TreeParser(XmlBytes::Utf16 utf16);

 protected:
  /// Adds an element and makes it the innermost one.
  void startElement(const StartTag& tag) override;
  void endElement(const EndTag& tag) override;
  virtual void text(std::string_view text);
  virtual void section(std::string_view text);
  virtual void comment(const xmlChar* text);
  virtual void instruction(const xmlChar* target, const xmlChar* data);

  /// What is being read stands in; null outside of the root.
  [[nodiscard]] xmlNode* innermost() const { return context().node; }
  /// For a tree that is not kept: nothing of it will be asked for again. What it had still counts.
  void forgetTree();
  /// Takes parts of the file into account; those of elements that are built are counted already.
  void count(int parts);
  /// The element itself, its attributes and its namespaces.
  static int partsOf(const StartTag& tag);

 private:
  static void onText(void* context, const xmlChar* text, int length);
  static void onSection(void* context, const xmlChar* text, int length);
  static void onComment(void* context, const xmlChar* text);
  static void onInstruction(void* context, const xmlChar* target, const xmlChar* data);

  LayoutFilter layout_{context()};
  std::size_t parts_ = 0;
};

}  // namespace quorbind
