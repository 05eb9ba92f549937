// init, libraries and where: the libraries of a server.

#include "cli/grammar.h"
#include "cli/init_command.h"
#include "cli/library_commands.h"

namespace quorbind {

namespace {

void offerInit(CLI::App& app, Task& task) {
  auto [command, arguments] =
      offer(app,
            task,
            "init",
            "Make a library: its folder, its catalogue, its entry in the server's list",
            runInit);
  addPlace(command, arguments.place);
  command.footer("What is there already stays as it is. Nothing is done twice.");
}

void offerLibraries(CLI::App& app, Task& task) {
  auto [command, arguments] =
      offer(app, task, "libraries", "List the libraries of a server", runLibraries);
  addServer(command, arguments.server);
  addJson(command, arguments.json);
}

void offerWhere(CLI::App& app, Task& task) {
  auto [command, arguments] =
      offer(app, task, "where", "Tell where the catalogue of a library lies", runWhere);
  addWord(command, "LIBRARY", arguments.library, "Name of the library, in its own letter case");
  addServer(command, arguments.server);
  addJson(command, arguments.json);
  command.footer("The place is the one in the server's list; whether it exists is not looked at.");
}

}  // namespace

void offerLibrarySubcommands(CLI::App& app, Task& task) {
  offerInit(app, task);
  offerLibraries(app, task);
  offerWhere(app, task);
}

}  // namespace quorbind
