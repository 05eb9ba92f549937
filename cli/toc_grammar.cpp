// add, prepare and check: what is done with a table of contents.

#include <cstdlib>

#include "cli/add_command.h"
#include "cli/check_command.h"
#include "cli/grammar.h"
#include "cli/prepare_command.h"

namespace quorbind {

namespace {

void addToc(CLI::App& command, std::string& toc) {
  command.add_option("TOC", toc, "The table of contents")
      ->required()
      ->check(refusalOfEmptyText)
      ->option_text("FILE");
}

void addTocs(CLI::App& command, AddRequest& request) {
  CLI::Option* tocs = command.add_option("TOC", request.tocs, "The tables of contents")
                          ->check(refusalOfEmptyText)
                          ->option_text("FILE...");
  command
      .add_option("--job",
                  request.job,
                  "File that names the tables of contents, each with flags of its own")
      ->check(refusalOfEmptyText)
      ->excludes(tocs)
      ->option_text("FILE");
  command.add_flag("--stop-at-first",
                   request.stopsAtFirst,
                   "Of several tables of contents, try none behind the first that fails");
}

/// Before a job file counts what the command line says, behind it what the environment does.
void noteGivenFlags(const CLI::App& command, AddRequest& request) {
  for (const CLI::Option* option : command.get_options()) {
    if (option->count() > 0) {
      const std::vector<std::string>& names = option->get_lnames();
      request.given.insert(names.begin(), names.end());
    }
  }
  const char* server = std::getenv(kServerVariable);
  if (request.place.server.empty() && server != nullptr) {
    request.place.server = server;
  }
}

void requireUse(const AddRequest& request) {
  if (!request.job && request.tocs.empty()) {
    throw CLI::RequiredError("TOC or --job");
  }
  if (!request.job && request.place.server.empty()) {
    throw CLI::RequiredError("--server");
  }
  if (!request.job && request.place.library.empty()) {
    throw CLI::RequiredError("--library");
  }
  if ((request.job || request.tocs.size() > 1) && isNamed(request)) {
    throw CLI::ValidationError(
        "--name and --acro are for a single table of contents; a job file names each book");
  }
}

void addKind(CLI::App& command, std::optional<std::string>& kind) {
  command
      .add_option("--kind",
                  kind,
                  "Kind of the table of contents: xml, html, excel or text; as its extension tells "
                  "when not given")
      ->check(CLI::IsMember({"xml", "html", "excel", "text"}))
      ->option_text("KIND");
}

/// A flag that may be repeated, each time with one value.
void addValues(CLI::App& command,
               const std::string& name,
               std::vector<std::string>& values,
               const std::string& description) {
  command.add_option(name, values, description)->allow_extra_args(false)->option_text("TEXT");
}

void addAnswers(CLI::App& command, AddArguments& arguments) {
  addValues(command,
            "--name",
            arguments.names,
            "Name of the book; once for each book of a workbook without an acronym");
  addValues(command,
            "--acro",
            arguments.acronyms,
            "Acronym of the book, part of its file's name; as often as --name");
  command
      .add_option("--folder",
                  arguments.folder,
                  "Folder of the book, where the table of contents names none")
      ->option_text("TEXT");
  addNoInput(command, arguments.noInput);
}

void addRecords(CLI::App& command, AddArguments& arguments) {
  command
      .add_option("--category",
                  arguments.category,
                  "Categories for the book's entry in the catalogue, separated by ';' or ','")
      ->option_text("LIST");
  command
      .add_option("--keywords", arguments.keywords, "Search keywords of the book, separated by ';'")
      ->option_text("LIST");
  command
      .add_option("--categories",
                  arguments.categories,
                  "Categories of the library to file the book under, separated by ';' or ','")
      ->option_text("LIST");
  addInstallType(command, arguments.installType);
  command.add_flag("--create-categories",
                   arguments.createCategories,
                   "Make a missing categories file of the library from the server's default "
                   "categories first");
}

void offerAdd(CLI::App& app, Task& task) {
  auto [command, arguments] = offer(app, task, "add", "Add books to a library", runAdd);
  addTocs(command, arguments);
  addPlace(command, arguments.place);
  // What a job file can say is missing only where there is none.
  for (const char* flag : {"--server", "--library"}) {
    command.get_option(flag)->required(false)->envname("");
  }
  addKind(command, arguments.kind);
  addAnswers(command, arguments);
  addRecords(command, arguments);
  addJson(command, arguments.json);
  command.footer(
      "What is needed and not given is asked on the terminal. Without one the run ends with\n"
      "status 6 and names the flag. A value that is refused, or that the catalogue has already,\n"
      "ends it with status 1.");
  command.parse_complete_callback([&given = command, &request = arguments] {
    noteGivenFlags(given, request);
    requireUse(request);
  });
}

void offerPrepare(CLI::App& app, Task& task) {
  auto [command, arguments] =
      offer(app,
            task,
            "prepare",
            "Write a text table of contents in the form that can be checked and converted",
            runPrepare);
  addToc(command, arguments.toc);
  CLI::Option* output =
      command
          .add_option(
              "-o,--output", arguments.output, "File to write; the standard output without it")
          ->check(refusalOfEmptyText)
          ->option_text("OUT");
  addJson(command, arguments.json);
  // The standard output can't hold both.
  command.get_option("--json")->needs(output);
  command.footer("'add' does this by itself. The text is written as UTF-8.");
}

void offerCheck(CLI::App& app, Task& task) {
  auto [command, arguments] =
      offer(app,
            task,
            "check",
            "Hold a table of contents against the rules, and look for its documents",
            runCheck);
  addToc(command, arguments.toc);
  addKind(command, arguments.kind);
  addJson(command, arguments.json);
  command.footer("Nothing is written. A document that is not there breaks no rule.");
}

}  // namespace

void offerTocSubcommands(CLI::App& app, Task& task) {
  offerAdd(app, task);
  offerPrepare(app, task);
  offerCheck(app, task);
}

}  // namespace quorbind
