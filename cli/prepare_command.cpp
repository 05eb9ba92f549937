#include "cli/prepare_command.h"

#include <functional>
#include <iostream>
#include <string_view>

#include "cli/failure.h"
#include "cli/paths.h"
#include "cli/prepared_toc.h"
#include "cli/toc_file.h"
#include "cli/toc_survey.h"
#include "cli/wiring.h"
#include "platform/portable/visible_text.h"
#include "platform/runtime_error.h"
#include "platform/text_file.h"
#include "toc/toc_check.h"

namespace quorbind {

namespace {

using Sink = std::function<void(std::string_view)>;

/// A table that carries the marks already is passed on line by line.
void writeAsItStands(Wiring& wiring, std::string_view path, const Sink& sink) {
  TextReader reader(wiring.files, wiring.locale, path);
  while (!reader.atEnd()) {
    sink(reader.readLine());
    sink("\n");
  }
}

void writeReady(Wiring& wiring, const TocFile& toc, const TocSurvey& survey, const Sink& sink) {
  if (survey.hasMarks) {
    writeAsItStands(wiring, toc.path, sink);
  } else {
    writePreparedToc(wiring.module.platform, toc.path, sink);
  }
}

void writeFile(Wiring& wiring,
               const TocFile& toc,
               const TocSurvey& survey,
               const std::string& output) {
  try {
    const auto file = wiring.files.replace(componentFile(output));
    writeReady(wiring, toc, survey, [&file](std::string_view text) { file->write(text); });
    file->commit();
  } catch (const RunTimeError& error) {
    throw writeFailure(output, error);
  }
}

/// Has the component's own check tell what is wrong.
ExitStatus refuse(Wiring& wiring, const TocFile& toc, const TocSurvey& survey) {
  wiring.ui.showPathAs(toc.path, toc.name);
  TocCheck(wiring.module).mbValidateTextToc(toc.path);
  std::cerr << "quorbind: " << visibleText(placeIn(toc.name, survey.refusedLine))
            << "nothing was written\n";
  return ExitStatus::kRefused;
}

ExitStatus prepare(const PrepareArguments& arguments, Wiring& wiring) {
  const TocFile toc(wiring.files, arguments.toc);
  const TocSurvey survey = surveyTextToc(wiring.module.platform, toc.path);
  if (!survey.accepted) {
    return refuse(wiring, toc, survey);
  }
  if (arguments.output) {
    writeFile(wiring, toc, survey, *arguments.output);
  } else {
    writeReady(wiring, toc, survey, [](std::string_view text) { std::cout << text; });
  }
  return ExitStatus::kDone;
}

}  // namespace

ExitStatus runPrepare(const PrepareArguments& arguments) {
  Wiring wiring("", processTerminal(/*mayAsk=*/false));
  return reportingFailures(wiring.ui, [&] { return prepare(arguments, wiring); });
}

}  // namespace quorbind
