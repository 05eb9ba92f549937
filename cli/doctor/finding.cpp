#include "cli/doctor/finding.h"

#include <algorithm>
#include <array>
#include <stdexcept>

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

const std::string& valueOf(std::string_view word, const FindingWords& words) {
  const auto found = std::find_if(
      words.begin(), words.end(), [word](const auto& entry) { return entry.first == word; });
  if (found == words.end()) {
    throw std::logic_error("a finding does not tell its " + std::string(word));
  }
  return found->second;
}

/// Values are put in once: braces that stand in one mean nothing.
std::string filled(std::string_view text, const FindingWords& words) {
  std::string result;
  while (true) {
    const std::size_t begin = text.find('{');
    result += text.substr(0, begin);
    if (begin == std::string_view::npos) {
      return result;
    }
    const std::size_t end = text.find('}', begin);
    result += valueOf(text.substr(begin + 1, end - begin - 1), words);
    text.remove_prefix(end + 1);
  }
}

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
                       .text = filled(texts.sentence, words),
                       .remedy = filled(texts.remedy, words),
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
