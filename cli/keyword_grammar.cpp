// keywords list|find|add|rename: the search keywords of a library's books.

#include "cli/grammar.h"
#include "cli/keyword_commands.h"

namespace quorbind {

namespace {

void offerKeywordList(CLI::App& group, Task& task) {
  auto [command, arguments] =
      offer(group, task, "list", "List the keywords of a book, or of all books", runListKeywords);
  command.add_option("BOOK", arguments.book, "Name of the book, as 'books' shows it")
      ->option_text(" ");
  addPlace(command, arguments.place);
  addJson(command, arguments.json);
}

void offerKeywordFind(CLI::App& group, Task& task) {
  auto [command, arguments] =
      offer(group, task, "find", "List the books that have a keyword", runFindKeyword);
  addWord(command, "WORD", arguments.word, "The keyword, in any letter case");
  addPlace(command, arguments.place);
  addJson(command, arguments.json);
}

void offerKeywordAdd(CLI::App& group, Task& task) {
  auto [command, arguments] = offer(group, task, "add", "Add keywords to a book", runAddKeywords);
  addWord(command, "BOOK", arguments.book, "Name of the book, as 'books' shows it");
  command.add_option("WORD", arguments.words, "The keywords")
      ->required()
      ->check(refusalOfBlankText)
      ->option_text("...");
  addPlace(command, arguments.place);
  addChange(command, arguments.change);
  command.footer(
      "A keyword holds no blank and no '##'. With one that is refused none is added. One that\n"
      "the book has already is not added twice.");
}

void offerKeywordRename(CLI::App& group, Task& task) {
  auto [command, arguments] =
      offer(group, task, "rename", "Replace a keyword of a book", runRenameKeyword);
  addWord(command, "BOOK", arguments.book, "Name of the book, as 'books' shows it");
  addWord(command, "OLD", arguments.oldWord, "The keyword");
  addWord(command, "NEW", arguments.newWord, "What it is replaced by");
  addPlace(command, arguments.place);
  addChange(command, arguments.change);
}

}  // namespace

void offerKeywordSubcommands(CLI::App& app, Task& task) {
  CLI::App& group = offerGroup(app, "keywords", "The search keywords of a library's books");
  offerKeywordList(group, task);
  offerKeywordFind(group, task);
  offerKeywordAdd(group, task);
  offerKeywordRename(group, task);
}

}  // namespace quorbind
