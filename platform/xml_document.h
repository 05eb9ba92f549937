#pragma once

// XML documents in memory, and a way to walk through a file without keeping it.
//
// Parsing is hardened in every implementation: no document type declaration, no external entity, no
// network, at most kMaximumXmlDepth elements inside each other. A file beyond that is one that does
// not load, with a reason; so is one with a prefix that is not declared.

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"

namespace quorbind {

inline constexpr int kMaximumXmlDepth = 256;

/// How a load ended.
struct XmlLoadResult {
  bool loaded = false;
  /// Of a failure: the line of the file, counted from 1; 0 when no line is to blame.
  int line = 0;
  /// The character of that line at which the reader was when it noticed, counted from 1; 0 when it
  /// doesn't tell.
  int column = 0;
  /// Of a failure: one sentence for the user.
  std::string reason = {};

  explicit operator bool() const { return loaded; }
};

/// A node of a document: an element, an attribute, a comment, a processing instruction or a text.
///
/// An XmlNode is a reference; copying it copies no content. It stays valid as long as its document,
/// also after the node was removed from its parent. A default-made one stands for "no such node":
/// it tests false, and every other call on it raises 91.
///
/// Children are elements, comments, processing instructions and texts that are more than white
/// space; only elements have any. White space that lays out an element without text is not kept;
/// all other text is kept untrimmed, and a CDATA section is text. Declarations of namespaces are no
/// attributes. A character that XML can't hold is stored as U+FFFD.
class XmlNode {
 public:
  /// What an adapter implements; one object per reference or per node, as it likes.
  class Body {
   public:
    virtual ~Body() = default;
    [[nodiscard]] virtual bool isElement() const = 0;
    [[nodiscard]] virtual std::string name() const = 0;
    [[nodiscard]] virtual std::string text() const = 0;
    virtual void setText(std::string_view text) = 0;
    [[nodiscard]] virtual XmlNode firstChild() const = 0;
    [[nodiscard]] virtual XmlNode nextSibling() const = 0;
    [[nodiscard]] virtual XmlNode firstAttribute() const = 0;
    virtual void setAttribute(std::string_view name, std::string_view value) = 0;
    [[nodiscard]] virtual XmlNode attribute(std::string_view name) const = 0;
    [[nodiscard]] virtual std::vector<XmlNode> selectAll(std::string_view query) const = 0;
    virtual void insertBefore(const XmlNode& child, const XmlNode& reference) = 0;
    virtual void removeChild(const XmlNode& child) = 0;
  };

  XmlNode() = default;
  explicit XmlNode(std::shared_ptr<Body> body) : body_(std::move(body)) {}

  explicit operator bool() const { return body_ != nullptr; }

  [[nodiscard]] bool isElement() const { return body().isElement(); }
  /// The node's qualified name, prefix and all as written; of an instruction its target; for
  /// comments and texts `#comment` and `#text`.
  [[nodiscard]] std::string name() const { return body().name(); }
  /// An element's text is that of everything below it, comments and instructions left out; every
  /// other node's is its value.
  [[nodiscard]] std::string text() const { return body().text(); }
  /// Replaces everything below the node, or its value, by `text`. Raises 5 for a text that a
  /// comment (`--`, or `-` at its end) or an instruction (`?>`) can't hold.
  void setText(std::string_view text) const { body().setText(text); }

  [[nodiscard]] XmlNode firstChild() const { return body().firstChild(); }
  /// No node behind the last one, nor behind one that stands nowhere.
  [[nodiscard]] XmlNode nextSibling() const { return body().nextSibling(); }
  [[nodiscard]] std::vector<XmlNode> children() const;
  /// The first child element of that name.
  [[nodiscard]] XmlNode child(std::string_view name) const;

  /// The attributes follow each other as siblings.
  [[nodiscard]] XmlNode firstAttribute() const { return body().firstAttribute(); }
  [[nodiscard]] XmlNode attribute(std::string_view name) const { return body().attribute(name); }
  /// Adds the attribute or gives it another value. Raises 5 when the node is no element, for what
  /// is no name, and for a name whose prefix is not declared where the element stands.
  void setAttribute(std::string_view name, std::string_view value) const {
    body().setAttribute(name, value);
  }

  /// The first match, in document order, of an XPath 1.0 query that starts here; none: no node. A
  /// query that is invalid or asks for something else than nodes raises kInvalidQueryError. The
  /// document itself, namespaces and texts of white space alone are no matches. Values go into a
  /// query by xpath_query.h only.
  [[nodiscard]] XmlNode select(std::string_view query) const;
  [[nodiscard]] std::vector<XmlNode> selectAll(std::string_view query) const {
    return body().selectAll(query);
  }

  /// Puts `child`, a node of the same document, behind the last child. Where it stood before, it
  /// stands no longer. Raises 5 when this is no element, when `child` is an attribute, of another
  /// document, or one that this node stands in.
  void append(const XmlNode& child) const { body().insertBefore(child, XmlNode()); }
  /// Puts `child` in front of `reference`, or behind the last child when that is no node. Raises 5
  /// as `append` does, and when `reference` is not a child of this node.
  void insertBefore(const XmlNode& child, const XmlNode& reference) const {
    body().insertBefore(child, reference);
  }
  /// Takes a child out; the document keeps it until it ends. Not a child of this node: raises 5.
  void remove(const XmlNode& child) const { body().removeChild(child); }

  /// For adapters: the body behind a reference that is a node. Raises 91.
  [[nodiscard]] Body& body() const;

 private:
  std::shared_ptr<Body> body_;
};

/// One document. Nodes must not outlive it.
class XmlDocument {
 public:
  virtual ~XmlDocument() = default;

  /// Reads the file at `path`. A file that is not there, can't be read or does not parse is a
  /// failed load, not an error; the document is then empty. Nodes of what it held before are no
  /// longer valid.
  virtual XmlLoadResult load(std::string_view path) = 0;

  /// Replaces the file at `path` whole: the encoding that the document declares (UTF-8 without
  /// one), declaration, comments and instructions kept, elements laid out anew with tabs and CR LF,
  /// elements with mixed content left as they are. A character that the encoding lacks becomes a
  /// character reference. An empty document raises kNoTopLevelElementError and writes nothing; else
  /// the errors are those of FileSystem::replace.
  virtual void save(std::string_view path) = 0;

  /// No node for an empty document.
  [[nodiscard]] virtual XmlNode documentElement() const = 0;
  /// As XmlNode::select and selectAll, from the document itself; an empty document has no match.
  [[nodiscard]] XmlNode select(std::string_view query) const;
  [[nodiscard]] virtual std::vector<XmlNode> selectAll(std::string_view query) const = 0;
  /// Every element of that name, wherever it stands, in document order.
  [[nodiscard]] virtual std::vector<XmlNode> elementsByName(std::string_view name) const = 0;

  /// A new element that stands nowhere yet. Raises 5 for what is no name, and for a prefix.
  [[nodiscard]] virtual XmlNode createElement(std::string_view name) = 0;
  /// A copy of `node` with everything in it, which stands nowhere yet. The node may be one of
  /// another document of the same library. An element declares the namespaces that it uses. Raises
  /// 5 for an attribute, and for a node of another library.
  [[nodiscard]] virtual XmlNode copyOf(const XmlNode& node) = 0;
};

/// Told of the elements that a walk through a file finds.
class XmlElementVisitor {
 public:
  virtual ~XmlElementVisitor() = default;
  /// In front of the first. May come once more: what was told before is void then.
  virtual void begin() = 0;
  /// The element has everything in it; what it stands in need not be there. Neither it nor what is
  /// in it outlives the call, and nothing of it is to be changed.
  virtual void visit(const XmlNode& element) = 0;
};

/// The attributes of an element during a scan.
class XmlScanAttributes {
 public:
  virtual ~XmlScanAttributes() = default;
  /// The attribute's value, empty when there is none; the view holds during the call only.
  [[nodiscard]] virtual std::string_view value(std::string_view name) const = 0;
  /// The line on which the start tag that has them ends, counted from 1.
  [[nodiscard]] virtual std::size_t line() const = 0;
};

/// Told of a document's elements in order. Names and texts hold during the call only.
class XmlScanHandler {
 public:
  virtual ~XmlScanHandler() = default;
  virtual void startElement(std::string_view name, const XmlScanAttributes& attributes) = 0;
  /// Text directly inside the innermost open element, white space included; may come in pieces.
  virtual void text(std::string_view text) = 0;
  virtual void endElement(std::string_view name) = 0;
};

/// The platform's XML.
class XmlLibrary {
 public:
  virtual ~XmlLibrary() = default;

  [[nodiscard]] virtual std::unique_ptr<XmlDocument> createDocument() = 0;

  /// Loads the file at `path` as XmlDocument::load does and hands over what `elementsByName` finds
  /// there. What was told of a file that does not load is void. An exception of the visitor comes
  /// out. An adapter that knows how keeps no more of the file than the element at hand.
  virtual XmlLoadResult visitNamed(std::string_view path,
                                   std::string_view name,
                                   XmlElementVisitor& visitor);
  /// The same for what `selectAll` finds, errors included.
  virtual XmlLoadResult visitSelected(std::string_view path,
                                      std::string_view query,
                                      XmlElementVisitor& visitor);

  /// Walks through the file at `path` in memory that does not grow with it. What was told before a
  /// failure stays told. An exception of the handler ends the scan and comes out of it.
  virtual XmlLoadResult scan(std::string_view path, XmlScanHandler& handler) = 0;
  /// The same for bytes that are no file of their own. What they raise is a failed load, any other
  /// exception of theirs comes out of the scan.
  virtual XmlLoadResult scan(std::unique_ptr<ByteReader> bytes, XmlScanHandler& handler) = 0;
};

}  // namespace quorbind
