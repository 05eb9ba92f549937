#include "cli/toc_survey.h"

#include "cli/failure.h"
#include "cli/toc_file.h"
#include "platform/runtime_error.h"
#include "platform/xml_document.h"
#include "toc/text_form.h"

namespace quorbind {

namespace {

class Surveyor final : public TextTocListener {
 public:
  Surveyor(TocSurvey& survey, const EntryVisitor& visitor) : survey_(survey), visitor_(visitor) {}

  bool entry(const TextTocLine& line, const Pieces& pieces) override {
    TextTocEntry entry;
    if (checkTextEntry(line.text, pieces, previousLevel_, entry)) {
      survey_.refusedLine = line.number;
      return false;
    }
    note(line, entry);
    if (visitor_) {
      visitor_(line, entry);
    }
    return true;
  }

  void refused(const TextTocLine& line, const TocViolation& /*violation*/) override {
    survey_.refusedLine = line.number;
  }

 private:
  void note(const TextTocLine& line, const TextTocEntry& entry) {
    ++survey_.entries;
    survey_.hasMarks = survey_.hasMarks || contains(line.text, text_form::kMarker);
    if (entry.level > survey_.deepestLevel) {
      survey_.deepestLevel = entry.level;
      survey_.deepestLine = line.number;
    }
  }

  TocSurvey& survey_;
  const EntryVisitor& visitor_;
  std::int16_t previousLevel_ = 0;
};

}  // namespace

TocSurvey surveyTextToc(const Platform& platform,
                        std::string_view path,
                        const EntryVisitor& visitor) {
  TocSurvey survey;
  TextReader reader(platform.files, platform.locale, path);
  Surveyor surveyor(survey, visitor);
  try {
    survey.accepted = walkTextToc(reader, surveyor);
  } catch (const RunTimeError& error) {
    if (!error.is(ErrorNumber::kInputPastEndOfFile)) {
      throw;
    }
  }
  return survey;
}

void requireReadableDepth(const TocSurvey& survey, const std::string& name) {
  // A heading of level 2 stands inside the document's element and the list of headings, and has its
  // name inside it.
  if (survey.deepestLevel + 2 > kMaximumXmlDepth) {
    throw CommandFailure(ExitStatus::kNotParseable,
                         placeIn(name, survey.deepestLine) + "the headings are nested too deeply");
  }
}

}  // namespace quorbind
