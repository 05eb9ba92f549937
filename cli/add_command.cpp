#include "cli/add_command.h"

#include "cli/addition.h"

namespace quorbind {

ExitStatus runAdd(const AddArguments& arguments) {
  const LibraryPaths library(arguments.place.server, arguments.place.library);
  Wiring wiring(
      library.serverRoot, processTerminal(!arguments.noInput), Addition::answersOf(arguments));
  const AdditionReport report = Addition(arguments, library, wiring).run();
  printAddition(report, wiring.ui.shown(), arguments.json);
  return report.status;
}

}  // namespace quorbind
