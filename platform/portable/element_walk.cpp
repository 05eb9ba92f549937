#include "platform/portable/element_walk.h"

#include <libxml/SAX2.h>

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "platform/portable/path_query.h"
#include "platform/portable/tree_parser.h"
#include "platform/portable/xml_handles.h"
#include "platform/portable/xml_node_body.h"
#include "platform/portable/xml_text.h"
#include "platform/portable/xml_tree.h"

namespace quorbind {

namespace {

/// Says which elements have to be built, and what is wanted of each.
class Wanted {
 public:
  virtual ~Wanted() = default;
  /// Of an element that is not inside of one that is built: `depth` elements stand around it.
  virtual bool opens(std::size_t depth,
                     const xmlChar* prefix,
                     const xmlChar* localName,
                     const xmlChar* uri) = 0;
  /// The end of an element that `opens` was asked of and that is not built.
  virtual void closes(std::size_t depth) = 0;
  [[nodiscard]] virtual std::vector<xmlNode*> in(xmlNode& built) const = 0;
};

class WantedByName final : public Wanted {
 public:
  explicit WantedByName(std::string_view name) : name_(name) {}

  bool opens(std::size_t /*depth*/,
             const xmlChar* prefix,
             const xmlChar* localName,
             const xmlChar* /*uri*/) override {
    return isNamed(prefix, localName, name_);
  }
  void closes(std::size_t /*depth*/) override {}
  [[nodiscard]] std::vector<xmlNode*> in(xmlNode& built) const override {
    return elementsNamed(&built, name_);
  }

 private:
  std::string_view name_;
};

class WantedByPath final : public Wanted {
 public:
  explicit WantedByPath(const PathQuery& path) : path_(path) {}

  bool opens(std::size_t depth,
             const xmlChar* /*prefix*/,
             const xmlChar* localName,
             const xmlChar* uri) override {
    if (depth != onPath_ || uri != nullptr || !path_.isStep(depth, viewOf(localName))) {
      return false;
    }
    const bool isAtEnd = depth + 1 == path_.stepsToCondition();
    onPath_ += isAtEnd ? 0 : 1;
    return isAtEnd;
  }
  void closes(std::size_t depth) override { onPath_ = std::min(onPath_, depth); }
  [[nodiscard]] std::vector<xmlNode*> in(xmlNode& built) const override {
    return path_.findFromConditionOn(built);
  }

 private:
  const PathQuery& path_;
  /// How many of the elements that are open, from the root on, the steps lead through.
  std::size_t onPath_ = 0;
};

/// A file that is refused as a tree is refused here, too.
class ElementWalk final : public TreeParser {
 public:
  ElementWalk(Wanted& wanted, XmlElementVisitor& visitor)
      : TreeParser(XmlBytes::Utf16::kAsUtf8), wanted_(wanted), visitor_(visitor) {}

  std::optional<XmlLoadResult> run(FileSystem& files, std::string_view path) {
    visitor_.begin();
    XmlLoadResult result = parse(files, path);
    if (isUnreadable() || (result && !needsFileAsItStands())) {
      return result;
    }
    return std::nullopt;
  }

 private:
  /// An element that is not built.
  struct Around {
    /// Whether it has what can have a say in the elements in it: text, a namespace, `xml:space`.
    bool hasSay = false;
    bool holdsWanted = false;
  };

  [[nodiscard]] bool isBuilding() const { return innermost() != nullptr; }

  void startElement(const StartTag& tag) override {
    if (!isBuilding()) {
      if (!wanted_.opens(around_.size(), tag.prefix, tag.localName, tag.uri)) {
        around_.push_back({tag.namespaceCount > 0 || hasPrefixedAttribute(tag), false});
        count(partsOf(tag));
        return;
      }
      if (hasSayAround()) {
        giveUp();
        return;
      }
    }
    TreeParser::startElement(tag);
  }

  /// One of them can be `xml:space`.
  static bool hasPrefixedAttribute(const StartTag& tag) {
    int at = 0;
    while (at < tag.attributeCount && tag.attribute(at).prefix == nullptr) {
      ++at;
    }
    return at < tag.attributeCount;
  }

  void endElement(const EndTag& tag) override {
    if (!isBuilding()) {
      leave();
      return;
    }
    xmlNode* const element = innermost();
    TreeParser::endElement(tag);
    if (!isBuilding()) {
      handOver(*element);
    }
  }

  void text(std::string_view text) override {
    if (isBuilding()) {
      TreeParser::text(text);
    } else if (!isBlank(text)) {
      noteContent();
    }
  }

  void section(std::string_view text) override {
    if (isBuilding()) {
      TreeParser::section(text);
    } else {
      noteContent();
      count(1);
    }
  }

  void comment(const xmlChar* text) override {
    if (isBuilding()) {
      TreeParser::comment(text);
    } else {
      count(1);
    }
  }

  void instruction(const xmlChar* target, const xmlChar* data) override {
    if (isBuilding()) {
      TreeParser::instruction(target, data);
    } else {
      count(1);
    }
  }

  /// Text makes the white space content of everything in its element, before it and behind it.
  void noteContent() {
    around_.back().hasSay = true;
    if (around_.back().holdsWanted) {
      giveUp();
    }
  }

  [[nodiscard]] bool hasSayAround() const {
    return std::any_of(
        around_.begin(), around_.end(), [](const Around& element) { return element.hasSay; });
  }

  void leave() {
    const bool holdsWanted = around_.back().holdsWanted;
    around_.pop_back();
    wanted_.closes(around_.size());
    if (holdsWanted) {
      markHolder();
    }
  }

  void markHolder() {
    if (!around_.empty()) {
      around_.back().holdsWanted = true;
    }
  }

  void handOver(xmlNode& element) {
    xmlUnlinkNode(&element);
    const XmlNodeHandle owned(&element);
    forgetTree();
    markHolder();
    if (!tree_) {
      tree_.emplace(*element.doc);
      references_.emplace(*tree_);
    }
    for (xmlNode* const found : wanted_.in(element)) {
      visitor_.visit(references_->to(found));
    }
    references_->forget();
  }

  Wanted& wanted_;
  XmlElementVisitor& visitor_;
  /// The open elements that are not built, from the root on.
  std::vector<Around> around_;
  /// Over the document that the parser owns, from the first element on.
  std::optional<XmlTree> tree_;
  std::optional<NodeReferences> references_;
};

}  // namespace

std::optional<XmlLoadResult> walkElementsNamed(FileSystem& files,
                                               std::string_view path,
                                               std::string_view name,
                                               XmlElementVisitor& visitor) {
  WantedByName wanted(name);
  return ElementWalk(wanted, visitor).run(files, path);
}

std::optional<XmlLoadResult> walkElementsSelected(FileSystem& files,
                                                  std::string_view path,
                                                  std::string_view query,
                                                  XmlElementVisitor& visitor) {
  const auto steps = PathQuery::read(query);
  if (!steps) {
    return std::nullopt;
  }
  WantedByPath wanted(*steps);
  return ElementWalk(wanted, visitor).run(files, path);
}

}  // namespace quorbind
