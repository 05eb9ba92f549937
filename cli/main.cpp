#include <exception>
#include <iostream>
#include <variant>

#include "cli/command_line.h"
#include "cli/failure.h"
#include "cli/report.h"
#include "platform/portable/visible_text.h"

namespace {

using namespace quorbind;

UnexpectedEnd tellEndBy(const std::exception& error) {
  UnexpectedEnd end = endBy(error);
  std::cerr << "quorbind: " << visibleText(end.note) << '\n';
  return end;
}

ExitStatus runTask(const Task& task) {
  try {
    return task.run();
  } catch (const std::exception& error) {
    const UnexpectedEnd end = tellEndBy(error);
    if (task.json) {
      printFailure(end.status, {}, end.note);
    }
    return end.status;
  }
}

ExitStatus run(int count, const char* const* arguments) {
  const auto parsed = readCommandLine(count, arguments);
  if (const auto* status = std::get_if<ExitStatus>(&parsed)) {
    return *status;
  }
  const ExitStatus status = runTask(std::get<Task>(parsed));
  if (status == ExitStatus::kDone && !std::cout.flush()) {
    std::cerr << "quorbind: the standard output could not be written\n";
    return ExitStatus::kWriteFailed;
  }
  return status;
}

}  // namespace

int main(int count, char** arguments) {
  std::ios::sync_with_stdio(false);
  ExitStatus status = ExitStatus::kInternal;
  try {
    status = run(count, arguments);
  } catch (const std::exception& error) {
    status = tellEndBy(error).status;
  }
  return static_cast<int>(status);
}
