// What a host does with the files beside a library's catalogue: keywords, link identifiers and
// categories.

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "bench/benchmarks.h"
#include "bench/store.h"
#include "bookxml/c_sort.h"
#include "sidefiles/keyword_file.h"
#include "sidefiles/keyword_list.h"
#include "sidefiles/link_file.h"
#include "sidefiles/link_identifiers.h"
#include "sidefiles/names.h"

namespace quorbind::bench {

namespace {

constexpr const char* kNew = "new";

bool addAllKeywords(SideFiles& files) {
  AddKeywords(files.platform(), files.world.state(), files.words(), kKeywordsPath);
  return files.isQuiet();
}

bool addKeyword(SideFiles& files) {
  AddKeywordsToXmlFile(files.platform(), kKeywordsPath, nameOfBook(0), kNew);
  return files.isQuiet();
}

bool renameKeyword(SideFiles& files) {
  const std::string last = keywordOf(files.entries - 1);
  EditKeywordsToXmlFile(files.platform(), kKeywordsPath, nameOfBook(0), kNew, last);
  return files.isQuiet();
}

bool addAllLinks(SideFiles& files) {
  GenerateBookLinkID(files.platform(), files.world.state(), acronymOfBook(0), kExport);
  return files.isQuiet();
}

bool addLink(SideFiles& files) {
  AddToLinkIDFile(
      files.platform(), kLinksPath, kNew, "B0@QUOR@New", "new.htm", kLibrary, acronymOfBook(0));
  return files.isQuiet();
}

bool rebuild(Categories& categories) {
  categories.config.GetBookAcroInfo(kCategoriesPath, kLibraryCatalogue);
  return categories.isQuiet();
}

bool readCategory(Categories& categories) {
  const std::string last = nameOfCategory(kCategoryCount - 1);
  return categories.config.GetBookAcroValue(last, kLibraryCatalogue).texts.size() ==
         categories.books + 1;
}

bool addCategory(Categories& categories) {
  categories.config.AddBookCateToXMLFile(kCategoriesPath, kNew);
  return categories.isQuiet();
}

bool renameCategory(Categories& categories) {
  categories.config.EditBookCateToXMLFile(
      kCategoriesPath, kNew, nameOfCategory(kCategoryCount - 1));
  return categories.isQuiet();
}

bool fileNewBook(Categories& categories) {
  categories.book.AddCategoryNode(nameOfCategory(kCategoryCount - 1), kNew, kCategoriesPath);
  return categories.isQuiet();
}

bool fileOtherBooks(Categories& categories) {
  categories.config.Addothercategory(
      std::string(category_names::kOther), categories.acronyms(), kCategoriesPath);
  return categories.isQuiet();
}

bool seeWhetherEmpty(Categories& categories) {
  return !categories.config.bCheckCategoryinQuorBookCategories(kCategoriesPath) &&
         categories.isQuiet();
}

bool createCategories(SideFiles& files) {
  files.config.CreateBookCateXmlFile(kServerFolder, kCategoriesPath, /*vlngInstallType=*/0);
  return files.isQuiet();
}

bool findDefault(SideFiles& files) {
  return files.config.bCheckIfDefaultCategory(
             kDefaultsPath, nameOfCategory(files.entries - 1), /*vlngInstallType=*/0) &&
         files.isQuiet();
}

bool sortWithAcronyms(Categories& categories) {
  TextArray names = categories.acronyms();
  TextArray acronyms = categories.acronyms();
  return categories.config.SortArray(names, acronyms).texts == names.texts;
}

bool sortNames(Categories& categories) {
  std::vector<std::string> names = categories.acronyms().texts;
  cSort sort(categories.world.platform());
  const auto last = static_cast<std::int32_t>(names.size()) - 1;
  return sort.mQuickSort(names, 1, last) == names && categories.isQuiet();
}

bool fileBook(Categories& categories) {
  categories.config.AddBookAcro(
      nameOfCategory(kCategoryCount - 1), {{"", kNew}, 0}, kCategoriesPath);
  return categories.isQuiet();
}

using FileOperation = Operation<SideFiles>;
constexpr auto emptyFiles = [](SideFiles& files) { files.empty(); };
constexpr std::array kFileOperations{
    FileOperation{"component/keywords/AddKeywords",
                  addAllKeywords,
                  emptyFiles,
                  [](const SideFiles& files) { return files.hasAllKeywords(); }},
    FileOperation{"component/keywords/AddKeywordsToXmlFile", addKeyword},
    FileOperation{"component/keywords/EditKeywordsToXmlFile", renameKeyword},
    FileOperation{"component/links/GenerateBookLinkID",
                  addAllLinks,
                  emptyFiles,
                  [](const SideFiles& files) { return files.hasAllLinks(); }},
    FileOperation{"component/links/AddToLinkIDFile", addLink},
    FileOperation{"component/defaults/CreateBookCateXmlFile", createCategories},
    FileOperation{"component/defaults/bCheckIfDefaultCategory", findDefault},
};

using CategoryOperation = Operation<Categories>;
constexpr auto emptyCategories = [](Categories& categories) { categories.empty(); };
constexpr auto areFilled = [](const Categories& categories) { return categories.isFilled(); };
constexpr std::array kCategoryOperations{
    CategoryOperation{
        "component/categories/GetBookAcroInfo/first", rebuild, emptyCategories, areFilled},
    CategoryOperation{
        .name = "component/categories/GetBookAcroInfo/again", .run = rebuild, .check = areFilled},
    CategoryOperation{"component/categories/GetBookAcroValue", readCategory},
    CategoryOperation{"component/categories/AddBookCateToXMLFile", addCategory},
    CategoryOperation{"component/categories/EditBookCateToXMLFile", renameCategory},
    CategoryOperation{"component/categories/AddBookAcro", fileBook},
    CategoryOperation{"component/categories/AddCategoryNode", fileNewBook},
    CategoryOperation{"component/categories/Addothercategory", fileOtherBooks},
    CategoryOperation{"component/categories/bCheckCategoryinQuorBookCategories", seeWhetherEmpty},
    CategoryOperation{"component/sort/SortArray", sortWithAcronyms},
    CategoryOperation{"component/sort/mQuickSort", sortNames},
};

}  // namespace

void registerSideFileOperations(const Store& store) {
  registerOperations(store.sideFiles, kFileOperations, kSizes);
  registerOperations(store.categories, kCategoryOperations, kSizes);
}

}  // namespace quorbind::bench
