// What a host does with the files beside a library's catalogue: keywords, link identifiers and
// categories.

#include <array>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "bench/benchmarks.h"
#include "bench/floor.h"
#include "bench/library_sample.h"
#include "catalogue/book_config.h"
#include "sidefiles/keyword_file.h"
#include "sidefiles/keyword_list.h"
#include "sidefiles/link_file.h"
#include "sidefiles/link_identifiers.h"

namespace quorbind::bench {

namespace {

constexpr const char* kExportFile = "toc_Temp.txt";
constexpr const char* kExport = R"(C:\toc_Temp.txt)";
constexpr const char* kNew = "new";

/// What an operation starts from: files of this size, or the same without an entry.
enum class Start { kFilled, kEmpty };

/// A library's side files with so many keywords, identifiers, or books in each category.
class SideFiles {
 public:
  explicit SideFiles(std::size_t entryCount)
      : entries(entryCount),
        keywords_{kKeywordsFile, keywordsFileOf(entries), keywordsFileOf(0)},
        links_{kLinksFile, linksFileOf(entries), linksFileOf(0)} {
    world.disk.write(kSelectionListFile, selectionListOf(1));
    world.disk.write(kExportFile, exportWithIdentifiers(entries));
    for (std::size_t index = 0; index < entries; ++index) {
      words_.texts.push_back(keywordOf(index));
    }
  }

  void reset(Start start) {
    for (const File* file : {&keywords_, &links_}) {
      world.disk.write(file->name, start == Start::kFilled ? file->filled : file->empty);
    }
    world.user.forget();
    world.state() = {};
    world.state().currentBookName = nameOfBook(0);
    world.state().currentProductName = kLibrary;
  }

  [[nodiscard]] const TextArray& words() const { return words_; }
  [[nodiscard]] const Platform& platform() const { return world.platform(); }
  [[nodiscard]] bool isQuiet() const { return world.user.messages().empty(); }
  [[nodiscard]] std::string systemPath(std::string_view name) const {
    return systemPathOf(world, name);
  }
  [[nodiscard]] bool hasAllKeywords() const { return isFilled(keywords_); }
  [[nodiscard]] bool hasAllLinks() const { return isFilled(links_); }

  const std::size_t entries;
  testing::World world;

 private:
  struct File {
    const char* name;
    std::string filled;
    std::string empty;
  };

  [[nodiscard]] bool isFilled(const File& file) const {
    return world.disk.read(file.name) == file.filled;
  }

  const File keywords_;
  const File links_;
  TextArray words_;
};

/// A library all of whose books are in every category.
class Categories {
 public:
  explicit Categories(std::size_t bookCount)
      : books(bookCount), filled_(categoriesFileOf(books)), empty_(categoriesFileOf(0)) {
    world.disk.write(kLibraryCatalogueFile, catalogueOf(books, kCategoryCount, ""));
  }

  void reset(Start start) {
    world.disk.write(kCategoriesFile, start == Start::kFilled ? filled_ : empty_);
    world.user.forget();
    world.state() = {};
  }

  [[nodiscard]] bool isQuiet() const { return world.user.messages().empty(); }
  [[nodiscard]] bool isFilled() const { return world.disk.read(kCategoriesFile) == filled_; }
  [[nodiscard]] std::string systemPath(std::string_view name) const {
    return systemPathOf(world, name);
  }

  const std::size_t books;
  testing::World world;
  Book_Config config{world.module};

 private:
  const std::string filled_;
  const std::string empty_;
};

// The component's side

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

bool fileBook(Categories& categories) {
  categories.config.AddBookAcro(
      nameOfCategory(kCategoryCount - 1), {{"", kNew}, 0}, kCategoriesPath);
  return categories.isQuiet();
}

// The floor's side

bool saveKeywords(SideFiles& files) {
  // One book.
  return counted(floorLoadAndSave(files.systemPath(kKeywordsFile).c_str()), 1);
}

bool saveLinks(SideFiles& files) {
  return counted(floorLoadAndSave(files.systemPath(kLinksFile).c_str()), files.entries);
}

bool saveCategories(Categories& categories) {
  // With the one for books without any.
  return counted(floorLoadAndSave(categories.systemPath(kCategoriesFile).c_str()),
                 kCategoryCount + 1);
}

bool loadCatalogue(Categories& categories) {
  return counted(floorLoad(categories.systemPath(kLibraryCatalogueFile).c_str()), categories.books);
}

template <typename Data>
struct Operation {
  const char* name;
  bool (*run)(Data&);
  Start start = Start::kFilled;
  /// What the files have to be behind it.
  bool (Data::*check)() const = &Data::isQuiet;
};

using FileOperation = Operation<SideFiles>;
constexpr std::array kFileOperations{
    FileOperation{"component/keywords/AddKeywords",
                  addAllKeywords,
                  Start::kEmpty,
                  &SideFiles::hasAllKeywords},
    FileOperation{"component/keywords/AddKeywordsToXmlFile", addKeyword},
    FileOperation{"component/keywords/EditKeywordsToXmlFile", renameKeyword},
    FileOperation{
        "component/links/GenerateBookLinkID", addAllLinks, Start::kEmpty, &SideFiles::hasAllLinks},
    FileOperation{"component/links/AddToLinkIDFile", addLink},
    FileOperation{"floor/keywords", saveKeywords},
    FileOperation{"floor/links", saveLinks},
};
constexpr std::array<std::size_t, 3> kFileSizes{100, 1'000, 10'000};

using CategoryOperation = Operation<Categories>;
constexpr std::array kCategoryOperations{
    CategoryOperation{"component/categories/GetBookAcroInfo/first",
                      rebuild,
                      Start::kEmpty,
                      &Categories::isFilled},
    CategoryOperation{"component/categories/GetBookAcroInfo/again",
                      rebuild,
                      Start::kFilled,
                      &Categories::isFilled},
    CategoryOperation{"component/categories/GetBookAcroValue", readCategory},
    CategoryOperation{"component/categories/AddBookCateToXMLFile", addCategory},
    CategoryOperation{"component/categories/EditBookCateToXMLFile", renameCategory},
    CategoryOperation{"component/categories/AddBookAcro", fileBook},
    CategoryOperation{"floor/categories", saveCategories},
    CategoryOperation{"floor/categories/catalogue", loadCatalogue},
};
constexpr std::array<std::size_t, 3> kCategorySizes{100, 1'000, 10'000};

template <typename Data, typename Operations, typename Sizes>
void registerAll(const Operations& operations, const Sizes& sizes) {
  const auto made = std::make_shared<MadeOnce<Data>>();
  for (const auto& operation : operations) {
    for (const std::size_t size : sizes) {
      registerWork(
          operation.name,
          size,
          {.reset = [made, &operation, size] { made->at(size).reset(operation.start); },
           .run = [made, &operation, size] { return operation.run(made->at(size)); },
           .check = [made, &operation, size] { return (made->at(size).*operation.check)(); }});
    }
  }
}

}  // namespace

void registerSideFileOperations() {
  registerAll<SideFiles>(kFileOperations, kFileSizes);
  registerAll<Categories>(kCategoryOperations, kCategorySizes);
}

}  // namespace quorbind::bench
