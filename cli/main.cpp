#include <exception>
#include <iostream>
#include <string>
#include <variant>

#include "cli/command_line.h"
#include "cli/failure.h"
#include "cli/report.h"
#include "platform/portable/visible_text.h"

namespace {

using namespace quorbind;

std::string tellInternal(const std::exception& error) {
  std::string note = internalError(error);
  std::cerr << "quorbind: " << visibleText(note) << '\n';
  return note;
}

ExitStatus runTask(const Task& task) {
  try {
    return task.run();
  } catch (const std::exception& error) {
    const std::string note = tellInternal(error);
    if (task.json) {
      printFailure(ExitStatus::kInternal, {}, note);
    }
    return ExitStatus::kInternal;
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
    tellInternal(error);
  }
  return static_cast<int>(status);
}
