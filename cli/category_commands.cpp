#include "cli/category_commands.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "catalogue/book_config.h"
#include "cli/catalogue_reader.h"
#include "cli/component_call.h"
#include "cli/failure.h"
#include "cli/json_text.h"
#include "cli/listing.h"
#include "cli/required_document.h"
#include "cli/side_file_reader.h"
#include "cli/side_file_rules.h"
#include "cli/text_list.h"
#include "cli/text_table.h"
#include "platform/file_system.h"
#include "sidefiles/category_filing.h"
#include "sidefiles/names.h"

namespace quorbind {

namespace {

using Categories = std::vector<ListedCategory>;

void printCategories(const Categories& categories) {
  std::vector<TableRow> rows{{"CATEGORY", "BOOKS"}};
  for (const ListedCategory& category : categories) {
    rows.push_back({category.name, joined(category.acronyms, ", ")});
  }
  printTable(rows);
}

void printCategoriesAsJson(const Categories& categories) {
  Json list = Json::array();
  for (const ListedCategory& category : categories) {
    list.push_back({{"name", category.name}, {"books", category.acronyms}});
  }
  printJson({{"categories", list}});
}

const ListedCategory* find(const Categories& categories, const std::string& name) {
  const auto found =
      std::find_if(categories.begin(), categories.end(), [&](const ListedCategory& category) {
        return category.name == name;
      });
  return found == categories.end() ? nullptr : &*found;
}

bool has(const Categories& categories, const std::string& name) {
  return find(categories, name) != nullptr;
}

bool isFiled(const Categories& categories, const std::string& name, const std::string& acronym) {
  const ListedCategory* category = find(categories, name);
  return category != nullptr &&
         std::count(category->acronyms.begin(), category->acronyms.end(), acronym) > 0;
}

/// The categories of the library, whose file can be written.
Categories requireCategories(LibraryChange& change) {
  Categories categories = readCategories(change.platform(), change.paths().bookCategories);
  requireWritable(change.platform().files, change.paths().bookCategories);
  return categories;
}

void requireNewName(const Categories& categories,
                    const std::string& name,
                    const std::string& library) {
  if (has(categories, name)) {
    throw brokenRule(RuleText::kCategoryTaken, {{"CATEGORY", name}, {"LIBRARY", library}});
  }
}

void requireInFile(const LibraryChange& change, const std::string& name) {
  if (!has(readCategories(change.platform(), change.paths().bookCategories), name)) {
    throw CommandFailure(ExitStatus::kInternal, "the category is not in the file");
  }
}

std::string addCategory(LibraryChange& change, const std::string& name) {
  requireCategoryNames({name});
  requireNewName(requireCategories(change), name, change.library());
  callComponent(change.wiring(), [&] {
    Book_Config(change.module()).AddBookCateToXMLFile(change.paths().bookCategories, name);
  });
  requireInFile(change, name);
  return std::string(change.said("Added", "Would add")) + " the category " + name + " to " +
         change.library() + ".";
}

/// The default categories are the server's, and the one for all other books is looked for by name.
void requireOwnCategory(LibraryChange& change, const std::string& name, std::int32_t installType) {
  bool isDefault = name == category_names::kOther;
  callComponent(change.wiring(), [&] {
    isDefault = Book_Config(change.module())
                    .bCheckIfDefaultCategory(change.paths().defaultCategories, name, installType) ||
                isDefault;
  });
  if (isDefault) {
    throw brokenRule(RuleText::kCategoryIsDefault, {{"CATEGORY", name}});
  }
}

std::string renameCategory(LibraryChange& change, const RenameCategoryArguments& arguments) {
  const Categories categories = requireCategories(change);
  if (!has(categories, arguments.oldName)) {
    throw brokenRule(RuleText::kNoSuchCategory,
                     {{"CATEGORY", arguments.oldName}, {"LIBRARY", change.library()}});
  }
  requireCategoryNames({arguments.oldName, arguments.newName});
  requireNewName(categories, arguments.newName, change.library());
  requireOwnCategory(change, arguments.oldName, arguments.installType);
  callComponent(change.wiring(), [&] {
    Book_Config(change.module())
        .EditBookCateToXMLFile(change.paths().bookCategories, arguments.newName, arguments.oldName);
  });
  requireInFile(change, arguments.newName);
  return std::string(change.said("Renamed", "Would rename")) + " the category " +
         arguments.oldName + " to " + arguments.newName + " in " + change.library() + ".";
}

std::string fileBook(LibraryChange& change, const FileBookArguments& arguments) {
  const auto books = readCatalogue(change.platform(), change.paths().catalogue);
  const ListedBook& book = requireBookWithAcronym(books, arguments.acronym, change.library());
  requireCategories(change);
  requireCategoryNames(arguments.categories);
  callComponent(change.wiring(), [&] {
    ProcessState& state = change.module().state;
    state.currentCategoriesPath = change.paths().bookCategories;
    state.currentBookAcro = book.acronym;
    AddCategoryNodes(change.platform(), state, arguments.categories);
  });
  const Categories after = readCategories(change.platform(), change.paths().bookCategories);
  for (const std::string& category : arguments.categories) {
    if (!isFiled(after, category, book.acronym)) {
      throw CommandFailure(ExitStatus::kInternal, "the book is not filed under " + category);
    }
  }
  return std::string(change.said("Filed ", "Would file ")) + titleOf(book) + " under " +
         joined(arguments.categories, ", ") + " in " + change.library() + ".";
}

std::string rebuildCategories(LibraryChange& change) {
  const auto books = readCatalogue(change.platform(), change.paths().catalogue);
  requireCategories(change);
  callComponent(change.wiring(), [&] {
    Book_Config(change.module())
        .GetBookAcroInfo(change.paths().bookCategories, change.paths().catalogue);
  });
  return std::string(change.said("Filed", "Would file")) + " the books of " + change.library() +
         " (" + std::to_string(books.size()) + ") as the catalogue says.";
}

/// Making the file replaces the one that is there.
void requireReplaceable(LibraryChange& change, bool mayBeLost) {
  const std::string& path = change.paths().bookCategories;
  if (mayBeLost || !change.platform().files.fileExists(path)) {
    return;
  }
  requireCategories(change);
  if (!Book_Config(change.module()).bCheckCategoryinQuorBookCategories(path)) {
    throw brokenRule(RuleText::kCategoriesWouldBeLost, {{"LIBRARY", change.library()}});
  }
}

std::string createCategories(LibraryChange& change, const CreateCategoriesArguments& arguments) {
  const LibraryPaths& paths = change.paths();
  // Where there is no catalogue, there is no library.
  requireCatalogue(change.platform(), paths.catalogue);
  requireReplaceable(change, arguments.replace);
  requireDefaultCategories(change.platform(), paths);
  requireWritable(change.platform().files, paths.bookCategories);
  callComponent(change.wiring(), [&] {
    Book_Config(change.module())
        .CreateBookCateXmlFile(paths.docsFolder, paths.bookCategories, arguments.installType);
  });
  const Categories categories = readCategories(change.platform(), paths.bookCategories);
  return std::string(change.said("Made", "Would make")) + " the categories of " + change.library() +
         ": " + counted(categories.size(), "category", "categories") + ".";
}

}  // namespace

ExitStatus runListCategories(const ListCategoriesArguments& arguments) {
  const LibraryPaths library(arguments.place.server, arguments.place.library);
  Wiring wiring(library.serverRoot, processTerminal(/*mayAsk=*/false));
  return runListing(wiring, arguments.json, [&] {
    const Categories categories = readCategories(wiring.module.platform, library.bookCategories);
    if (arguments.json) {
      printCategoriesAsJson(categories);
    } else {
      printCategories(categories);
    }
  });
}

ExitStatus runAddCategory(const AddCategoryArguments& arguments) {
  LibraryChange change(arguments.place, arguments.change);
  return change.run([&] { return addCategory(change, arguments.name); });
}

ExitStatus runRenameCategory(const RenameCategoryArguments& arguments) {
  LibraryChange change(arguments.place, arguments.change);
  return change.run([&] { return renameCategory(change, arguments); });
}

ExitStatus runFileBook(const FileBookArguments& arguments) {
  LibraryChange change(arguments.place, arguments.change);
  return change.run([&] { return fileBook(change, arguments); });
}

ExitStatus runRebuildCategories(const RebuildCategoriesArguments& arguments) {
  LibraryChange change(arguments.place, arguments.change);
  return change.run([&] { return rebuildCategories(change); });
}

ExitStatus runCreateCategories(const CreateCategoriesArguments& arguments) {
  LibraryChange change(arguments.place, arguments.change);
  return change.run([&] { return createCategories(change, arguments); });
}

}  // namespace quorbind
