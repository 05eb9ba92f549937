#pragma once

#include <libxml/parser.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quorbind {

/// Keeps the white space that only lays a document out (xml_layout.h) from becoming nodes of it.
///
/// Stands between a parser and libxml2's own handlers, which build the tree, and is told of
/// everything that matters in the order of the document. Whether white space is content can turn
/// out later: by a text behind it, in its own element or in one around it. So it is held back, with
/// its place, and put there when it does.
class LayoutFilter {
 public:
  /// `context`, which lives longer, is the parser's.
  explicit LayoutFilter(xmlParserCtxt& context) : context_(context) {}

  /// Behind a start tag, when the parser has its element.
  void startElement();
  /// In front of an end tag, when the parser still has its element.
  void endElement();
  /// A text or a piece of one: adds it to the element, or holds it back.
  void text(std::string_view text);
  /// In front of a content that makes the element one with text in it.
  void expectText();
  /// Drops what is held back, outside of every element.
  void forget();

 private:
  struct Element {
    /// How many pieces of white space are held back from outside of the element.
    std::size_t heldBefore = 0;
    bool asWritten = false;
  };
  /// Text that has no node. It ends where the next one begins.
  struct Held {
    xmlNode* parent = nullptr;
    /// The child that it follows; null in front of the first one.
    xmlNode* behind = nullptr;
    std::size_t begin = 0;
  };

  void add(std::string_view text);
  void hold(std::string_view blanks);
  void release(const Held& held, std::string_view text);

  xmlParserCtxt& context_;
  /// From the root to the innermost.
  std::vector<Element> open_;
  std::vector<Held> held_;
  /// The texts held back, one behind the other.
  std::string blanks_;
};

}  // namespace quorbind
