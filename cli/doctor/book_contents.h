#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/platform.h"

namespace quorbind {

/// The text of an element of a book file, with its line; 0 where there is no such element.
struct StatedText {
  std::string text;
  std::size_t line = 0;
};

/// A document that a book file names, with the line on which it does so first.
struct UsedDocument {
  /// As the book file has it, without a bookmark; in the book's folder.
  std::string name;
  std::size_t line = 0;
};

/// What a book file says of its book and of its documents.
struct BookContents {
  StatedText name;
  StatedText acronym;
  StatedText path;
  std::size_t headings = 0;
  /// The main file and the documents of the headings, each once and in their order.
  std::vector<UsedDocument> documents;
};

/// Looks through the book file at `path`. One that can't be read, does not parse or describes no
/// book is a CommandFailure that says which and where.
BookContents readBookContents(const Platform& platform, const std::string& path);

}  // namespace quorbind
