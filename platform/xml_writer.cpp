#include "platform/xml_writer.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "platform/runtime_error.h"
#include "platform/text.h"
#include "platform/text_encoding.h"

namespace quorbind {

namespace {

constexpr std::size_t kFlushSize = std::size_t{32} * 1024;

/// What each ASCII character is written as; empty for those that are written as they are.
using Spelling = std::array<std::string_view, 128>;

constexpr Spelling kCharactersOnly = [] {
  Spelling spelling{};
  for (std::size_t control = 0; control < ' '; ++control) {
    spelling[control] = kReplacementCharacter;
  }
  spelling['\t'] = spelling['\n'] = spelling['\r'] = {};
  return spelling;
}();

/// In comments, instructions and CDATA sections, where references mean nothing.
constexpr Spelling kVerbatim = [] {
  Spelling spelling = kCharactersOnly;
  spelling['\n'] = kLineEnd;
  spelling['\r'] = " ";
  return spelling;
}();

constexpr Spelling kText = [] {
  Spelling spelling = kCharactersOnly;
  spelling['&'] = "&amp;";
  spelling['<'] = "&lt;";
  spelling['>'] = "&gt;";
  spelling['\n'] = kLineEnd;
  spelling['\r'] = "&#13;";
  return spelling;
}();

constexpr Spelling kAttribute = [] {
  Spelling spelling = kText;
  spelling['"'] = "&quot;";
  spelling['\t'] = "&#9;";
  spelling['\n'] = "&#10;";
  return spelling;
}();

/// Whether XML can hold the character, one that is not ASCII.
bool isAllowed(const Utf8Character& character) {
  return character.length > 0 && character.codePoint != 0xFFFE && character.codePoint != 0xFFFF;
}

/// How many bytes at the beginning of `text` are written as they are.
std::size_t plainPrefix(std::string_view text, const Spelling& spelling) {
  std::size_t at = 0;
  while (at < text.size()) {
    const std::uint8_t byte = byteAt(text, at);
    if (byte < spelling.size()) {
      if (!spelling[byte].empty()) {
        return at;
      }
      ++at;
    } else {
      const Utf8Character character = firstUtf8Character(text.substr(at));
      if (!isAllowed(character)) {
        return at;
      }
      at += character.length;
    }
  }
  return at;
}

void appendSpelled(std::string& target, std::string_view text, const Spelling& spelling) {
  for (;;) {
    const std::size_t plain = plainPrefix(text, spelling);
    target.append(text, 0, plain);
    if (plain == text.size()) {
      return;
    }
    text.remove_prefix(plain);
    const std::uint8_t byte = byteAt(text, 0);
    target.append(byte < spelling.size() ? spelling[byte] : kReplacementCharacter);
    text.remove_prefix(std::max(firstUtf8Character(text).length, std::size_t{1}));
  }
}

void require(bool condition) {
  if (!condition) {
    raise(ErrorNumber::kInvalidProcedureCall);
  }
}

}  // namespace

XmlWriter::XmlWriter(Sink sink) : sink_(std::move(sink)) {
  buffer_.reserve(2 * kFlushSize);
}

void XmlWriter::comment(std::string_view text) {
  require(fitsComment(text));
  beginNode();
  buffer_ += "<!--";
  appendSpelled(buffer_, text, kVerbatim);
  buffer_ += "-->";
  endNode();
}

void XmlWriter::instruction(std::string_view target, std::string_view data) {
  require(fitsInstruction(data));
  beginNode();
  buffer_.append("<?").append(target);
  if (!data.empty()) {
    buffer_ += ' ';
    appendSpelled(buffer_, data, kVerbatim);
  }
  buffer_ += "?>";
  endNode();
}

void XmlWriter::startElement(std::string_view name, XmlLayout layout) {
  beginNode();
  const bool inherited = !open_.empty() && open_.back().layout == XmlLayout::kAsWritten;
  open_.push_back({name.size(), inherited ? XmlLayout::kAsWritten : layout});
  openNames_ += name;
  buffer_ += '<';
  buffer_ += name;
  startTagOpen_ = true;
}

void XmlWriter::attribute(std::string_view name, std::string_view value) {
  require(startTagOpen_);
  buffer_ += ' ';
  buffer_ += name;
  buffer_ += "=\"";
  appendSpelled(buffer_, value, kAttribute);
  buffer_ += '"';
}

void XmlWriter::text(std::string_view text) {
  require(!open_.empty());
  if (text.empty()) {
    return;
  }
  beginCharacterData();
  appendSpelled(buffer_, text, kText);
  endNode();
}

void XmlWriter::cdata(std::string_view text) {
  require(!open_.empty());
  beginCharacterData();
  buffer_ += "<![CDATA[";
  appendSpelled(buffer_, replaceAll(text, "]]>", "]]]]><![CDATA[>"), kVerbatim);
  buffer_ += "]]>";
  endNode();
}

void XmlWriter::endElement() {
  require(!open_.empty());
  const Element element = open_.back();
  open_.pop_back();
  const std::size_t nameAt = openNames_.size() - element.nameLength;
  if (startTagOpen_) {
    buffer_ += "/>";
    startTagOpen_ = false;
  } else {
    if (element.layout == XmlLayout::kIndented) {
      beginLine(open_.size());
    }
    buffer_ += "</";
    buffer_.append(openNames_, nameAt);
    buffer_ += '>';
  }
  openNames_.resize(nameAt);
  endNode();
}

void XmlWriter::textElement(std::string_view name, std::string_view text) {
  startElement(name);
  this->text(text);
  endElement();
}

void XmlWriter::endDocument(XmlLastLine lastLine) {
  while (!open_.empty()) {
    endElement();
  }
  if (lastLine == XmlLastLine::kEnded) {
    endLine();
  }
  flush();
}

/// Brings the text to where an element, a comment or an instruction begins.
void XmlWriter::beginNode() {
  closeStartTag();
  endLine();
  if (!open_.empty() && open_.back().layout == XmlLayout::kIndented) {
    beginLine(open_.size());
  }
}

/// After every node that is complete. Outside of the root each has a line of its own.
void XmlWriter::endNode() {
  lineOpen_ = open_.empty();
  if (buffer_.size() >= kFlushSize) {
    flush();
  }
}

/// White space beside text would be text, so from here on the element is the caller's.
void XmlWriter::beginCharacterData() {
  closeStartTag();
  open_.back().layout = XmlLayout::kAsWritten;
}

void XmlWriter::closeStartTag() {
  if (startTagOpen_) {
    buffer_ += '>';
    startTagOpen_ = false;
  }
}

void XmlWriter::endLine() {
  if (lineOpen_) {
    buffer_ += kLineEnd;
    lineOpen_ = false;
  }
}

void XmlWriter::beginLine(std::size_t depth) {
  buffer_ += kLineEnd;
  buffer_.append(depth, '\t');
}

void XmlWriter::flush() {
  sink_(buffer_);
  buffer_.clear();
}

bool fitsComment(std::string_view text) {
  return !contains(text, "--") && !text.ends_with('-');
}

bool fitsInstruction(std::string_view data) {
  return !contains(data, "?>");
}

bool isXmlCharactersOnly(std::string_view text) {
  return plainPrefix(text, kCharactersOnly) == text.size();
}

std::string xmlCharactersOnly(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  appendSpelled(result, text, kCharactersOnly);
  return result;
}

}  // namespace quorbind
