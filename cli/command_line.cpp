#include "cli/command_line.h"

#include <string>
#include <vector>

#include "cli/grammar.h"
#include "cli/unknown_word.h"
#include "platform/portable/visible_text.h"

namespace quorbind {

namespace {

/// A word that is not known is told instead of what is missing because of it.
int tellOf(const CLI::ParseError& error,
           const CLI::App& app,
           const std::vector<std::string>& words) {
  if (error.get_exit_code() != 0) {
    if (const auto unknown = unknownWordIn(app, words)) {
      return app.exit(CLI::ParseError(visibleText(*unknown), CLI::ExitCodes::ExtrasError));
    }
  }
  return app.exit(error);
}

}  // namespace

void declareCommand(CLI::App& app, Task& task) {
  app.name("quorbind");
  app.description("Keeps the books of a documentation library.");
  app.set_version_flag("--version", "quorbind " QUORBIND_VERSION);
  app.require_subcommand(1);
  app.footer(
      "Exit status: 0 done, 1 refused, 2 wrong usage, 3 input missing or unreadable,\n"
      "4 not parseable or over a limit, 5 a write failed, 6 an answer is missing, 70 internal.");
  for (const auto offerGroupOf : {offerTocSubcommands,
                                  offerLibrarySubcommands,
                                  offerBookSubcommands,
                                  offerCategorySubcommands,
                                  offerKeywordSubcommands,
                                  offerLinkSubcommands,
                                  offerExplanations,
                                  offerDoctor}) {
    offerGroupOf(app, task);
  }
}

std::variant<Task, ExitStatus> readCommandLine(int count, const char* const* arguments) {
  CLI::App app;
  Task task;
  declareCommand(app, task);
  try {
    app.parse(count, arguments);
    return task;
  } catch (const CLI::ParseError& error) {
    const std::vector<std::string> words(arguments + 1, arguments + count);
    return tellOf(error, app, words) == 0 ? ExitStatus::kDone : ExitStatus::kWrongUsage;
  }
}

}  // namespace quorbind
