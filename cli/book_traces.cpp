#include "cli/book_traces.h"

#include <algorithm>

#include "cli/failure.h"
#include "cli/side_file_reader.h"

namespace quorbind {

namespace {

bool hasKeywords(const Platform& platform, const std::string& path, const ListedBook& book) {
  const auto books = readKeywords(platform, path);
  return std::any_of(books.begin(), books.end(), [&](const BookKeywords& keywords) {
    return keywords.bookName == book.name;
  });
}

bool isFiled(const Platform& platform, const std::string& path, const ListedBook& book) {
  const auto categories = readCategories(platform, path);
  return std::any_of(categories.begin(), categories.end(), [&](const ListedCategory& category) {
    return std::count(category.acronyms.begin(), category.acronyms.end(), book.acronym) > 0;
  });
}

bool hasLinks(const Platform& platform, const std::string& path, const ListedBook& book) {
  const auto links = readLinks(platform, path);
  return std::any_of(links.begin(), links.end(), [&](const ListedLink& link) {
    return link.acronym == book.acronym;
  });
}

using Question = bool(const Platform&, const std::string&, const ListedBook&);

void tellTraceIn(Wiring& wiring, const std::string& path, const ListedBook& book, Question* names) {
  try {
    if (names(wiring.module.platform, path, book)) {
      tell(wiring, nativeName(path) + " goes on naming " + titleOf(book));
    }
  } catch (const CommandFailure&) {
    return;
  }
}

}  // namespace

void tellTraces(Wiring& wiring, const LibraryPaths& library, const ListedBook& book) {
  tellTraceIn(wiring, library.searchKeywords, book, hasKeywords);
  tellTraceIn(wiring, library.bookCategories, book, isFiled);
  tellTraceIn(wiring, library.linkIds, book, hasLinks);
}

}  // namespace quorbind
