#include "cli/toc_survey.h"

#include "cli/failure.h"
#include "platform/runtime_error.h"
#include "platform/user_interface.h"
#include "platform/xml_document.h"
#include "resources/rule_texts.h"
#include "toc/text_form.h"

namespace quorbind {

namespace {

/// Of the pieces of a line that is cut at its quotation marks.
constexpr std::size_t kLevelPiece = 1;

class TextSurveyor final : public TextTocListener {
 public:
  TextSurveyor(TocSurvey& survey, const EntryVisitor& visitor)
      : survey_(survey), visitor_(visitor) {}

  bool entry(const TextTocLine& line, const Pieces& pieces) override {
    TextTocEntry entry;
    if (const auto violation = checkTextEntry(line.text, pieces, previousLevel_, entry)) {
      // The fields are filled in when the level is accepted, and then it is the name that is not.
      const bool isLevelAccepted = entry.name.data() != nullptr;
      refuse(line,
             *violation,
             placeOfField(line, isLevelAccepted ? entry.name : pieces.at(kLevelPiece)));
      return false;
    }
    note(line, pieces, entry);
    if (visitor_) {
      visitor_(line, entry);
    }
    return true;
  }

  void refused(const TextTocLine& line, const TocViolation& violation) override {
    refuse(line, violation, {.line = line.number});
  }

  /// The place that the first entry states when it is read by its marks, as the generator does.
  [[nodiscard]] const StatedPlace& placeByMarks() const { return placeByMarks_; }

 private:
  void refuse(const TextTocLine& line, const TocViolation& violation, const LinePlace& place) {
    survey_.refusal = {.violation = violation, .place = place, .text = std::string(line.text)};
  }

  void note(const TextTocLine& line, const Pieces& pieces, const TextTocEntry& entry) {
    if (++survey_.entries == 1) {
      survey_.statedPlace = statedPlaceOf(entry.file, line.number);
      placeByMarks_ = statedPlaceInEntries(line.text, line.number);
      survey_.mainFile = placeOfField(line, entry.file);
    }
    survey_.hasMarks = survey_.hasMarks || contains(line.text, text_form::kMarker);
    if (isTooDeep(entry.level) && !survey_.tooDeep) {
      survey_.tooDeep = refusalOfDepth(placeOfField(line, pieces.at(kLevelPiece)));
    }
  }

  TocSurvey& survey_;
  const EntryVisitor& visitor_;
  std::int16_t previousLevel_ = 0;
  StatedPlace placeByMarks_;
};

void walk(const Platform& platform, const TocFile& toc, TocSurvey& survey, TextSurveyor& surveyor) {
  try {
    TextReader reader(platform.files, platform.locale, toc.path);
    walkTextToc(reader, surveyor);
  } catch (const RunTimeError& error) {
    if (!error.is(ErrorNumber::kInputPastEndOfFile)) {
      throw;
    }
    survey.refusal = {.violation = emptyTextToc()};
  }
}

}  // namespace

TocSurvey surveyTextToc(const Platform& platform, const TocFile& toc, const EntryVisitor& visitor) {
  TocSurvey survey;
  TextSurveyor surveyor(survey, visitor);
  readingInput(toc.name, [&] {
    walk(platform, toc, survey, surveyor);
    // One that goes on as it stands is read by its marks.
    if (survey.hasMarks) {
      survey.statedPlace = surveyor.placeByMarks();
    }
  });
  return survey;
}

LinePlace placeOfField(const TextTocLine& line, std::string_view field) {
  return placeOfPart(line.number, line.text, {field.data() - 1, field.size() + 2});
}

void tellRefusal(UserInterface& ui, const TocRefusal& refusal) {
  ui.show({.text = refusal.violation.message, .icon = refusal.violation.icon});
  if (refusal.violation.offersLine) {
    ui.putOnClipboard(refusal.text);
  }
}

bool isTooDeep(std::int16_t level) {
  // A heading of level 2 stands inside the document's element and the list of headings, and has its
  // name inside it.
  return level + 2 > kMaximumXmlDepth;
}

TocRefusal refusalOfDepth(const LinePlace& place) {
  return {
      .violation = {.message = std::string(text(RuleText::kHeadingTooDeep)), .offersLine = false},
      .place = place};
}

std::optional<TocRefusal> refusalOfStatedPlace(const TocSurvey& survey) {
  if (!survey.statedPlace.refusal) {
    return std::nullopt;
  }
  return TocRefusal{.violation = {.message = *survey.statedPlace.refusal, .offersLine = false},
                    .place = survey.mainFile};
}

}  // namespace quorbind
