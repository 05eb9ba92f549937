#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/arguments.h"
#include "cli/exit_status.h"
#include "cli/library_change.h"

namespace quorbind {

struct ListKeywordsArguments {
  LibraryArguments place;
  /// As it is typed; all books when not given.
  std::optional<std::string> book;
  bool json = false;
};

struct FindKeywordArguments {
  LibraryArguments place;
  std::string word;
  bool json = false;
};

struct AddKeywordsArguments {
  LibraryArguments place;
  ChangeFlags change;
  std::string book;
  std::vector<std::string> words;
};

struct RenameKeywordArguments {
  LibraryArguments place;
  ChangeFlags change;
  std::string book;
  std::string oldWord;
  std::string newWord;
};

/// Prints the search keywords of a book, or of all.
ExitStatus runListKeywords(const ListKeywordsArguments& arguments);
/// Prints the books that have a keyword.
ExitStatus runFindKeyword(const FindKeywordArguments& arguments);
ExitStatus runAddKeywords(const AddKeywordsArguments& arguments);
ExitStatus runRenameKeyword(const RenameKeywordArguments& arguments);

}  // namespace quorbind
