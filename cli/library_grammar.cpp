// init, libraries, where and view: the libraries of a server.

#include "cli/grammar.h"
#include "cli/init_command.h"
#include "cli/library_commands.h"
#include "cli/view_command.h"

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
  addJson(command, arguments.json);
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

void offerView(CLI::App& app, Task& task) {
  auto [command, arguments] =
      offer(app, task, "view", "Write an HTML page to look at a library with a browser", runView);
  addPlace(command, arguments.place);
  command.get_option("--library")
      ->required(false)
      ->description("Name of the library; all libraries of the server without it");
  CLI::Option& output =
      *command
           .add_option("-o,--output",
                       arguments.output,
                       "File to write, library.html when not given; '-' is the standard output")
           ->check(refusalOfEmptyText)
           ->option_text("FILE");
  addJson(command, arguments.json);
  command.parse_complete_callback([&given = arguments, &output] {
    if (given.json && given.output == kStandardOutput) {
      throw CLI::ExcludesError("--json", output.get_name() + " " + std::string(kStandardOutput));
    }
  });
  command.footer(
      "The page needs nothing but the library, and works from a file share. What can't be read,\n"
      "documents that are missing and link identifiers that lead nowhere are told in it. A file\n"
      "that 'view' has not made itself is not replaced.");
}

}  // namespace

void offerLibrarySubcommands(CLI::App& app, Task& task) {
  offerInit(app, task);
  offerLibraries(app, task);
  offerWhere(app, task);
  offerView(app, task);
}

}  // namespace quorbind
