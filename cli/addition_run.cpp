#include "cli/addition_run.h"

#include "cli/failure.h"
#include "cli/required_document.h"
#include "cli/side_file_rules.h"
#include "cli/taken_names.h"
#include "toc/toc_check.h"

namespace quorbind {

void AdditionRun::blame(const TocFile& toc, const LinePlace& place) {
  report.place = place;
  report.lineText = lineOfFile(wiring.module.platform, toc.path, kind, place.line);
}

void AdditionRun::writing(const std::string& what, const std::function<void()>& step) {
  try {
    writingOutput(what, step);
  } catch (const CommandFailure&) {
    report.note = nothingAddedWithout(what);
    throw;
  }
}

void AdditionRun::requireOwnLetters(const std::string& name,
                                    const std::string& acronym,
                                    const Abandoned& otherwise) {
  if (tellTakenInOtherLetterCase(wiring, booksBefore, name, acronym)) {
    throw otherwise;
  }
}

void AdditionRun::requireUsableSideFile(const std::string& path, std::string_view query) {
  requireSideFile(wiring.module.platform, path, query);
  writing(nativeName(path), [&] { requireWritable(wiring.files, path); });
}

std::string nothingAddedWithout(const std::string& what) {
  return std::string(what).append(kNotWritten).append("; ").append(kNothingAdded);
}

bool asksFirst(const AddArguments& arguments) {
  const std::int16_t kind = kindOf(arguments.toc, arguments.kind);
  return kind == TocCheck::kHtml || (kind == TocCheck::kXml && isNamed(arguments));
}

}  // namespace quorbind
