#include "cli/check_command.h"

#include <string>
#include <unordered_map>

#include "cli/failure.h"
#include "cli/paths.h"
#include "cli/report.h"
#include "cli/toc_file.h"
#include "cli/toc_survey.h"
#include "cli/wiring.h"
#include "platform/paths.h"
#include "toc/toc_check.h"
#include "workflow/inputs/input_check.h"

namespace quorbind {

namespace {

/// Looks for documents where the author keeps them: beside the table of contents, in the folder
/// that the entry names. Each name is looked up once.
class DocumentSearch {
 public:
  DocumentSearch(FileSystem& files, std::string_view tocPath)
      : files_(files), folder_(std::string(folderOf(tocPath)) + "\\") {}

  bool finds(std::string_view document) {
    const auto [known, isNew] = known_.try_emplace(std::string(document), false);
    if (isNew) {
      const std::string name = withBackslashes(document);
      known->second = staysBelow(name) && files_.fileExists(folder_ + name);
    }
    return known->second;
  }

 private:
  FileSystem& files_;
  std::string folder_;
  std::unordered_map<std::string, bool> known_;
};

/// Holds a text table of contents against the rules and looks for its documents in one walk.
ExitStatus checkText(CheckReport& report, const TocFile& toc, Wiring& wiring) {
  DocumentSearch search(wiring.files, toc.path);
  const auto note = [&](const TextTocLine& line, const TextTocEntry& entry) {
    const std::string_view document = entry.file.substr(0, entry.file.find('#'));
    if (!document.empty() && !search.finds(document)) {
      report.missing.push_back({line.number, std::string(entry.file)});
    }
  };
  const TocSurvey survey = surveyTextToc(wiring.module.platform, toc, note);
  report.entries = survey.entries;
  if (survey.refusal) {
    report.line = survey.refusal->line;
    tellRefusal(wiring.ui, *survey.refusal);
  }
  requireReadableDepth(survey, toc.name);
  return survey.refusal ? ExitStatus::kRefused : ExitStatus::kDone;
}

ExitStatus check(const CheckArguments& arguments, CheckReport& report, Wiring& wiring) {
  const TocFile toc(wiring.files, arguments.toc);
  wiring.ui.showPathAs(toc.path, toc.name);
  const std::int16_t kind = kindOf(toc.name, arguments.kind);
  if (!bCheckForValidInput(wiring.module, toc.path, kind)) {
    return ExitStatus::kRefused;
  }
  if (kind == TocCheck::kText) {
    return checkText(report, toc, wiring);
  }
  std::string path = toc.path;
  return TocCheck(wiring.module).mbValidateTocFile(path, kind) ? ExitStatus::kDone
                                                               : ExitStatus::kRefused;
}

}  // namespace

ExitStatus runCheck(const CheckArguments& arguments) {
  Wiring wiring("", processTerminal(/*mayAsk=*/false));
  CheckReport report;
  report.toc = arguments.toc;
  report.status = reportingFailures(wiring.ui, [&] { return check(arguments, report, wiring); });
  printCheck(report, wiring.ui.shown(), arguments.json);
  return report.status;
}

}  // namespace quorbind
