#include "cli/merge_command.h"

#include <algorithm>
#include <set>
#include <utility>
#include <vector>

#include "catalogue/book_config.h"
#include "cli/book_file.h"
#include "cli/catalogue_reader.h"
#include "cli/component_call.h"
#include "cli/paths.h"
#include "cli/required_document.h"
#include "cli/text_list.h"
#include "platform/file_system.h"

namespace quorbind {

namespace {

/// The books of `main` that `other` has, too: by name and acronym.
std::vector<ListedBook> inBoth(const std::vector<ListedBook>& main,
                               const std::vector<ListedBook>& other) {
  std::set<std::pair<std::string, std::string>> known;
  for (const ListedBook& book : other) {
    known.emplace(book.name, book.acronym);
  }
  std::vector<ListedBook> both;
  std::copy_if(main.begin(), main.end(), std::back_inserter(both), [&](const ListedBook& book) {
    return known.contains({book.name, book.acronym});
  });
  return both;
}

/// The component passes over a book file that does not load. One that is there and damaged is told
/// of before anything is written, and so is one that may not be written.
void requireUsableBookFiles(LibraryChange& change, const std::vector<ListedBook>& books) {
  for (const ListedBook& book : books) {
    const std::string file = bookFileOf(change.paths(), book);
    if (!book.fileType && change.platform().files.fileExists(file)) {
      static_cast<void>(readBookLink(change.platform(), file));
      requireWritable(change.platform().files, file);
    }
  }
}

std::string merge(LibraryChange& change, const std::string& from) {
  const std::string& main = change.paths().catalogue;
  const std::string other = componentFile(from);
  const auto books =
      inBoth(readCatalogue(change.platform(), main), readCatalogue(change.platform(), other));
  requireWritable(change.platform().files, main);
  requireUsableBookFiles(change, books);
  callComponent(change.wiring(),
                [&] { Book_Config(change.module()).strMatchingBooksInfo(main, other); });
  return std::string(change.said("Took", "Would take")) + " link and categories of " +
         counted(books.size(), "book", "books") + " over into " + change.library() + ".";
}

}  // namespace

ExitStatus runMerge(const MergeArguments& arguments) {
  LibraryChange change(arguments.place, arguments.change);
  return change.run([&] { return merge(change, arguments.from); });
}

}  // namespace quorbind
