#pragma once

// What a library's side files hold, for the subcommands that list it. Texts are as they are stored.
// A file that can't be read, does not parse or has another root is a CommandFailure that says which
// and where.

#include <string>
#include <string_view>
#include <vector>

#include "platform/platform.h"

namespace quorbind {

struct ListedCategory {
  std::string name;
  std::vector<std::string> acronyms;
};

/// The categories of a library in their order. A file that is not there is a CommandFailure, too.
std::vector<ListedCategory> readCategories(const Platform& platform, const std::string& path);

/// The search keywords of one book.
struct BookKeywords {
  std::string bookName;
  std::vector<std::string> keywords;
};

/// Book by book; none where there is no file yet. Empty keywords, which the first keywords of a
/// file may leave, are none.
std::vector<BookKeywords> readKeywords(const Platform& platform, const std::string& path);

struct ListedLink {
  std::string identifier;
  std::string fullLink;
  std::string sourceFile;
  std::string acronym;
};

/// The document that an identifier leads to: its source without the name of the library in which it
/// was recorded.
std::string_view documentOf(const ListedLink& link);

/// The link identifiers of a library; none where there is no file yet.
std::vector<ListedLink> readLinks(const Platform& platform, const std::string& path);
/// The same, where a file that is not there is a CommandFailure.
std::vector<ListedLink> readExistingLinks(const Platform& platform, const std::string& path);

}  // namespace quorbind
