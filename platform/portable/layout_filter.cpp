#include "platform/portable/layout_filter.h"

#include <libxml/SAX2.h>

#include "platform/portable/xml_layout.h"
#include "platform/portable/xml_text.h"
#include "platform/runtime_error.h"

namespace quorbind {

void LayoutFilter::startElement() {
  if (context_.node == nullptr) {
    raise(ErrorNumber::kOutOfMemory);
  }
  const bool outerAsWritten = !open_.empty() && open_.back().asWritten;
  open_.push_back({held_.size(), outerAsWritten || preservesSpace(*context_.node)});
}

void LayoutFilter::endElement() {
  const bool hasWhiteSpaceAlone =
      context_.node->children == nullptr && held_.size() > open_.back().heldBefore;
  if (hasWhiteSpaceAlone) {
    expectText();
  }
  open_.pop_back();
}

void LayoutFilter::text(std::string_view text) {
  if (!open_.back().asWritten) {
    if (isBlank(text)) {
      hold(text);
      return;
    }
    expectText();
  }
  add(text);
}

void LayoutFilter::expectText() {
  Element& element = open_.back();
  element.asWritten = true;
  if (held_.size() == element.heldBefore) {
    return;
  }
  const std::size_t begin = held_[element.heldBefore].begin;
  std::size_t end = blanks_.size();
  while (held_.size() > element.heldBefore) {
    const Held held = held_.back();
    held_.pop_back();
    release(held, std::string_view(blanks_).substr(held.begin, end - held.begin));
    end = held.begin;
  }
  blanks_.resize(begin);
}

void LayoutFilter::forget() {
  held_.clear();
  blanks_.clear();
}

void LayoutFilter::hold(std::string_view blanks) {
  xmlNode* const parent = context_.node;
  const bool continues =
      !held_.empty() && held_.back().parent == parent && held_.back().behind == parent->last;
  if (!continues) {
    held_.push_back({parent, parent->last, blanks_.size()});
  }
  blanks_ += blanks;
}

/// White space that comes last may be the beginning of a text that goes on.
void LayoutFilter::release(const Held& held, std::string_view text) {
  if (held.parent == context_.node && held.behind == held.parent->last) {
    add(text);
    return;
  }
  xmlNode* const node =
      xmlNewDocTextLen(context_.myDoc, unendedXmlTextOf(text), static_cast<int>(text.size()));
  if (node == nullptr) {
    raise(ErrorNumber::kOutOfMemory);
  }
  // Neither neighbour is a text, so none is melted into another.
  if (held.behind == nullptr) {
    xmlAddPrevSibling(held.parent->children, node);
  } else {
    xmlAddNextSibling(held.behind, node);
  }
}

/// libxml2 makes one text of those that follow each other.
void LayoutFilter::add(std::string_view text) {
  xmlSAX2Characters(&context_, unendedXmlTextOf(text), static_cast<int>(text.size()));
}

}  // namespace quorbind
