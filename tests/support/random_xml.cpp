#include "tests/support/random_xml.h"

#include <algorithm>
#include <array>
#include <random>
#include <string_view>

namespace quorbind::testing {

namespace {

class DocumentMaker {
 public:
  explicit DocumentMaker(unsigned seed) : random_(seed) {}

  std::string make() {
    std::string text;
    if (oneIn(2)) {
      text += oneIn(2) ? "<?xml version='1.0' encoding='UTF-8'?>\n" : "<?xml version='1.0'?>";
    }
    text += asides();
    text += element(0, "xmlns:q='urn:q' xmlns:r='urn:r'");
    text += asides();
    return text;
  }

  std::string fill(std::string_view skeleton) {
    std::string text;
    while (!skeleton.empty()) {
      const std::size_t mark = std::min(skeleton.find('{'), skeleton.size());
      text += skeleton.substr(0, mark);
      skeleton.remove_prefix(mark);
      if (!skeleton.empty()) {
        const std::size_t end = skeleton.find('}') + 1;
        text += foreignPart(skeleton.substr(0, end));
        skeleton.remove_prefix(end);
      }
    }
    return text;
  }

 private:
  static constexpr int kDeepest = 6;
  /// How deep the elements inside a foreign one may go.
  static constexpr int kForeignDepth = 2;
  static constexpr std::string_view kQuotes = "\"'";

  unsigned below(unsigned bound) { return static_cast<unsigned>(random_()) % bound; }
  bool oneIn(unsigned chances) { return below(chances) == 0; }

  template <std::size_t kCount>
  std::string_view anyOf(const std::array<std::string_view, kCount>& choices) {
    return choices[below(kCount)];
  }

  std::string_view space() {
    constexpr std::array<std::string_view, 6> kSpaces{"", " ", "\n", "\r\n\t", "  \n", "\t"};
    return anyOf(kSpaces);
  }

  std::string_view words() {
    constexpr std::array<std::string_view, 10> kWords{"Alarms",
                                                      " two  words ",
                                                      "a &lt; b &amp; c",
                                                      "line\nline",
                                                      "Übersicht",
                                                      "目录 😀",
                                                      "&#13;",
                                                      "]] &gt;",
                                                      kQuotes,
                                                      "&#x9;&#xA;x"};
    return anyOf(kWords);
  }

  std::string_view name() {
    constexpr std::array<std::string_view, 8> kNames{
        "Book", "Name", "q:Book", "r:x", "_1", "Überschrift", "a.b-c", "P"};
    return anyOf(kNames);
  }

  std::string comment() { return oneIn(2) ? "<!-- c -->" : "<!--a\n b & <c>-->"; }
  std::string instruction() { return oneIn(2) ? "<?sort by='name'?>" : "<?stop?>"; }

  /// What may stand outside of the root.
  std::string asides() {
    std::string text;
    while (oneIn(2)) {
      text += oneIn(2) ? comment() : instruction();
      text += space();
    }
    return text;
  }

  std::string attributes() {
    constexpr std::array<std::string_view, 4> kAttributes{"ID", "q:ID", "kind", "r:kind"};
    std::string text;
    for (const std::string_view attribute : kAttributes) {
      if (oneIn(4)) {
        const std::string_view value = words();
        text.append(" ").append(attribute).append("=\"");
        text.append(value == kQuotes ? "&quot;'" : value).append("\"");
      }
    }
    if (oneIn(20)) {
      text += " xml:space='preserve'";
    }
    if (oneIn(10)) {
      text += " xmlns='urn:default'";
    }
    return text;
  }

  std::string element(int depth, std::string_view declarations) {
    const std::string elementName(name());
    std::string text = "<" + elementName;
    text.append(declarations.empty() ? "" : " ").append(declarations).append(attributes());
    if (oneIn(5)) {
      return text + "/>";
    }
    return text + ">" + content(depth) + "</" + elementName + ">";
  }

  std::string content(int depth) {
    const bool mixed = oneIn(3);
    std::string text;
    for (unsigned left = below(5); left > 0; --left) {
      text += space();
      text += child(depth, mixed);
    }
    return text.append(space());
  }

  std::string child(int depth, bool mixed) {
    if (mixed && oneIn(2)) {
      return oneIn(4) ? "<![CDATA[<d> & ]]>" : std::string(words());
    }
    if (oneIn(6)) {
      return oneIn(2) ? comment() : instruction();
    }
    return depth == kDeepest ? std::string(words()) : element(depth + 1, "");
  }

  std::string foreignPart(std::string_view mark) {
    if (mark == "{aside}") {
      return asides();
    }
    return mark == "{own}" ? foreignAttributes() : foreignNodes();
  }

  std::string foreignAttributes() {
    constexpr std::array<std::string_view, 3> kAttributes{
        " own=", " xml:lang=", " xmlns:f='urn:f' f:note="};
    std::string text;
    for (const std::string_view attribute : kAttributes) {
      if (oneIn(4)) {
        const std::string_view value = words();
        text.append(attribute).append("\"").append(value == kQuotes ? "'" : value).append("\"");
      }
    }
    return text;
  }

  std::string foreignNodes() {
    std::string text;
    while (oneIn(2)) {
      text += space();
      if (oneIn(3)) {
        text += oneIn(2) ? comment() : instruction();
      } else if (oneIn(8)) {
        text += oneIn(4) ? "<![CDATA[<d> & ]]>" : std::string(words());
      } else {
        text += "<f:any xmlns:f='urn:f' xmlns:q='urn:q' xmlns:r='urn:r'" + attributes() + ">" +
                content(kDeepest - kForeignDepth) + "</f:any>";
      }
    }
    return text;
  }

  std::mt19937 random_;
};

}  // namespace

std::string randomXml(unsigned seed) {
  return DocumentMaker(seed).make();
}

std::string withForeignContent(std::string_view skeleton, unsigned seed) {
  return DocumentMaker(seed).fill(skeleton);
}

std::string describeTree(const XmlNode& node) {
  std::string text = node.name() + "(";
  if (!node.isElement()) {
    return text.append(node.text()).append(")");
  }
  for (XmlNode attribute = node.firstAttribute(); attribute; attribute = attribute.nextSibling()) {
    text.append(attribute.name()).append("=").append(attribute.text()).append(";");
  }
  text.append("|").append(node.text()).append("|");
  for (const XmlNode& child : node.children()) {
    text += describeTree(child);
  }
  return text.append(")");
}

std::string describeDocument(const XmlDocument& document) {
  std::string text;
  for (const XmlNode& node : document.selectAll("/node()")) {
    text += describeTree(node);
  }
  for (const char* query : {"//*[namespace-uri()='urn:", "//@*[namespace-uri()='urn:"}) {
    for (const char* name : {"f", "q", "r", "default"}) {
      for (const XmlNode& node : document.selectAll(std::string(query) + name + "']")) {
        text.append(name).append(":").append(node.name()).append(" ");
      }
    }
  }
  return text;
}

}  // namespace quorbind::testing
