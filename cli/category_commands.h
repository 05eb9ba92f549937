#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "cli/arguments.h"
#include "cli/exit_status.h"
#include "cli/library_change.h"

namespace quorbind {

struct ListCategoriesArguments {
  LibraryArguments place;
  bool json = false;
};

struct AddCategoryArguments {
  LibraryArguments place;
  ChangeFlags change;
  std::string name;
};

struct RenameCategoryArguments {
  LibraryArguments place;
  ChangeFlags change;
  std::string oldName;
  std::string newName;
  std::int32_t installType = 0;
};

struct FileBookArguments {
  LibraryArguments place;
  ChangeFlags change;
  /// As it is typed.
  std::string acronym;
  std::vector<std::string> categories;
};

struct RebuildCategoriesArguments {
  LibraryArguments place;
  ChangeFlags change;
};

struct CreateCategoriesArguments {
  LibraryArguments place;
  ChangeFlags change;
  std::int32_t installType = 0;
  /// Whether categories that are there may be lost.
  bool replace = false;
};

/// Prints a library's categories with the books filed under each.
ExitStatus runListCategories(const ListCategoriesArguments& arguments);
ExitStatus runAddCategory(const AddCategoryArguments& arguments);
ExitStatus runRenameCategory(const RenameCategoryArguments& arguments);
/// Files a book under categories.
ExitStatus runFileBook(const FileBookArguments& arguments);
/// Files every book under the categories that the catalogue names.
ExitStatus runRebuildCategories(const RebuildCategoriesArguments& arguments);
/// Makes the categories file from the server's defaults.
ExitStatus runCreateCategories(const CreateCategoriesArguments& arguments);

}  // namespace quorbind
