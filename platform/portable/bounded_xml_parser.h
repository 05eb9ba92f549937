#pragma once

#include <cstddef>
#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/file_system.h"
#include "platform/portable/xml_bytes.h"
#include "platform/portable/xml_handles.h"
#include "platform/xml_document.h"

namespace quorbind {

/// The most attributes of an element, and the most namespaces in force: libxml2 compares each with
/// all the others, so its work would grow with the square of the file.
inline constexpr int kMaximumXmlAttributes = 256;
/// In bytes, without the prefix.
inline constexpr std::size_t kMaximumXmlNameLength = 10000;

/// How many pointers libxml2 has for an attribute.
inline constexpr int kXmlAttributeFields = 5;

/// One run of libxml2's parser over one file, kept within bounds.
///
/// The bytes come from the file-system port. The bounds of the port (xml_document.h) and those
/// above, which no sound document comes near, are checked on the way, by handlers that stand in
/// front of the parser's own; libxml2's own bounds are off, since they also limit the length of
/// texts. Nothing but the file is ever opened. A file that breaks the rules of namespaces, such as
/// by a prefix that is not declared, does not parse.
///
/// A run that has failed is over: libxml2 is told that the file ends here, and what its handlers
/// still say about the few bytes that it has read ahead is ignored. libxml2 is C and can't be left
/// by an exception; whatever is thrown while it runs, by a derived class or by the file, is kept,
/// ends the run in the same way, and comes out of `parse`.
class BoundedXmlParser {
 public:
  explicit BoundedXmlParser(XmlBytes::Utf16 utf16 = XmlBytes::Utf16::kAsItStands);
  virtual ~BoundedXmlParser() = default;
  BoundedXmlParser(const BoundedXmlParser&) = delete;
  BoundedXmlParser& operator=(const BoundedXmlParser&) = delete;

  /// Reads the file at `path`; to be called once. A file that can't be read is a failed load.
  XmlLoadResult parse(FileSystem& files, std::string_view path);
  /// Reads what is no file of its own in the same way.
  XmlLoadResult parse(std::unique_ptr<ByteReader> bytes);
  /// Whether the file has to be parsed once more, as it stands, by another parser: it came in UTF-8
  /// and did not parse, so that libxml2 may have more to tell of it, or other things.
  [[nodiscard]] bool needsFileAsItStands() const;

 protected:
  struct Attribute {
    const xmlChar* localName;
    const xmlChar* prefix;
    const xmlChar* uri;
    const xmlChar* valueBegin;
    const xmlChar* valueEnd;
  };

  /// A start tag in the form in which libxml2 hands it over.
  struct StartTag {
    const xmlChar* localName;
    const xmlChar* prefix;
    const xmlChar* uri;
    int namespaceCount;
    const xmlChar** namespaces;
    int attributeCount;
    int defaultedCount;
    const xmlChar** attributes;  ///< the fields of each, one behind the other

    [[nodiscard]] Attribute attribute(int index) const {
      const xmlChar** const fields = attributes + std::ptrdiff_t{index} * kXmlAttributeFields;
      return {fields[0], fields[1], fields[2], fields[3], fields[4]};
    }
  };

  struct EndTag {
    const xmlChar* localName;
    const xmlChar* prefix;
    const xmlChar* uri;
  };

  virtual void startElement(const StartTag& tag) = 0;
  virtual void endElement(const EndTag& tag) = 0;

  [[nodiscard]] xmlParserCtxt& context() const { return *context_; }
  /// The parser that a handler was called by.
  static BoundedXmlParser& of(void* context);

  /// Runs what a handler has to do, unless the run is over.
  template <typename Work>
  void guarded(Work&& work) noexcept {
    if (isOver()) {
      return;
    }
    try {
      work();
    } catch (...) {
      exception_ = std::current_exception();
    }
  }

  /// Ends the run at the place that the parser has come to, for a reason that is nobody's concern.
  void giveUp() { refuse({}); }
  /// Fails at the place that the parser has come to.
  void refuse(std::string reason);
  /// How many bytes the parser has asked for so far; it is a few thousand ahead.
  [[nodiscard]] std::size_t bytesRead() const { return bytesRead_; }
  /// Whether the bytes could not be had.
  [[nodiscard]] bool isUnreadable() const { return isUnreadable_; }

  /// What was parsed, for a derived class whose handlers build a tree; empty after a failure.
  [[nodiscard]] XmlDocHandle takeDocument() { return std::move(document_); }

 private:
  static int readBytes(void* self, char* buffer, int size);
  static void onDocumentType(void* context,
                             const xmlChar* name,
                             const xmlChar* publicId,
                             const xmlChar* systemId);
  static void onStartElement(void* context,
                             const xmlChar* localName,
                             const xmlChar* prefix,
                             const xmlChar* uri,
                             int namespaceCount,
                             const xmlChar** namespaces,
                             int attributeCount,
                             int defaultedCount,
                             const xmlChar** attributes);
  static void onEndElement(void* context,
                           const xmlChar* localName,
                           const xmlChar* prefix,
                           const xmlChar* uri);

  [[nodiscard]] int read(char* buffer, int size);
  [[nodiscard]] bool attributesPileUp() const;
  void checkBounds(const StartTag& tag);
  void checkNames(const StartTag& tag);
  void listen(const xmlError& error);
  void fail(XmlLoadResult failure);
  [[nodiscard]] bool isOver() const { return failure_.has_value() || exception_ != nullptr; }

  XmlParserHandle context_;
  XmlBytes::Utf16 utf16_;
  /// Present once the parser runs.
  std::optional<XmlBytes> bytes_;
  std::size_t bytesRead_ = 0;
  XmlDocHandle document_;
  int depth_ = 0;
  /// The first failure; what follows is a consequence.
  std::optional<XmlLoadResult> failure_;
  bool isUnreadable_ = false;
  std::exception_ptr exception_;
};

}  // namespace quorbind
