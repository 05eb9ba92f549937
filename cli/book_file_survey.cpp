#include "cli/book_file_survey.h"

#include <string_view>

#include "bookxml/names.h"
#include "platform/text.h"
#include "platform/xml_document.h"
#include "toc/xml_toc.h"

namespace quorbind {

namespace {

ExitStatus statusOf(const XmlTocRefusal& refusal) {
  if (!refusal.isNotLoaded) {
    return ExitStatus::kRefused;
  }
  return refusal.line > 0 ? ExitStatus::kNotParseable : ExitStatus::kInputMissing;
}

}  // namespace

BookFileSurvey surveyBookFile(const Platform& platform, const TocFile& toc) {
  BookFileSurvey survey;
  const auto book = platform.xml.createDocument();
  if (auto refusal = loadXmlToc(*book, toc.path)) {
    survey.status = statusOf(*refusal);
    survey.refusal = {.violation = refusal->violation,
                      .line = refusal->line,
                      .text = std::move(refusal->offered)};
    return survey;
  }
  for (const XmlNode& document : book->elementsByName(book_names::kHeadingFile)) {
    survey.documents.push_back(document.text());
  }
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
