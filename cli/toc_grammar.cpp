// add, prepare and check: what is done with a table of contents.

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

void addKind(CLI::App& command, std::optional<std::string>& kind) {
  command
      .add_option("--kind",
                  kind,
                  "Kind of the table of contents: xml, html, excel or text; as its extension tells "
                  "when not given")
      ->check(CLI::IsMember({"xml", "html", "excel", "text"}))
      ->option_text("KIND");
}

void addAnswers(CLI::App& command, AddArguments& arguments) {
  command.add_option("--name", arguments.name, "Name of the book")->option_text("TEXT");
  command.add_option("--acro", arguments.acronym, "Acronym of the book, part of its file's name")
      ->option_text("TEXT");
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
  auto [command, arguments] = offer(app, task, "add", "Add a book to a library", runAdd);
  addToc(command, arguments.toc);
  addPlace(command, arguments.place);
  addKind(command, arguments.kind);
  addAnswers(command, arguments);
  addRecords(command, arguments);
  addJson(command, arguments.json);
  command.footer(
      "What is needed and not given is asked on the terminal. Without one the run ends with\n"
      "status 6 and names the flag. A value that is refused, or that the catalogue has already,\n"
      "ends it with status 1.");
}

void offerPrepare(CLI::App& app, Task& task) {
  auto [command, arguments] =
      offer(app,
            task,
            "prepare",
            "Write a text table of contents in the form that can be checked and converted",
            runPrepare);
  addToc(command, arguments.toc);
  command
      .add_option("-o,--output", arguments.output, "File to write; the standard output without it")
      ->check(refusalOfEmptyText)
      ->option_text("OUT");
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
