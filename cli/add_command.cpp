#include "cli/add_command.h"

#include <optional>

#include "cli/addition.h"
#include "cli/addition_batch.h"
#include "cli/addition_run.h"
#include "cli/failure.h"
#include "cli/job_file.h"
#include "cli/point_of_need.h"
#include "cli/report.h"
#include "cli/wiring.h"

namespace quorbind {

namespace {

std::vector<AddArguments> additionsOf(const AddRequest& request) {
  std::vector<AddArguments> additions;
  for (const std::string& toc : request.tocs) {
    additions.push_back(static_cast<const AddArguments&>(request));
    additions.back().toc = toc;
  }
  return additions;
}

ExitStatus addOne(const AddArguments& arguments) {
  std::vector<ShownMessage> messages;
  const AdditionReport report = addBook(arguments, messages);
  tellAddition(report, messages);
  if (arguments.json) {
    printAddition(report, messages);
  } else {
    printAddedBooks(report);
  }
  return report.status;
}

ExitStatus runJob(const AddRequest& request) {
  Wiring wiring("", processTerminal(/*mayAsk=*/false));
  Job job;
  std::optional<FaultyLine> blamed;
  const ExitStatus status = reportingFailures(
      wiring.ui,
      [&] {
        job = readJobFile(wiring.files, *request.job, request);
        return ExitStatus::kDone;
      },
      &blamed);
  tellAccepted(status, wiring.ui.shown());
  if (status == ExitStatus::kDone) {
    return addAll(job.additions, job.stopsAtFirst, request.json);
  }
  if (request.json) {
    printFailure(status, wiring.ui.shown(), std::string(kNothingAdded), blamed);
  }
  return status;
}

}  // namespace

ExitStatus runAdd(const AddRequest& request) {
  if (request.job) {
    return runJob(request);
  }
  const std::vector<AddArguments> additions = additionsOf(request);
  return additions.size() == 1 ? addOne(additions.front())
                               : addAll(additions, request.stopsAtFirst, request.json);
}

}  // namespace quorbind
