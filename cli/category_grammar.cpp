// categories list|add|rename|file|rebuild|create: the categories of a library.

#include "cli/category_commands.h"
#include "cli/grammar.h"

namespace quorbind {

namespace {

void offerCategoryList(CLI::App& group, Task& task) {
  auto [command, arguments] = offer(group,
                                    task,
                                    "list",
                                    "List the categories with the acronyms of their books",
                                    runListCategories);
  addPlace(command, arguments.place);
  addJson(command, arguments.json);
}

void offerCategoryAdd(CLI::App& group, Task& task) {
  auto [command, arguments] = offer(group,
                                    task,
                                    "add",
                                    "Add a category, in front of the one for all other books",
                                    runAddCategory);
  addWord(command, "NAME", arguments.name, "Name of the new category");
  addPlace(command, arguments.place);
  addChange(command, arguments.change);
}

void offerCategoryRename(CLI::App& group, Task& task) {
  auto [command, arguments] =
      offer(group, task, "rename", "Rename a category, which keeps its books", runRenameCategory);
  addWord(command, "OLD", arguments.oldName, "Its name");
  addWord(command, "NEW", arguments.newName, "Its new name");
  addPlace(command, arguments.place);
  addInstallType(command, arguments.installType);
  addChange(command, arguments.change);
  command.footer(
      "The server's default categories for the installation type keep their names. The\n"
      "catalogue is not changed: books go on naming the old category there.");
}

void offerCategoryFile(CLI::App& group, Task& task) {
  auto [command, arguments] =
      offer(group,
            task,
            "file",
            "File a book under categories; those that are not there are made",
            runFileBook);
  addWord(command, "ACRO", arguments.acronym, "Acronym of the book");
  command.add_option("NAME", arguments.categories, "Names of the categories")
      ->required()
      ->check(refusalOfBlankText)
      ->option_text("...");
  addPlace(command, arguments.place);
  addChange(command, arguments.change);
}

void offerCategoryRebuild(CLI::App& group, Task& task) {
  auto [command, arguments] = offer(group,
                                    task,
                                    "rebuild",
                                    "File every book under the categories that the catalogue names",
                                    runRebuildCategories);
  addPlace(command, arguments.place);
  addChange(command, arguments.change);
  command.footer(
      "Only categories that are there take books; books without one go to 'Other Category'.\n"
      "Nothing is taken out.");
}

void offerCategoryCreate(CLI::App& group, Task& task) {
  auto [command, arguments] = offer(group,
                                    task,
                                    "create",
                                    "Make the categories file from the server's default categories",
                                    runCreateCategories);
  addPlace(command, arguments.place);
  addInstallType(command, arguments.installType);
  command.add_flag(
      "--replace", arguments.replace, "Also where there are categories, which are lost");
  addChange(command, arguments.change);
}

}  // namespace

void offerCategorySubcommands(CLI::App& app, Task& task) {
  CLI::App& group = offerGroup(app, "categories", "The categories of a library");
  offerCategoryList(group, task);
  offerCategoryAdd(group, task);
  offerCategoryRename(group, task);
  offerCategoryFile(group, task);
  offerCategoryRebuild(group, task);
  offerCategoryCreate(group, task);
}

}  // namespace quorbind
