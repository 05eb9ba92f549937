// doctor: what is wrong with the libraries of a server, and how to mend it.

#include "cli/doctor/doctor_command.h"
#include "cli/grammar.h"

namespace quorbind {

void offerDoctor(CLI::App& app, Task& task) {
  auto [command, arguments] =
      offer(app,
            task,
            "doctor",
            "Examine the libraries of a server, and tell what is wrong and how to mend it",
            runDoctor);
  addServer(command, arguments.server);
  addOptionalLibrary(command, arguments.library);
  addJson(command, arguments.json);
  command.footer(
      "Nothing is written. With an error the run ends with status 1, with warnings not.");
}

}  // namespace quorbind
