#include "cli/doctor/finding.h"

#include <algorithm>
#include <array>

namespace quorbind {

namespace {

struct FindingTexts {
  std::string_view id;
  Severity severity;
  std::string_view sentence;
  std::string_view remedy;
};

constexpr std::array kTexts{
#define QUOR_FINDING(name, id, severity, sentence, remedy) \
  FindingTexts{(id), Severity::severity, (sentence), (remedy)},
#include "cli/doctor/findings.def"
#undef QUOR_FINDING
};

}  // namespace

void Findings::add(FindingKind kind,
                   const FindingPlace& place,
                   const FindingWords& words,
                   std::string command) {
  const FindingTexts& texts = kTexts.at(static_cast<std::size_t>(kind));
  findings_.push_back({.id = texts.id,
                       .severity = texts.severity,
                       .file = place.file,
                       .line = place.line,
                       .column = place.column,
                       .lineText = place.lineText,
                       .text = filledText(texts.sentence, words),
                       .remedy = filledText(texts.remedy, words),
                       .command = std::move(command)});
}

std::size_t Findings::count(Severity severity) const {
  return static_cast<std::size_t>(
      std::count_if(findings_.begin(), findings_.end(), [severity](const Finding& finding) {
        return finding.severity == severity;
      }));
}

std::string_view wordFor(Severity severity) {
  return severity == Severity::kError ? "error" : "warning";
}

}  // namespace quorbind
