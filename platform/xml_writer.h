#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quorbind {

/// The declaration line, without its end, of a document that is written as a "Unicode text" file
/// (text_file.h).
inline constexpr std::string_view kUnicodeDeclaration =
    R"(<?xml version="1.0" encoding="UTF-16"?>)";

/// How the white space inside an element comes about.
enum class XmlLayout {
  kIndented,   ///< The writer's: every child on a line of its own, unless there is text among them.
  kAsWritten,  ///< The caller's: nothing is added inside the element, however deep.
};

/// Whether a line end stands behind the document.
enum class XmlLastLine { kEnded, kOpen };

/// Writes an XML document piece by piece, laid out with one tab per depth and CR LF: the same bytes
/// in every build.
///
/// An element with text stands on one line; one without any content is an empty-element tag. Each
/// comment and each processing instruction has a line of its own, and the last line of the document
/// ends like every other, unless it is asked not to. Markup characters, and those that a parser
/// would not give back (CR, and line ends and tabs in attributes), are written as references; LF is
/// written as CR LF, which a parser gives back as LF. A character that XML can't hold is written as
/// U+FFFD.
///
/// Names are written as they are given. The declaration line is the caller's.
class XmlWriter {
 public:
  using Sink = std::function<void(std::string_view utf8)>;

  /// `sink` receives the text in pieces that end between characters, the last in endDocument.
  explicit XmlWriter(Sink sink);

  /// Raises 5 for a text that fails `fitsComment`. A CR becomes a blank.
  void comment(std::string_view text);
  /// A processing instruction, with nothing but its target when `data` is empty. Raises 5 for data
  /// that fail `fitsInstruction`. A CR becomes a blank.
  void instruction(std::string_view target, std::string_view data);
  /// Inside an element with `kAsWritten` layout every element has it.
  void startElement(std::string_view name, XmlLayout layout = XmlLayout::kIndented);
  /// Of the element just started: raises 5 when it already has content.
  void attribute(std::string_view name, std::string_view value);
  /// Outside of an element raises 5. An empty text is no content.
  void text(std::string_view text);
  /// The same text, as character data that is not marked up. A CR becomes a blank.
  void cdata(std::string_view text);
  /// Ends the innermost open element. None open: raises 5.
  void endElement();
  /// An element with text in it and nothing else.
  void textElement(std::string_view name, std::string_view text);
  [[nodiscard]] std::size_t depth() const { return open_.size(); }

  /// Ends every element still open and hands the rest of the text to the sink.
  void endDocument(XmlLastLine lastLine = XmlLastLine::kEnded);

 private:
  struct Element {
    std::size_t nameLength = 0;
    XmlLayout layout = XmlLayout::kIndented;
  };

  void beginNode();
  void endNode();
  void beginCharacterData();
  void closeStartTag();
  void endLine();
  void beginLine(std::size_t depth);
  void flush();

  Sink sink_;
  std::string buffer_;
  /// The open elements from the outermost to the innermost, and their names one behind the other.
  std::vector<Element> open_;
  std::string openNames_;
  bool startTagOpen_ = false;
  /// Outside of the root: the line of the last node has not been ended.
  bool lineOpen_ = false;
};

/// Whether a comment can hold `text`: no `--`, and no `-` at its end.
bool fitsComment(std::string_view text);
/// Whether a processing instruction can hold `data`: no `?>`.
bool fitsInstruction(std::string_view data);

/// Whether XML can hold `text` as it is.
bool isXmlCharactersOnly(std::string_view text);
/// `text` as XML can hold it: valid UTF-8, every character that XML does not know as U+FFFD.
std::string xmlCharactersOnly(std::string_view text);

}  // namespace quorbind
