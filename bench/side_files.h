#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "bench/library_sample.h"
#include "catalogue/book_config.h"
#include "platform/text_array.h"
#include "tests/support/world.h"
#include "workflow/driver/quor_book.h"

namespace quorbind::bench {

/// A library's side files with so many keywords, link identifiers and default categories, and the
/// export of a table of contents with as many identifiers.
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

  const std::size_t entries;
  testing::World world;
  Book_Config config{world.module};

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
  TextArray words_;
};

// Names on the disk, as the system has them, and as the component is told them.
inline constexpr const char* kExportFile = "toc_Temp.txt";
inline constexpr const char* kExport = R"(C:\toc_Temp.txt)";

/// A library all of whose books are in every category.
class Categories {
 public:
  explicit Categories(std::size_t bookCount);

  void reset() { write(filled_); }
  /// As reset, but no book is filed anywhere.
  void empty() { write(empty_); }

  /// The acronyms of all books, behind an empty one.
  [[nodiscard]] const TextArray& acronyms() const { return acronyms_; }
  [[nodiscard]] bool isQuiet() const { return world.user.messages().empty(); }
  [[nodiscard]] bool isFilled() const { return world.disk.read(kCategoriesFile) == filled_; }
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
  TextArray acronyms_{{""}, 0};
};

}  // namespace quorbind::bench
