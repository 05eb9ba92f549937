#pragma once

#include <string_view>

#include "platform/portable/bounded_xml_parser.h"
#include "platform/portable/layout_filter.h"

namespace quorbind {

/// Has libxml2's own handlers build the tree, but for two things: white space goes through the
/// filter, and CDATA sections stay apart, where the handler would melt neighbouring ones into one.
class TreeParser : public BoundedXmlParser {
 public:
  explicit TreeParser(XmlBytes::Utf16 utf16);

 protected:
  /// Adds an element and makes it the innermost one.
  void startElement(const StartTag& tag) override;
  void endElement(const EndTag& tag) override;
  virtual void text(std::string_view text);
  virtual void section(std::string_view text);

  /// What is being read stands in; null outside of the root.
  [[nodiscard]] xmlNode* innermost() const { return context().node; }
  /// For a tree that is not kept: nothing of it will be asked for again.
  void forgetLayout() { layout_.forget(); }

 private:
  static void onText(void* context, const xmlChar* text, int length);
  static void onSection(void* context, const xmlChar* text, int length);

  LayoutFilter layout_{context()};
};

}  // namespace quorbind
