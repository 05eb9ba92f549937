#include <exception>
#include <iostream>
#include <variant>

#include "cli/add_command.h"
#include "cli/arguments.h"
#include "cli/check_command.h"
#include "cli/init_command.h"
#include "cli/prepare_command.h"
#include "cli/show_command.h"
#include "platform/portable/visible_text.h"

namespace {

using namespace quorbind;

struct Runner {
  ExitStatus operator()(const InitArguments& arguments) const { return runInit(arguments); }
  ExitStatus operator()(const AddArguments& arguments) const { return runAdd(arguments); }
  ExitStatus operator()(const PrepareArguments& arguments) const { return runPrepare(arguments); }
  ExitStatus operator()(const CheckArguments& arguments) const { return runCheck(arguments); }
  ExitStatus operator()(const ShowArguments& arguments) const { return runShow(arguments); }
};

ExitStatus run(int count, const char* const* arguments) {
  const auto parsed = parseArguments(count, arguments);
  if (const auto* status = std::get_if<ExitStatus>(&parsed)) {
    return *status;
  }
  const ExitStatus status = std::visit(Runner(), std::get<Arguments>(parsed));
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
    std::cerr << "quorbind: internal error: " << quorbind::visibleText(error.what()) << '\n';
  }
  return static_cast<int>(status);
}
