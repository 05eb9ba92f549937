#include "cli/command_line.h"

#include "cli/grammar.h"

namespace quorbind {

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
    return app.exit(error) == 0 ? ExitStatus::kDone : ExitStatus::kWrongUsage;
  }
}

}  // namespace quorbind
