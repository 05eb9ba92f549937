#include "cli/book_file_survey.h"

#include "bookxml/names.h"
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
  return survey;
}

}  // namespace quorbind
