#include <cstdint>

#include "bookxml/names.h"
#include "bookxml/toc_to_xml.h"
#include "platform/error_trap.h"
#include "platform/number.h"
#include "platform/paths.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "platform/toolset.h"
#include "platform/xml_writer.h"
#include "toc/text_form.h"

namespace quorbind {

/// Turns the entries of a table of contents into the tree of headings.
///
/// The tree is made from the levels alone: an entry that is deeper than the one before it goes
/// inside it, any other closes as many headings as it comes up, and its own predecessor. Entries of
/// level 1 (the book itself) and empty lines make no heading.
///
/// Up to the first heading's name an error ends the writing; from there on errors are ignored
/// statement by statement, so that a bad entry costs its own heading, or a part of it, and no
/// other.
class CTOCToXML::HeadingWriter {
 public:
  HeadingWriter(CTOCToXML& generator, XmlWriter& writer, TextReader& reader, XmlTextRules& rules)
      : generator_(generator), writer_(writer), reader_(reader), rules_(rules) {}

  void writeAll() {
    if (!readFirstEntry()) {
      return;
    }
    while (skipToHeading()) {
      startHeading();
      errorsIgnored_ = true;
      writeName();
      writeFile();
      if (!readEntry()) {
        break;
      }
      closeHeadings();
    }
    while (open_ > 0) {
      endHeading();
    }
  }

 private:
  template <typename Statement>
  void execute(Statement&& statement) {
    if (errorsIgnored_) {
      ignoringErrors(statement);
    } else {
      statement();
    }
  }

  bool readLine() {
    if (reader_.atEnd()) {
      return false;
    }
    line_ = reader_.readLine();
    pieces_.split(line_, text_form::kMarker);
    return true;
  }

  /// Line 1 is the header; the entries begin in line 2, or in line 3 when line 2 is empty.
  bool readFirstEntry() {
    reader_.readLine();
    if (!readLine()) {
      return false;
    }
    if (line_.empty()) {
      readLine();
    }
    return true;
  }

  /// The next line that is not empty.
  bool readEntry() {
    do {
      if (!readLine()) {
        return false;
      }
    } while (line_.empty());
    return true;
  }

  bool skipToHeading() {
    while (!isHeading()) {
      if (!readLine()) {
        return false;
      }
    }
    return true;
  }

  /// An unreadable level skips its line, once errors are ignored.
  bool isHeading() {
    bool heading = false;
    execute([&] { heading = !line_.empty() && levelOfLine() != 1; });
    return heading;
  }

  [[nodiscard]] std::int32_t levelOfLine() const {
    return toInteger16(pieces_.at(text_form::kLevel));
  }
  [[nodiscard]] std::string fileOfLine() const {
    return withBackslashes(pieces_.at(text_form::kFile));
  }

  void startHeading() {
    generator_.attributes_.clear();
    headingLevel_ = levelOfLine();
    addAttribute(book_names::kLevel, "H" + std::to_string(headingLevel_ - 1));
    execute([&] { generator_.mGenerateTypeAttribute(fileOfLine()); });
    generator_.startElement(writer_, book_names::kHeading);
    ++open_;
  }

  void writeName() {
    execute([&] {
      const std::string_view link = pieces_.at(text_form::kFLinkValue);
      if (link != text_form::kNoLink) {
        addAttribute(book_names::kFLinkValue, std::string(link));
      }
    });
    execute([&] {
      generator_.mGenereateXMLTag(writer_,
                                  book_names::kHeadingName,
                                  rules_.mstrCheckSpecialCharecters(pieces_.at(text_form::kName)));
    });
  }

  void writeFile() {
    generator_.attributes_.clear();
    execute([&] {
      const std::string_view bookmark = pieces_.at(text_form::kSubLink);
      if (!bookmark.empty()) {
        addAttribute(book_names::kBookMark, std::string(bookmark));
      }
    });
    execute([&] {
      const std::string file = fileOfLine();
      const Pieces parts(file, "\\");
      generator_.mGenereateXMLTag(
          writer_, book_names::kHeadingFile, parts.count() > 1 ? parts.at(1) : file);
    });
  }

  /// Closes what the entry just read does not belong into. An entry whose level can't be read
  /// closes as many headings as the entry before it did.
  void closeHeadings() {
    execute([&] { stepsUp_ = headingLevel_ - levelOfLine(); });
    for (std::int32_t step = 0; step <= stepsUp_ && open_ > 0; ++step) {
      endHeading();
    }
  }

  void endHeading() {
    writer_.endElement();
    --open_;
  }

  void addAttribute(std::string_view name, std::string value) {
    generator_.attributes_.emplace_back(name, std::move(value));
  }

  CTOCToXML& generator_;
  XmlWriter& writer_;
  TextReader& reader_;
  XmlTextRules& rules_;

  std::string_view line_;
  Pieces pieces_{{}, text_form::kMarker};
  std::int32_t headingLevel_ = 0;
  std::int32_t stepsUp_ = 0;
  std::int32_t open_ = 0;
  bool errorsIgnored_ = false;
};

void CTOCToXML::mGenerateBookHeadings(XmlWriter& writer, const std::string& tocPath) {
  trapped(platform_.ui, source::kGenerateBookHeadings, [&] {
    const auto rules = platform_.toolset.createXmlTextRules();
    TextReader reader(platform_.files, platform_.locale, tocPath);
    HeadingWriter(*this, writer, reader, *rules).writeAll();
  });
}

}  // namespace quorbind
