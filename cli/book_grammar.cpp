// books, show, rename, delete, set, install and merge: the books of a library.

#include "cli/books_command.h"
#include "cli/delete_command.h"
#include "cli/grammar.h"
#include "cli/install_command.h"
#include "cli/merge_command.h"
#include "cli/rename_command.h"
#include "cli/set_command.h"
#include "cli/show_command.h"

namespace quorbind {

namespace {

void addBookName(CLI::App& command, std::string& name) {
  addWord(command, "NAME", name, "Name of the book, as 'books' shows it");
}

void addNaming(CLI::App& command, BookNaming& naming, const std::string& which) {
  command.add_option("--name", naming.name, which + "ame of the book")->option_text("TEXT");
  command.add_option("--acro", naming.acronym, "Its acronym, part of file names")
      ->option_text("TEXT");
}

void offerBooks(CLI::App& app, Task& task) {
  auto [command, arguments] =
      offer(app, task, "books", "List the books of a library, or those of a workbook", runBooks);
  addPlace(command, arguments.place);
  CLI::Option& server =
      *command.get_option("--server")
           ->required(false)
           ->description(
               "Folder of the documentation server; required unless --in is given, or the "
               "environment names it as QUOR_SERVER");
  CLI::Option& library =
      *command.get_option("--library")
           ->required(false)
           ->description("Name of the library on the server; required unless --in is given");
  CLI::Option& workbook =
      *command.add_option("--in", arguments.workbook, "The workbook to list, instead of a library")
           ->check(refusalOfEmptyText)
           ->excludes(&library)
           ->option_text("FILE");
  addJson(command, arguments.json);
  command.parse_complete_callback([&server, &library, &workbook] {
    for (const CLI::Option* option : {&server, &library}) {
      if (workbook.empty() && option->empty()) {
        throw CLI::RequiredError(option->get_name());
      }
    }
  });
}

void offerShow(CLI::App& app, Task& task) {
  auto [command, arguments] =
      offer(app, task, "show", "Show the books of a library, or the headings of one book", runShow);
  addPlace(command, arguments.place);
  command.add_option("ACRO", arguments.acronym, "Acronym of the book")->option_text("TEXT");
  addJson(command, arguments.json);
}

void offerRename(CLI::App& app, Task& task) {
  auto [command, arguments] =
      offer(app, task, "rename", "Give a book another name and acronym", runRename);
  addBookName(command, arguments.name);
  addPlace(command, arguments.place);
  addNaming(command, arguments.naming, "New n");
  addConfirmation(command, arguments.change);
  addChange(command, arguments.change);
  command.footer(
      "The catalogue, the book file and its name are changed. Keywords, categories and link\n"
      "identifiers go on under the old name and acronym. What is not given of the two is asked\n"
      "on the terminal, and so is whether to go on; without a terminal the run ends with status\n"
      "6 and names the flag.");
}

void offerDelete(CLI::App& app, Task& task) {
  auto [command, arguments] =
      offer(app, task, "delete", "Take a book out of the catalogue; its files stay", runDelete);
  addBookName(command, arguments.name);
  addPlace(command, arguments.place);
  addConfirmation(command, arguments.change);
  addChange(command, arguments.change);
  command.footer(
      "Whether to go on is asked on the terminal; without one the run ends with status 6 unless\n"
      "--yes is given. Keywords, categories and link identifiers of the book stay.");
}

void offerSet(CLI::App& app, Task& task) {
  auto [command, arguments] = offer(
      app, task, "set", "Give a book another folder, other categories or another link", runSet);
  addBookName(command, arguments.name);
  addPlace(command, arguments.place);
  command.add_option("--folder", arguments.folder, "Folder of the library to copy the book to")
      ->option_text("TEXT");
  command
      .add_option("--categories",
                  arguments.categories,
                  "All categories of the book's entry, separated by ';' or ','; none when empty")
      ->option_text("LIST");
  command.add_option("--link", arguments.link, "Link of the book, in its book file")
      ->option_text("TEXT");
  addChange(command, arguments.change);
  command.parse_complete_callback([&given = arguments] {
    if (!given.folder && !given.categories && !given.link) {
      throw CLI::ValidationError("set", "give --folder, --categories or --link");
    }
  });
  command.footer(
      "At least one of the three is given. The book keeps the folder and the link that are not\n"
      "given; without --categories its book file gets those of its entry. With --folder the book\n"
      "file and its documents are copied and the copy is changed; the catalogue goes on naming "
      "the\n"
      "old folder, and the old files stay.");
}

void addInstallRecords(CLI::App& command, InstallArguments& arguments) {
  command.add_option("--keywords", arguments.keywords, "Search keywords, separated by ';' or ','")
      ->option_text("LIST");
  command
      .add_option("--categories",
                  arguments.categories,
                  "Categories, for the entry and to file the book under; separated by ';' or ','")
      ->option_text("LIST");
  addInstallType(command, arguments.installType);
  command.add_flag("--create-categories",
                   arguments.createCategories,
                   "Make a missing categories file of the library from the server's default "
                   "categories first");
}

void offerInstall(CLI::App& app, Task& task) {
  auto [command, arguments] =
      offer(app, task, "install", "Install a single document as a book", runInstall);
  command.add_option("FILE", arguments.file, "The document")
      ->required()
      ->check(refusalOfEmptyText)
      ->option_text(" ");
  addPlace(command, arguments.place);
  command.add_option("--file-name", arguments.fileName, "Its name in the library; its own without")
      ->option_text("TEXT");
  command.add_option("--type", arguments.type, "What kind of document it is; required")
      ->required()
      ->check(refusalOfBlankText)
      ->option_text("TEXT");
  addNaming(command, arguments.naming, "N");
  addInstallRecords(command, arguments);
  addNoInput(command, arguments.change.noInput);
  addChange(command, arguments.change);
  command.footer(
      "The document gets a folder of its own in the library, named by the acronym. What is not\n"
      "given of name and acronym, and what the catalogue has already, is asked on the terminal;\n"
      "without one the run ends with status 6, or 1, and names the flag.");
}

void offerMerge(CLI::App& app, Task& task) {
  auto [command, arguments] =
      offer(app,
            task,
            "merge",
            "Take links and categories of books over from another catalogue",
            runMerge);
  addPlace(command, arguments.place);
  command.add_option("--from", arguments.from, "The other catalogue; required")
      ->required()
      ->check(refusalOfEmptyText)
      ->option_text("FILE");
  addChange(command, arguments.change);
  command.footer("Books are the same when both their name and their acronym are.");
}

}  // namespace

void offerBookSubcommands(CLI::App& app, Task& task) {
  offerBooks(app, task);
  offerShow(app, task);
  offerRename(app, task);
  offerDelete(app, task);
  offerSet(app, task);
  offerInstall(app, task);
  offerMerge(app, task);
}

}  // namespace quorbind
