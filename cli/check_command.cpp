#include "cli/check_command.h"

#include <string>
#include <utility>

#include "cli/book_file_survey.h"
#include "cli/failure.h"
#include "cli/page_survey.h"
#include "cli/point_of_need.h"
#include "cli/report.h"
#include "cli/required_document.h"
#include "cli/toc_file.h"
#include "cli/toc_survey.h"
#include "cli/wiring.h"
#include "cli/workbook_survey.h"
#include "platform/folder_listings.h"
#include "platform/paths.h"
#include "toc/toc_check.h"
#include "workflow/inputs/input_check.h"

namespace quorbind {

namespace {

/// Looks for documents where the author keeps them: beside the table of contents, in the folder
/// that the entry names.
class DocumentSearch {
 public:
  DocumentSearch(const Platform& platform, std::string_view tocPath, CheckReport& report)
      : listings_(platform.files, platform.locale),
        folder_(folderPartOf(platform.files.absolutePath(tocPath))),
        report_(report) {}

  /// Reports a document, which may have a bookmark, unless it is there or nothing is named.
  void note(std::size_t line, std::string_view document) {
    const std::string_view name = document.substr(0, document.find('#'));
    if (!name.empty() && !finds(name)) {
      report_.missing.add({.line = line}, document);
    }
  }
  /// The same for a row of a workbook, which may name a document without its book's folder.
  void note(const CellPlace& cell, std::string_view folder, std::string_view document) {
    const std::string_view name = document.substr(0, document.find('#'));
    const bool isThere =
        name.empty() || finds(name) || (!folder.empty() && finds(joinedPath(folder, name)));
    if (!isThere) {
      report_.missing.add({.cell = cell}, document);
    }
  }

 private:
  bool finds(std::string_view document) {
    const auto name = nameBelow(document);
    return name && listings_.hasFile(folder_ + *name);
  }

  FolderListings listings_;
  std::string folder_;
  CheckReport& report_;
};

void reportRefusal(CheckReport& report, const TocRefusal& refusal, Wiring& wiring) {
  report.place = refusal.place;
  tellRefusal(wiring.ui, refusal);
}

ExitStatus judge(CheckReport& report, const TocSurvey& survey, Wiring& wiring) {
  report.entries = survey.entries;
  if (survey.refusal) {
    reportRefusal(report, *survey.refusal, wiring);
    return ExitStatus::kRefused;
  }
  if (survey.tooDeep) {
    reportRefusal(report, *survey.tooDeep, wiring);
    return ExitStatus::kNotParseable;
  }
  if (const auto refusal = refusalOfStatedPlace(survey)) {
    reportRefusal(report, *refusal, wiring);
    return ExitStatus::kRefused;
  }
  return ExitStatus::kDone;
}

// Each holds a table of contents against the rules and looks for its documents in one walk.

ExitStatus checkText(CheckReport& report, const TocFile& toc, Wiring& wiring) {
  DocumentSearch search(wiring.module.platform, toc.path, report);
  const auto note = [&search](const TextTocLine& line, const TextTocEntry& entry) {
    search.note(line.number, entry.file);
  };
  return judge(report, surveyTextToc(wiring.module.platform, toc, note), wiring);
}

ExitStatus checkPage(CheckReport& report, const TocFile& toc, Wiring& wiring) {
  DocumentSearch search(wiring.module.platform, toc.path, report);
  const auto note = [&search](std::size_t line, std::string_view document) {
    search.note(line, document);
  };
  const PageSurvey survey = surveyHtmlToc(wiring.module.platform, toc, note);
  const ExitStatus status = judge(report, survey.rules, wiring);
  if (status == ExitStatus::kDone) {
    tellNotes(wiring.ui, survey, toc);
  }
  return status;
}

ExitStatus checkBookFile(CheckReport& report, const TocFile& toc, Wiring& wiring) {
  const BookFileSurvey survey = surveyBookFile(wiring.module.platform, toc);
  if (survey.refusal) {
    reportRefusal(report, *survey.refusal, wiring);
    return survey.status;
  }
  DocumentSearch search(wiring.module.platform, toc.path, report);
  for (const NamedDocument& document : survey.documents) {
    search.note(document.line, document.name);
  }
  report.entries = survey.headings;
  if (survey.missingElement) {
    throw missingElement(toc.path, *survey.missingElement);
  }
  return ExitStatus::kDone;
}

ExitStatus checkWorkbook(CheckReport& report, const TocFile& toc, Wiring& wiring) {
  DocumentSearch search(wiring.module.platform, toc.path, report);
  const auto note = [&search](const CellPlace& cell,
                              std::string_view folder,
                              std::string_view document) { search.note(cell, folder, document); };
  WorkbookSurvey survey = surveyWorkbook(wiring.module.platform, toc, note);
  tellViolations(wiring.ui, toc.name, survey.violations);
  report.books = survey.books.size();
  report.entries = survey.entries;
  report.violations = std::move(survey.violations);
  return survey.status;
}

ExitStatus checkKind(std::int16_t kind, CheckReport& report, const TocFile& toc, Wiring& wiring) {
  switch (kind) {
    case TocCheck::kText:
      return checkText(report, toc, wiring);
    case TocCheck::kHtml:
      return checkPage(report, toc, wiring);
    case TocCheck::kXml:
      return checkBookFile(report, toc, wiring);
    default:
      return checkWorkbook(report, toc, wiring);
  }
}

ExitStatus check(const CheckArguments& arguments, CheckReport& report, Wiring& wiring) {
  const TocFile toc(wiring.files, arguments.toc);
  wiring.ui.showPathAs(toc.path, toc.name);
  const std::int16_t kind = kindOf(toc.name, arguments.kind);
  if (!bCheckForValidInput(wiring.module, toc.path, kind)) {
    return ExitStatus::kRefused;
  }
  const ExitStatus status = checkKind(kind, report, toc, wiring);
  report.lineText = lineOfFile(wiring.module.platform, toc.path, kind, report.place.line);
  return status;
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
