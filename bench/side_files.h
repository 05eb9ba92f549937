#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "bench/library_sample.h"
#include "bench/sheets_in_memory.h"
#include "catalogue/book_config.h"
#include "platform/text_array.h"
#include "tests/support/world.h"
#include "workflow/driver/quor_book.h"

namespace quorbind::bench {

/// A library's side files with so many keywords and link identifiers of one book, which is in as
/// many categories; with as many default categories; with another library's identifiers; and with
/// tables of contents that have as many identifiers, or as many keywords.
class SideFiles {
 public:
  explicit SideFiles(std::size_t entryCount);

  /// Files of this size.
  void reset() { write(/*filled=*/true); }
  /// The same without an entry.
  void empty() { write(/*filled=*/false); }

  /// All keywords.
  [[nodiscard]] const TextArray& words() const { return words_; }
  [[nodiscard]] const Platform& platform() const { return world.platform(); }
  [[nodiscard]] bool isQuiet() const { return world.user.messages().empty(); }
  [[nodiscard]] std::string systemPath(std::string_view name) const {
    return systemPathOf(world, name);
  }
  [[nodiscard]] bool hasAllKeywords() const { return isFilled(keywords_); }
  [[nodiscard]] bool hasAllLinks() const { return isFilled(links_); }
  [[nodiscard]] bool isInAllCategories() const { return isFilled(categories_); }
  [[nodiscard]] bool says(std::string_view file, std::string_view text) const {
    return fileSays(world, file, text);
  }
  /// The names of all categories.
  [[nodiscard]] const std::vector<std::string>& categories() const { return categoryNames_; }

  const std::size_t entries;
  testing::World world;
  Book_Config config{world.module};
  /// A workbook with an identifier in every row.
  SheetsInMemory links;

 private:
  struct File {
    const char* name;
    std::string filled;
    std::string empty;
  };

  void write(bool filled);
  [[nodiscard]] bool isFilled(const File& file) const {
    return world.disk.read(file.name) == file.filled;
  }

  const File keywords_;
  const File links_;
  const File categories_;
  TextArray words_;
  std::vector<std::string> categoryNames_;
};

// Names on the disk, as the system has them, and as the component is told them.
inline constexpr const char* kExportFile = "toc_Temp.txt";
inline constexpr const char* kExport = R"(C:\toc_Temp.txt)";
/// A workbook of one book, whose keywords stand in the list of books.
inline constexpr const char* kKeywordsWorkbookFile = "keywords.xls";
inline constexpr const char* kKeywordsWorkbook = R"(C:\keywords.xls)";

/// A library all of whose books are in every category.
class Categories {
 public:
  explicit Categories(std::size_t bookCount);

  void reset() { write(filled_); }
  /// As reset, but no book is filed anywhere.
  void empty() { write(empty_); }
  /// As reset, but with a line end more, which is gone once the component has saved the file.
  void wear() { write(worn_); }

  /// The acronyms of all books, behind an empty one.
  [[nodiscard]] const TextArray& acronyms() const { return acronyms_; }
  [[nodiscard]] bool isQuiet() const { return world.user.messages().empty(); }
  [[nodiscard]] bool isFilled() const { return world.disk.read(kCategoriesFile) == filled_; }
  [[nodiscard]] bool says(std::string_view text) const {
    return fileSays(world, kCategoriesFile, text);
  }
  [[nodiscard]] std::string systemPath(std::string_view name) const {
    return systemPathOf(world, name);
  }

  const std::size_t books;
  testing::World world;
  Book_Config config{world.module};
  Quor_Book book{world.module};

 private:
  void write(const std::string& content);

  const std::string filled_;
  const std::string empty_;
  const std::string worn_;
  TextArray acronyms_{{""}, 0};
};

}  // namespace quorbind::bench
