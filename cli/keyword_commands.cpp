#include "cli/keyword_commands.h"

#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>
#include <unordered_set>

#include "cli/catalogue_reader.h"
#include "cli/component_call.h"
#include "cli/failure.h"
#include "cli/json_text.h"
#include "cli/listing.h"
#include "cli/required_document.h"
#include "cli/side_file_reader.h"
#include "cli/side_file_rules.h"
#include "cli/text_list.h"
#include "cli/text_table.h"
#include "platform/file_system.h"
#include "platform/locale.h"
#include "platform/portable/visible_text.h"
#include "platform/text.h"
#include "platform/toolset.h"
#include "sidefiles/keyword_list.h"
#include "sidefiles/keyword_rules.h"
#include "workflow/driver/quor_book.h"

namespace quorbind {

namespace {

std::vector<std::string> readable(std::vector<std::string> stored) {
  std::transform(stored.begin(), stored.end(), stored.begin(), readableName);
  return stored;
}

/// The keywords of one book, as it is stored; none when the file does not have it.
std::vector<std::string> keywordsOf(const std::vector<BookKeywords>& books,
                                    const std::string& storedName) {
  std::vector<std::string> keywords;
  for (const BookKeywords& book : books) {
    if (book.bookName == storedName) {
      keywords.insert(keywords.end(), book.keywords.begin(), book.keywords.end());
    }
  }
  return keywords;
}

void printKeywords(const std::vector<BookKeywords>& books, bool json) {
  std::vector<TableRow> rows{{"BOOK", "KEYWORDS"}};
  Json list = Json::array();
  for (const BookKeywords& book : books) {
    const std::string name = readableName(book.bookName);
    const std::vector<std::string> keywords = readable(book.keywords);
    rows.push_back({name, joined(keywords, ", ")});
    list.push_back({{"book", name}, {"keywords", keywords}});
  }
  if (json) {
    printJson({{"keywords", list}});
  } else {
    printTable(rows);
  }
}

/// Without a catalogue there is no library. A book can have keywords and not be in the catalogue
/// any more; one that is in neither is not there.
void listKeywords(const ListKeywordsArguments& arguments,
                  const LibraryPaths& library,
                  Wiring& wiring) {
  const auto catalogue = readCatalogue(wiring.module.platform, library.catalogue);
  std::vector<BookKeywords> books = readKeywords(wiring.module.platform, library.searchKeywords);
  if (arguments.book) {
    std::erase_if(books, [&](const BookKeywords& book) {
      return readableName(book.bookName) != *arguments.book;
    });
    if (books.empty()) {
      const ListedBook& book =
          requireBookNamed(catalogue, *arguments.book, arguments.place.library);
      books.push_back({.bookName = book.name, .keywords = {}});
    }
  }
  printKeywords(books, arguments.json);
}

/// Letter case does not count, as in every search.
std::vector<std::string> booksWith(const std::string& word,
                                   const std::vector<BookKeywords>& books,
                                   const Locale& locale) {
  std::vector<std::string> names;
  for (const BookKeywords& book : books) {
    const bool hasWord =
        std::any_of(book.keywords.begin(), book.keywords.end(), [&](const std::string& keyword) {
          return locale.compareText(readableName(keyword), word) == 0;
        });
    if (hasWord) {
      names.push_back(readableName(book.bookName));
    }
  }
  return names;
}

void findKeyword(const FindKeywordArguments& arguments,
                 const LibraryPaths& library,
                 Wiring& wiring) {
  requireCatalogue(wiring.module.platform, library.catalogue);
  const auto names = booksWith(
      arguments.word, readKeywords(wiring.module.platform, library.searchKeywords), wiring.locale);
  if (arguments.json) {
    printJson({{"word", arguments.word}, {"books", names}});
    return;
  }
  for (const std::string& name : names) {
    std::cout << visibleText(name) << '\n';
  }
}

std::string stored(LibraryChange& change, const std::string& word) {
  return storedKeyword(*change.platform().toolset.createXmlTextRules(), word);
}

/// The keywords of the book, from a file that can be written.
std::vector<std::string> requireKeywordsOf(LibraryChange& change, const ListedBook& book) {
  const std::string& path = change.paths().searchKeywords;
  auto keywords = keywordsOf(readKeywords(change.platform(), path), book.name);
  requireWritable(change.platform().files, path);
  return keywords;
}

/// The form in which a keyword stands among `keywords`; nothing when it does not. Another host may
/// have stored one as it was typed.
std::optional<std::string> find(LibraryChange& change,
                                const std::vector<std::string>& keywords,
                                const std::string& word) {
  const std::string wanted = stored(change, word);
  const auto found = std::find_if(keywords.begin(), keywords.end(), [&](const std::string& each) {
    return stored(change, each) == wanted;
  });
  return found == keywords.end() ? std::nullopt : std::optional(*found);
}

void requireInFile(LibraryChange& change,
                   const ListedBook& book,
                   const std::vector<std::string>& words) {
  std::unordered_set<std::string> standing;
  for (const std::string& keyword :
       keywordsOf(readKeywords(change.platform(), change.paths().searchKeywords), book.name)) {
    standing.insert(stored(change, keyword));
  }
  for (const std::string& word : words) {
    if (!standing.contains(stored(change, word))) {
      throw CommandFailure(ExitStatus::kInternal, "the keyword " + word + " is not in the file");
    }
  }
}

std::vector<std::string> trimmed(std::vector<std::string> words) {
  for (std::string& word : words) {
    word = std::string(trimBlanks(word));
  }
  return words;
}

std::string addKeywords(LibraryChange& change, const AddKeywordsArguments& arguments) {
  const std::vector<std::string> words = trimmed(arguments.words);
  const auto books = readCatalogue(change.platform(), change.paths().catalogue);
  const ListedBook& book = requireBookNamed(books, arguments.book, change.library());
  requireKeywords(change.wiring(), words);
  requireKeywordsOf(change, book);
  callComponent(change.wiring(), [&] {
    KeywordAdditions additions(change.platform(), change.paths().searchKeywords, book.name);
    for (const std::string& word : words) {
      additions.add(stored(change, word));
    }
    additions.settle();
  });
  requireInFile(change, book, words);
  return std::string(change.said("Added ", "Would add ")) +
         (words.size() == 1 ? "the keyword " : "the keywords ") + joined(words, ", ") + " to " +
         titleOf(book) + " in " + change.library() + ".";
}

std::string renameKeyword(LibraryChange& change, const RenameKeywordArguments& arguments) {
  const auto books = readCatalogue(change.platform(), change.paths().catalogue);
  const ListedBook& book = requireBookNamed(books, arguments.book, change.library());
  requireKeywords(change.wiring(), {arguments.newWord});
  const std::vector<std::string> keywords = requireKeywordsOf(change, book);
  const auto oldWord = find(change, keywords, arguments.oldWord);
  if (!oldWord) {
    throw brokenRule(RuleText::kKeywordMissing,
                     {{"BOOK", titleOf(book)}, {"KEYWORD", arguments.oldWord}});
  }
  if (find(change, keywords, arguments.newWord)) {
    throw brokenRule(RuleText::kKeywordTaken,
                     {{"BOOK", titleOf(book)}, {"KEYWORD", arguments.newWord}});
  }
  callComponent(change.wiring(), [&] {
    Quor_Book(change.module())
        .EditKeywordsToXmlFile(
            change.paths().searchKeywords, book.name, stored(change, arguments.newWord), *oldWord);
  });
  requireInFile(change, book, {arguments.newWord});
  return std::string(change.said("Renamed", "Would rename")) + " the keyword " + arguments.oldWord +
         " of " + titleOf(book) + " to " + arguments.newWord + " in " + change.library() + ".";
}

/// Runs what reads a library's keywords.
template <typename Arguments, typename Listing>
ExitStatus runKeywordListing(const Arguments& arguments, Listing&& listing) {
  const LibraryPaths library(arguments.place.server, arguments.place.library);
  Wiring wiring(library.serverRoot, processTerminal(/*mayAsk=*/false));
  return runListing(wiring, arguments.json, [&] { listing(arguments, library, wiring); });
}

}  // namespace

ExitStatus runListKeywords(const ListKeywordsArguments& arguments) {
  return runKeywordListing(arguments, listKeywords);
}

ExitStatus runFindKeyword(const FindKeywordArguments& arguments) {
  return runKeywordListing(arguments, findKeyword);
}

ExitStatus runAddKeywords(const AddKeywordsArguments& arguments) {
  LibraryChange change(arguments.place, arguments.change);
  return change.run([&] { return addKeywords(change, arguments); });
}

ExitStatus runRenameKeyword(const RenameKeywordArguments& arguments) {
  LibraryChange change(arguments.place, arguments.change);
  return change.run([&] { return renameKeyword(change, arguments); });
}

}  // namespace quorbind
