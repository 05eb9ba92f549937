#include "platform/portable/xml_layout.h"

#include "platform/portable/xml_text.h"

namespace quorbind {

namespace {

bool isLayout(const xmlNode& node) {
  return node.type == XML_TEXT_NODE && isBlankText(node);
}

bool isText(const xmlNode& node) {
  return node.type == XML_TEXT_NODE || node.type == XML_CDATA_SECTION_NODE;
}

}  // namespace

bool preservesSpace(const xmlNode& element) {
  for (const xmlAttr* attribute = element.properties; attribute != nullptr;
       attribute = attribute->next) {
    if (hasName(*attribute, "xml:space")) {
      return attribute->children != nullptr && viewOf(attribute->children->content) == "preserve";
    }
  }
  return false;
}

bool isBlankText(const xmlNode& node) {
  return isText(node) && isBlank(viewOf(node.content));
}

bool isAsWritten(const xmlNode& element) {
  if (preservesSpace(element)) {
    return true;
  }
  bool textOnly = true;
  for (const xmlNode* child = element.children; child != nullptr; child = child->next) {
    if (isText(*child) && !isLayout(*child)) {
      return true;
    }
    textOnly = textOnly && isText(*child);
  }
  return textOnly;
}

}  // namespace quorbind
