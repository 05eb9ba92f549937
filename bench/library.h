#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "bench/library_sample.h"
#include "catalogue/book_config.h"
#include "tests/support/world.h"
#include "workflow/driver/quor_book.h"

namespace quorbind::bench {

/// How many categories a book's entry names.
inline constexpr std::size_t kCategoriesOfBook = 3;
/// The link of every book in the other catalogue.
inline constexpr const char* kLink = "service.htm";

/// A server with as many libraries as one of them has books, and that library with its book files.
class Library {
 public:
  explicit Library(std::size_t bookCount);

  void reset();
  void resetLargeBook();

  /// The one that a search comes to last.
  [[nodiscard]] std::size_t lastBook() const { return books - 1; }
  [[nodiscard]] std::string lastName() const { return nameOfBook(lastBook()); }
  [[nodiscard]] std::string systemPath(std::string_view name) const {
    return systemPathOf(world, name);
  }
  [[nodiscard]] bool isQuiet() const { return world.user.messages().empty(); }
  [[nodiscard]] bool catalogueSays(std::string_view text) const {
    return fileSays(world, kLibraryCatalogueFile, text);
  }

  const std::size_t books;
  testing::World world;
  Book_Config config{world.module};
  Quor_Book book{world.module};

 private:
  const std::string catalogue_;
  const std::string lastBookFile_;
  const std::string largeBookFile_;
};

}  // namespace quorbind::bench
