#include "cli/book_file_survey.h"

#include <map>
#include <string_view>

#include "bookxml/names.h"
#include "platform/text.h"
#include "platform/xml_document.h"
#include "toc/book_place.h"
#include "toc/xml_toc.h"

namespace quorbind {

namespace {

ExitStatus statusOf(const XmlTocRefusal& refusal) {
  if (!refusal.isNotLoaded) {
    return ExitStatus::kRefused;
  }
  return refusal.line > 0 ? ExitStatus::kNotParseable : ExitStatus::kInputMissing;
}

/// Learns on which lines documents are named, which a document in memory does not tell.
class LineScan final : public XmlScanHandler {
 public:
  /// Of the element that is the `index`-th of its name from 0; 0 where it can't be told.
  [[nodiscard]] std::size_t lineOf(std::string_view name, std::size_t index) const {
    const std::vector<std::size_t>& lines = lines_.at(name);
    return index < lines.size() ? lines[index] : 0;
  }

  void startElement(std::string_view name, const XmlScanAttributes& attributes) override {
    if (const auto lines = lines_.find(name); lines != lines_.end()) {
      lines->second.push_back(attributes.line());
    }
  }
  void text(std::string_view /*text*/) override {}
  void endElement(std::string_view /*name*/) override {}

 private:
  std::map<std::string_view, std::vector<std::size_t>> lines_{{book_names::kBookFile, {}},
                                                              {book_names::kHeadingFile, {}},
                                                              {book_names::kPath, {}},
                                                              {book_names::kAcro, {}}};
};

/// The line of the name that the file states and that is refused.
std::size_t lineOfStatedName(const Platform& platform,
                             const TocFile& toc,
                             const XmlDocument& book) {
  LineScan lines;
  static_cast<void>(platform.xml.scan(toc.path, lines));
  const XmlNode path = book.select(book_names::kPathPath);
  const bool isPath = path && refusalOfStatedFolder(folderInBookPath(path.text()), path.text());
  return lines.lineOf(isPath ? book_names::kPath : book_names::kAcro, 0);
}

/// The place at fault; none where there is no line to blame, as in a file without headings.
LinePlace placeOf(const XmlTocRefusal& refusal,
                  const Platform& platform,
                  const TocFile& toc,
                  const XmlDocument& book) {
  const bool statesName =
      !refusal.isNotLoaded && !book.elementsByName(book_names::kHeadingFile).empty();
  if (statesName) {
    return {.line = lineOfStatedName(platform, toc, book)};
  }
  const std::size_t length = refusal.column > 0 ? 1 : 0;
  return {.line = refusal.line, .column = refusal.column, .length = length};
}

std::string textAt(const XmlDocument& book, std::string_view path) {
  const XmlNode node = book.select(path);
  return node ? node.text() : std::string();
}

}  // namespace

BookFileSurvey surveyBookFile(const Platform& platform, const TocFile& toc) {
  BookFileSurvey survey;
  const auto book = platform.xml.createDocument();
  if (auto refusal = loadXmlToc(*book, toc.path)) {
    survey.status = statusOf(*refusal);
    survey.refusal = {.violation = refusal->violation,
                      .place = placeOf(*refusal, platform, toc, *book),
                      .text = std::move(refusal->offered)};
    return survey;
  }
  LineScan lines;
  static_cast<void>(platform.xml.scan(toc.path, lines));
  const auto addDocuments = [&](std::string_view name) {
    const auto elements = book->elementsByName(name);
    for (std::size_t index = 0; index < elements.size(); ++index) {
      survey.documents.push_back({elements[index].text(), lines.lineOf(name, index)});
    }
    return elements.size();
  };
  addDocuments(book_names::kBookFile);
  survey.headings = addDocuments(book_names::kHeadingFile);
  survey.name = textAt(*book, book_names::kNamePath);
  survey.acronym = textAt(*book, book_names::kAcroPath);
  if (const XmlNode path = book->select(book_names::kPathPath)) {
    survey.folder = folderInBookPath(path.text());
  }
  for (const std::string_view path : {book_names::kKeyPath, book_names::kPathPath}) {
    if (!survey.missingElement && !book->select(path)) {
      survey.missingElement = Pieces(path, "/").last();
    }
  }
  return survey;
}

}  // namespace quorbind
