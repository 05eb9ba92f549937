// What a host does with the files beside a library's catalogue: keywords, link identifiers and
// categories.

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "bench/benchmarks.h"
#include "bench/store.h"
#include "bookxml/c_sort.h"
#include "sidefiles/category_filing.h"
#include "sidefiles/keyword_file.h"
#include "sidefiles/keyword_list.h"
#include "sidefiles/link_file.h"
#include "sidefiles/link_identifiers.h"
#include "sidefiles/names.h"
#include "toc/excel_book_builder.h"
#include "toc/excel_links.h"
#include "toc/toc_check.h"

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

/// The book of a workbook: what is made of it is somebody else's work.
class NoBuilder final : public ExcelBookBuilder {
 public:
  bool BuildExcelBook(const std::string& /*tocPath*/,
                      const std::string& /*cataloguePath*/,
                      std::int16_t /*vintType*/,
                      const std::string& /*productName*/,
                      const std::string& /*category*/) override {
    return true;
  }
};

bool addKeywordsOfWorkbook(SideFiles& files) {
  NoBuilder builder;
  const ExcelRun run{.builder = builder, .keywordsPath = kKeywordsPath, .category = ""};
  TocCheck check(files.world.module);
  std::string toc = kKeywordsWorkbook;
  // The answer for a workbook is always False.
  static_cast<void>(check.mbValidateTocFile(toc, TocCheck::kExcel, &run));
  return files.isQuiet();
}

bool addLinksOfWorkbook(SideFiles& files) {
  UpdateQuorLinkIDFile(
      files.platform(), files.world.state(), files.links, /*workbook=*/"C:\\links.xls");
  return files.isQuiet();
}

bool mergeLinks(SideFiles& files) {
  AddLinkIDInfo(files.platform(), files.world.state(), kServerFolder, kOtherBookFolder);
  return files.isQuiet();
}

bool fileUnderAll(SideFiles& files) {
  AddCategoryNodes(files.platform(), files.world.state(), files.categories());
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

// What the changes leave.

bool hasKeyword(const SideFiles& files, const std::string& keyword) {
  return files.says(kKeywordsFile, element(keyword_names::kKeyword, keyword));
}

bool hasNewKeyword(const SideFiles& files) {
  return hasKeyword(files, kNew);
}

bool hasRenamedKeyword(const SideFiles& files) {
  return hasKeyword(files, kNew) && !hasKeyword(files, keywordOf(files.entries - 1));
}

bool hasLink(const SideFiles& files, const std::string& identifier) {
  return files.says(kLinksFile, element(link_names::kLinkId, identifier));
}

bool hasNewLink(const SideFiles& files) {
  return hasLink(files, kNew);
}

bool hasLastLink(const SideFiles& files) {
  return hasLink(files, identifierOf(files.entries - 1));
}

/// A new file begins with a comment.
bool hasCreatedCategories(const SideFiles& files) {
  return files.says(kCategoriesFile, "<!--") &&
         files.says(kCategoriesFile,
                    element(category_names::kName, nameOfCategory(files.entries - 1)));
}

bool hasCategory(const Categories& categories, const std::string& name) {
  return categories.says(element(category_names::kName, name));
}

bool hasNewCategory(const Categories& categories) {
  return hasCategory(categories, kNew);
}

bool hasRenamedCategory(const Categories& categories) {
  return hasCategory(categories, kNew) &&
         !hasCategory(categories, nameOfCategory(kCategoryCount - 1));
}

bool hasNewBook(const Categories& categories) {
  return categories.says(element(category_names::kBookAcro, kNew));
}

/// The last category ends with the last of the books.
bool hasOtherBooks(const Categories& categories) {
  return categories.says(element(category_names::kBookAcro, categories.acronyms().texts.back())
                             .append("\r\n\t</Category>\r\n</BookSet_Categories>"));
}

using FileOperation = Operation<SideFiles>;
constexpr auto resetFiles = [](SideFiles& files) { files.reset(); };
constexpr auto emptyFiles = [](SideFiles& files) { files.empty(); };
constexpr auto areFilesQuiet = [](const SideFiles& files) { return files.isQuiet(); };
constexpr auto haveAllKeywords = [](const SideFiles& files) { return files.hasAllKeywords(); };
constexpr auto haveAllLinks = [](const SideFiles& files) { return files.hasAllLinks(); };
constexpr std::array kFileOperations{
    FileOperation{"component/keywords/AddKeywords",
                  addAllKeywords,
                  emptyFiles,
                  areFilesQuiet,
                  haveAllKeywords},
    FileOperation{"component/keywords/workbook",
                  addKeywordsOfWorkbook,
                  emptyFiles,
                  areFilesQuiet,
                  haveAllKeywords},
    FileOperation{"component/keywords/AddKeywordsToXmlFile",
                  addKeyword,
                  resetFiles,
                  areFilesQuiet,
                  hasNewKeyword},
    FileOperation{"component/keywords/EditKeywordsToXmlFile",
                  renameKeyword,
                  resetFiles,
                  areFilesQuiet,
                  hasRenamedKeyword},
    FileOperation{
        "component/links/GenerateBookLinkID", addAllLinks, emptyFiles, areFilesQuiet, haveAllLinks},
    FileOperation{"component/links/UpdateQuorLinkIDFile",
                  addLinksOfWorkbook,
                  emptyFiles,
                  areFilesQuiet,
                  hasLastLink},
    FileOperation{
        "component/links/AddLinkIDInfo", mergeLinks, emptyFiles, areFilesQuiet, haveAllLinks},
    FileOperation{
        "component/links/AddToLinkIDFile", addLink, resetFiles, areFilesQuiet, hasNewLink},
    FileOperation{"component/book-categories/AddCategoryNodes",
                  fileUnderAll,
                  emptyFiles,
                  areFilesQuiet,
                  [](const SideFiles& files) { return files.isInAllCategories(); }},
    FileOperation{"component/defaults/CreateBookCateXmlFile",
                  createCategories,
                  emptyFiles,
                  areFilesQuiet,
                  hasCreatedCategories},
    FileOperation{"component/defaults/bCheckIfDefaultCategory", findDefault},
};

using CategoryOperation = Operation<Categories>;
constexpr auto resetCategories = [](Categories& categories) { categories.reset(); };
constexpr auto emptyCategories = [](Categories& categories) { categories.empty(); };
constexpr auto wornCategories = [](Categories& categories) { categories.wear(); };
constexpr auto areQuiet = [](const Categories& categories) { return categories.isQuiet(); };
constexpr auto areFilled = [](const Categories& categories) { return categories.isFilled(); };
/// A change of a file with all books in every category.
constexpr CategoryOperation categoryChange(const char* name,
                                           bool (*run)(Categories&),
                                           bool (*hasChanged)(const Categories&)) {
  return {name, run, resetCategories, areQuiet, hasChanged};
}
constexpr std::array kCategoryOperations{
    CategoryOperation{"component/categories/GetBookAcroInfo/first",
                      rebuild,
                      emptyCategories,
                      areQuiet,
                      areFilled},
    CategoryOperation{
        "component/categories/GetBookAcroInfo/again", rebuild, wornCategories, areQuiet, areFilled},
    CategoryOperation{"component/categories/GetBookAcroValue", readCategory},
    categoryChange("component/categories/AddBookCateToXMLFile", addCategory, hasNewCategory),
    categoryChange(
        "component/categories/EditBookCateToXMLFile", renameCategory, hasRenamedCategory),
    categoryChange("component/categories/AddBookAcro", fileBook, hasNewBook),
    categoryChange("component/categories/AddCategoryNode", fileNewBook, hasNewBook),
    categoryChange("component/categories/Addothercategory", fileOtherBooks, hasOtherBooks),
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
