#include "cli/library_model.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "cli/failure.h"
#include "cli/library_documents.h"
#include "platform/file_system.h"
#include "platform/locale.h"
#include "platform/text.h"
#include "sidefiles/names.h"

namespace quorbind {

namespace {

/// Names of one document may differ in letter case.
std::size_t missingIn(const LibraryBook& book, const Locale& locale) {
  std::unordered_set<std::string> documents;
  for (const LibraryHeading& heading : book.headings) {
    if (heading.document.isMissing()) {
      documents.insert(documentKey(heading.heading.document, locale));
    }
  }
  return documents.size() + (book.document.isMissing() ? 1 : 0);
}

class Reading {
 public:
  Reading(const Platform& platform, const LibraryPaths& paths, const std::string& name)
      : platform_(platform), paths_(paths), finder_(platform, paths.serverRoot) {
    library_.name = name;
  }

  LibraryModel run() && {
    readBooks();
    readBookKeywords();
    readShelves();
    readBookLinks();
    return std::move(library_);
  }

 private:
  /// Runs a step and answers why it failed. Files are named from the library's folder, so that the
  /// text is the same wherever the library lies.
  template <typename Step>
  [[nodiscard]] std::string failureOf(Step&& step) const {
    try {
      std::forward<Step>(step)();
      return {};
    } catch (const CommandFailure& failure) {
      return replaceAll(failure.what(), nativeName(paths_.folder) + "/", "");
    }
  }

  template <typename Step>
  void noting(Step&& step) {
    if (std::string failure = failureOf(std::forward<Step>(step)); !failure.empty()) {
      library_.failures.push_back(std::move(failure));
    }
  }

  void readBooks() {
    std::vector<ListedBook> entries;
    noting([&] { entries = readCatalogue(platform_, paths_.catalogue); });
    library_.books.reserve(entries.size());
    for (ListedBook& entry : entries) {
      byAcronym_.emplace(entry.acronym, library_.books.size());
      library_.books.push_back(readBook(std::move(entry)));
    }
  }

  [[nodiscard]] LibraryBook readBook(ListedBook entry) {
    LibraryBook book{.entry = std::move(entry)};
    if (book.entry.fileType) {
      book.document = findSingleDocument(paths_, book.entry, finder_);
    } else {
      book.failure = failureOf(
          [&] { book.headings = readLibraryHeadings(platform_, paths_, book.entry, finder_); });
    }
    book.missing = missingIn(book, platform_.locale);
    return book;
  }

  void readBookKeywords() {
    std::vector<BookKeywords> lists;
    noting([&] { lists = readKeywords(platform_, paths_.searchKeywords); });
    std::unordered_map<std::string, std::vector<std::string>> byName;
    for (const BookKeywords& list : lists) {
      std::vector<std::string>& words = byName[list.bookName];
      std::transform(list.keywords.begin(),
                     list.keywords.end(),
                     std::back_inserter(words),
                     [](const std::string& word) { return readableName(word); });
    }
    for (LibraryBook& book : library_.books) {
      if (const auto words = byName.find(book.entry.name); words != byName.end()) {
        book.keywords = words->second;
      }
    }
  }

  void readShelves() {
    std::vector<ListedCategory> listed;
    if (platform_.files.fileExists(paths_.bookCategories)) {
      noting([&] { listed = readCategories(platform_, paths_.bookCategories); });
    }
    for (const ListedCategory& category : listed) {
      fileUnder(categoryNamed(category.name), category.acronyms);
    }
    for (std::size_t book = 0; book < library_.books.size(); ++book) {
      for (const std::string& name : library_.books[book].entry.categories) {
        put(book, categoryNamed(name));
      }
    }
    moveOtherToTheEnd(listed);
    for (std::size_t book = 0; book < library_.books.size(); ++book) {
      if (!filed_.contains(book)) {
        library_.uncategorised.push_back(book);
      }
    }
  }

  [[nodiscard]] std::size_t categoryNamed(const std::string& name) {
    const auto [known, isNew] = byCategory_.emplace(name, library_.categories.size());
    if (isNew) {
      library_.categories.push_back({.name = name});
      onShelf_.emplace_back();
    }
    return known->second;
  }

  void fileUnder(std::size_t category, const std::vector<std::string>& acronyms) {
    for (const std::string& acronym : acronyms) {
      if (const auto book = byAcronym_.find(acronym); book != byAcronym_.end()) {
        put(book->second, category);
      } else {
        library_.categories[category].unknownAcronyms.push_back(acronym);
      }
    }
  }

  void put(std::size_t book, std::size_t category) {
    filed_.insert(book);
    if (onShelf_[category].insert(book).second) {
      library_.categories[category].books.push_back(book);
    }
  }

  /// Filing a book under a new category puts that in front of the one for all other books, where
  /// that is the last.
  void moveOtherToTheEnd(const std::vector<ListedCategory>& listed) {
    const bool otherIsLast = !listed.empty() && listed.back().name == category_names::kOther;
    if (otherIsLast) {
      auto& categories = library_.categories;
      const auto other =
          categories.begin() +
          static_cast<std::ptrdiff_t>(byCategory_.at(std::string(category_names::kOther)));
      std::rotate(other, other + 1, categories.end());
    }
  }

  void readBookLinks() {
    std::vector<ListedLink> listed;
    noting([&] { listed = readLinks(platform_, paths_.linkIds); });
    for (ListedLink& entry : listed) {
      library_.links.push_back(resolved(std::move(entry)));
    }
  }

  [[nodiscard]] LibraryLink resolved(ListedLink entry) {
    LibraryLink link{.entry = std::move(entry)};
    if (const auto book = byAcronym_.find(link.entry.acronym); book != byAcronym_.end()) {
      link.book = book->second;
      link.document =
          findLinkTarget(paths_, library_.books[book->second].entry, link.entry, finder_);
    }
    return link;
  }

  const Platform& platform_;
  const LibraryPaths& paths_;
  DocumentFinder finder_;
  LibraryModel library_;
  std::unordered_map<std::string, std::size_t> byAcronym_;
  std::unordered_map<std::string, std::size_t> byCategory_;
  /// The books of each category, and those of any.
  std::vector<std::unordered_set<std::size_t>> onShelf_;
  std::unordered_set<std::size_t> filed_;
};

}  // namespace

LibraryModel readLibrary(const Platform& platform,
                         const LibraryPaths& paths,
                         const std::string& name) {
  return Reading(platform, paths, name).run();
}

std::vector<LibraryHeading> readLibraryHeadings(const Platform& platform,
                                                const LibraryPaths& paths,
                                                const ListedBook& book,
                                                DocumentFinder& finder) {
  std::vector<LibraryHeading> headings;
  if (!book.fileType) {
    readHeadings(platform, bookFileOf(paths, book), [&](const BookHeading& heading) {
      headings.push_back(
          {heading, findInBook(paths, book, heading.document, heading.bookmark, finder)});
    });
  }
  return headings;
}

LibraryCounts& LibraryCounts::operator+=(const LibraryCounts& more) {
  books += more.books;
  headings += more.headings;
  missing += more.missing;
  unreadable += more.unreadable;
  dangling += more.dangling;
  return *this;
}

LibraryCounts countsOf(const LibraryModel& library) {
  LibraryCounts counts{.books = library.books.size(), .unreadable = library.failures.size()};
  for (const LibraryBook& book : library.books) {
    counts.headings += book.headings.size();
    counts.missing += book.missing;
    counts.unreadable += book.failure.empty() ? 0 : 1;
  }
  counts.dangling = static_cast<std::size_t>(
      std::count_if(library.links.begin(), library.links.end(), [](const LibraryLink& link) {
        return link.isDangling();
      }));
  return counts;
}

}  // namespace quorbind
