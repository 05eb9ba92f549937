#include "cli/doctor/side_file_examination.h"

#include <map>
#include <set>

#include "cli/doctor/examined_files.h"
#include "cli/doctor/mending_command.h"
#include "cli/side_file_reader.h"
#include "cli/text_list.h"
#include "platform/file_system.h"
#include "platform/text.h"
#include "sidefiles/names.h"

namespace quorbind {

namespace {

using Kind = FindingKind;
using Categories = std::vector<ListedCategory>;

std::string elementsAt(std::string_view parents, std::string_view element) {
  return std::string(parents).append("/").append(element);
}

class CategoriesExamination {
 public:
  CategoriesExamination(ExaminedLibrary& library, const Categories& categories)
      : library_(library), categories_(categories) {}

  void run() {
    findRepeated();
    if (library_.entries) {
      findUnknownBooks();
      findUnfiledBooks();
    }
  }

 private:
  void add(Kind kind, std::size_t line, const FindingWords& words) {
    library_.findings.add(kind, {library_.paths.bookCategories, line}, words);
  }

  void findRepeated() {
    EntryLines lines(library_.platform.xml,
                     library_.paths.bookCategories,
                     std::string(category_names::kCategoryPath));
    std::set<std::string> names;
    for (std::size_t index = 0; index < categories_.size(); ++index) {
      const std::string& name = categories_[index].name;
      if (!names.insert(name).second) {
        add(Kind::kRepeatedCategory, lines.lineOf(index), {{"CATEGORY", name}});
      }
    }
  }

  void findUnknownBooks() {
    EntryLines lines(library_.platform.xml,
                     library_.paths.bookCategories,
                     elementsAt(category_names::kCategoryPath, category_names::kBookAcro));
    std::size_t index = 0;
    for (const ListedCategory& category : categories_) {
      for (const std::string& acronym : category.acronyms) {
        if (!library_.entries->withExactAcronym(acronym)) {
          add(Kind::kUnknownFiledBook,
              lines.lineOf(index),
              {{"CATEGORY", category.name}, {"ACRONYM", acronym}});
        }
        ++index;
      }
    }
  }

  void findUnfiledBooks() {
    std::map<std::string, std::set<std::string>> filed;
    for (const ListedCategory& category : categories_) {
      filed[category.name].insert(category.acronyms.begin(), category.acronyms.end());
    }
    for (EntryIndex::Entry entry = 0; entry < library_.books.size(); ++entry) {
      const ListedBook& book = library_.books[entry];
      std::vector<std::string> lacking;
      std::vector<std::string> unusable;
      for (const std::string& category : book.categories) {
        if (contains(category, "'")) {
          unusable.push_back(category);
        } else if (!trimBlanks(category).empty() && !filed[category].contains(book.acronym)) {
          lacking.push_back(category);
        }
      }
      tellUnfiled(Kind::kUnfiledBook, entry, lacking, filingOf(book, lacking));
      tellUnfiled(Kind::kUnusableCategory, entry, unusable, {});
    }
  }

  [[nodiscard]] std::string filingOf(const ListedBook& book,
                                     const std::vector<std::string>& categories) const {
    std::vector<std::string> operands{readableName(book.acronym)};
    operands.insert(operands.end(), categories.begin(), categories.end());
    return trimBlanks(book.acronym).empty()
               ? std::string()
               : mendingCommand("categories file", operands, {}, library_.place);
  }

  void tellUnfiled(Kind kind,
                   EntryIndex::Entry entry,
                   const std::vector<std::string>& categories,
                   const std::string& command) {
    if (!categories.empty()) {
      library_.findings.add(
          kind,
          library_.placeOf(entry),
          {{"BOOK", titleOf(library_.books[entry])}, {"CATEGORIES", joined(categories, ", ")}},
          command);
    }
  }

  ExaminedLibrary& library_;
  const Categories& categories_;
};

}  // namespace

void examineCategories(ExaminedLibrary& library) {
  const std::string& path = library.paths.bookCategories;
  if (!library.platform.files.fileExists(path)) {
    library.findings.add(Kind::kMissingCategories,
                         {path},
                         {},
                         mendingCommand("categories create", {}, {}, library.place));
    return;
  }
  Categories categories;
  if (readingFile(
          library.findings, path, [&] { categories = readCategories(library.platform, path); })) {
    CategoriesExamination(library, categories).run();
  }
}

void examineKeywords(ExaminedLibrary& library) {
  const std::string& path = library.paths.searchKeywords;
  std::vector<BookKeywords> books;
  const bool isRead =
      readingFile(library.findings, path, [&] { books = readKeywords(library.platform, path); });
  if (!isRead || !library.entries) {
    return;
  }
  EntryLines lines(
      library.platform.xml, path, elementsAt(keyword_names::kBooks, keyword_names::kBook));
  for (std::size_t index = 0; index < books.size(); ++index) {
    const std::string& name = books[index].bookName;
    if (!library.entries->withExactName(name)) {
      library.findings.add(
          Kind::kUnknownKeywordBook, {path, lines.lineOf(index)}, {{"NAME", readableName(name)}});
    }
  }
}

}  // namespace quorbind
