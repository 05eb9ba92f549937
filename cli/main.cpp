#include <exception>
#include <iostream>
#include <string>
#include <variant>

#include "cli/add_command.h"
#include "cli/arguments.h"
#include "cli/check_command.h"
#include "cli/init_command.h"
#include "cli/prepare_command.h"
#include "cli/report.h"
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

bool wantsJson(const Arguments& arguments) {
  return std::visit(
      [](const auto& chosen) {
        if constexpr (requires { chosen.json; }) {
          return chosen.json;
        } else {
          return false;
        }
      },
      arguments);
}

std::string tellInternal(const std::exception& error) {
  std::string note = std::string("internal error: ") + error.what();
  std::cerr << "quorbind: " << visibleText(note) << '\n';
  return note;
}

ExitStatus runSubcommand(const Arguments& arguments) {
  try {
    return std::visit(Runner(), arguments);
  } catch (const std::exception& error) {
    const std::string note = tellInternal(error);
    if (wantsJson(arguments)) {
      printFailure(ExitStatus::kInternal, {}, note);
    }
    return ExitStatus::kInternal;
  }
}

ExitStatus run(int count, const char* const* arguments) {
  const auto parsed = parseArguments(count, arguments);
  if (const auto* status = std::get_if<ExitStatus>(&parsed)) {
    return *status;
  }
  const ExitStatus status = runSubcommand(std::get<Arguments>(parsed));
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
