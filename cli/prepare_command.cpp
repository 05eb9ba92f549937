#include "cli/prepare_command.h"

#include <unistd.h>

#include <functional>
#include <iostream>
#include <memory>
#include <string_view>

#include "cli/failure.h"
#include "cli/paths.h"
#include "cli/prepared_toc.h"
#include "cli/report.h"
#include "cli/toc_file.h"
#include "cli/toc_survey.h"
#include "cli/wiring.h"
#include "platform/portable/visible_text.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "toc/toc_check.h"

namespace quorbind {

namespace {

using Sink = std::function<void(std::string_view)>;

/// Writes a piece of whole lines, or a line and its end apart.
void writeVisibly(std::string_view text) {
  std::string_view lineEnd;
  for (const std::string_view line : Pieces(text, "\n")) {
    std::cout << lineEnd << visibleText(line);
    lineEnd = "\n";
  }
}

/// A terminal would obey what a table holds. Everybody else gets it byte for byte.
Sink standardOutput() {
  return isatty(STDOUT_FILENO) == 1 ? Sink(writeVisibly)
                                    : Sink([](std::string_view text) { std::cout << text; });
}

/// A table that carries the marks already is passed on line by line.
void writeAsItStands(Wiring& wiring, const TocFile& toc, const Sink& sink) {
  readingInput(toc.name, [&] {
    TextReader reader(wiring.files, wiring.locale, toc.path);
    while (!reader.atEnd()) {
      sink(reader.readLine());
      sink("\n");
    }
  });
}

void writeReady(Wiring& wiring, const TocFile& toc, const TocSurvey& survey, const Sink& sink) {
  if (survey.hasMarks) {
    writeAsItStands(wiring, toc, sink);
  } else {
    writePreparedToc(wiring.module.platform, toc, sink);
  }
}

void writeFile(Wiring& wiring,
               const TocFile& toc,
               const TocSurvey& survey,
               const std::string& output) {
  std::unique_ptr<FileReplacement> file;
  writingOutput(output, [&] { file = wiring.files.replace(componentFile(output)); });
  writeReady(wiring, toc, survey, [&](std::string_view text) {
    writingOutput(output, [&] { file->write(text); });
  });
  writingOutput(output, [&] { file->commit(); });
}

ExitStatus refuse(PreparationReport& report,
                  Wiring& wiring,
                  const TocFile& toc,
                  const TocRefusal& refusal) {
  tellRefusal(wiring.ui, refusal);
  report.place = refusal.place;
  report.lineText =
      lineOfFile(wiring.module.platform, toc.path, TocCheck::kText, refusal.place.line);
  return ExitStatus::kRefused;
}

ExitStatus prepare(const PrepareArguments& arguments, PreparationReport& report, Wiring& wiring) {
  const TocFile toc(wiring.files, arguments.toc);
  const TocSurvey survey = surveyTextToc(wiring.module.platform, toc);
  report.entries = survey.entries;
  if (survey.refusal) {
    return refuse(report, wiring, toc, *survey.refusal);
  }
  if (arguments.output) {
    writeFile(wiring, toc, survey, *arguments.output);
  } else {
    writeReady(wiring, toc, survey, standardOutput());
  }
  return ExitStatus::kDone;
}

}  // namespace

ExitStatus runPrepare(const PrepareArguments& arguments) {
  Wiring wiring("", processTerminal(/*mayAsk=*/false));
  PreparationReport report;
  report.toc = arguments.toc;
  report.output = arguments.output.value_or("");
  report.status = reportingFailures(wiring.ui, [&] { return prepare(arguments, report, wiring); });
  printPreparation(report, wiring.ui.shown(), arguments.json);
  return report.status;
}

}  // namespace quorbind
