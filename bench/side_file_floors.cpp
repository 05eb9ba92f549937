// The floors under what a host does with the files beside a library's catalogue.

#include <array>
#include <string>
#include <vector>

#include "bench/benchmarks.h"
#include "bench/floor.h"
#include "bench/store.h"
#include "catalogue/names.h"

namespace quorbind::bench {

namespace {

bool saveKeywords(SideFiles& files) {
  // One book.
  return counted(floorLoadAndSave(files.systemPath(kKeywordsFile).c_str()), 1);
}

bool saveLinks(SideFiles& files) {
  return counted(floorLoadAndSave(files.systemPath(kLinksFile).c_str()), files.entries);
}

bool saveBookCategories(SideFiles& files) {
  return counted(floorLoadAndSave(files.systemPath(kCategoriesFile).c_str()), files.entries + 1);
}

bool saveCategories(Categories& categories) {
  // With the one for books without any.
  return counted(floorLoadAndSave(categories.systemPath(kCategoriesFile).c_str()),
                 kCategoryCount + 1);
}

bool saveDefaults(SideFiles& files) {
  return floorLoadAndSaveAs(files.systemPath(kDefaultsFile).c_str(),
                            files.systemPath(kCategoriesFile).c_str()) >= 0;
}

bool findDefault(SideFiles& files) {
  const std::string query = "Default_Categories/Quor_Developer[CategoryName='" +
                            nameOfCategory(files.entries - 1) + "']/CategoryName[1]";
  return counted(floorQuery(files.systemPath(kDefaultsFile).c_str(), query.c_str()), 1);
}

bool loadCategories(Categories& categories) {
  return counted(floorLoad(categories.systemPath(kCategoriesFile).c_str()), kCategoryCount + 1);
}

bool findBooks(Categories& categories) {
  const std::string query = std::string(catalogue_names::kBookPath) +
                            "[Book_Categories/Book_Category='" +
                            nameOfCategory(kCategoryCount - 1) + "']/Book_Acro";
  return counted(floorQuery(categories.systemPath(kLibraryCatalogueFile).c_str(), query.c_str()),
                 categories.books);
}

bool sort(Categories& categories) {
  std::vector<const char*> acronyms;
  for (const std::string& acronym : categories.acronyms().texts) {
    acronyms.push_back(acronym.c_str());
  }
  return counted(floorSort(acronyms.data(), acronyms.size()), acronyms.size());
}

bool loadCatalogue(Categories& categories) {
  return counted(floorLoad(categories.systemPath(kLibraryCatalogueFile).c_str()), categories.books);
}

using FileFloor = Operation<SideFiles>;
constexpr std::array kFileFloors{
    FileFloor{"floor/keywords", saveKeywords},
    FileFloor{"floor/links", saveLinks},
    FileFloor{"floor/book-categories", saveBookCategories},
    FileFloor{"floor/defaults/save", saveDefaults},
    FileFloor{"floor/defaults/query", findDefault},
};

using CategoryFloor = Operation<Categories>;
constexpr std::array kCategoryFloors{
    CategoryFloor{"floor/categories", saveCategories},
    CategoryFloor{"floor/categories/load", loadCategories},
    CategoryFloor{"floor/categories/query", findBooks},
    CategoryFloor{"floor/categories/catalogue", loadCatalogue},
    CategoryFloor{"floor/sort", sort},
};

}  // namespace

void registerSideFileFloors(const Store& store) {
  registerOperations(store.sideFiles, kFileFloors, kSizes);
  registerOperations(store.categories, kCategoryFloors, kSizes);
}

}  // namespace quorbind::bench
