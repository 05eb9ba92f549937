#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "tests/support/random_choices.h"

namespace quorbind::testing {

/// A document that a book file names.
struct StatedDocument {
  /// As it is meant, whatever it is written like.
  std::string name;
  /// On which the start tag of its element ends, counted from 1.
  std::size_t line = 0;

  bool operator==(const StatedDocument&) const = default;
};

/// A text of a book file.
struct StatedText {
  std::string text;
  /// As that of a document.
  std::size_t line = 0;
};

/// A book file, and what somebody who wrote it down meant by it.
struct RandomBookFile {
  std::string bytes;
  std::optional<StatedText> name;
  std::optional<StatedText> acronym;
  std::optional<StatedText> path;
  bool hasKey = false;
  /// In the order of the file.
  std::vector<StatedDocument> mainFiles;
  std::vector<StatedDocument> documents;
};

/// With headings inside each other, start tags over several lines, texts in every way in which XML
/// writes them, and what looks like a document in comments and sections.
RandomBookFile randomBookFile(RandomChoices& random);

/// The documents that stand beside the book file, as it may name them.
const std::set<std::string>& documentsBeside();

/// Which file beside the book file a name that such a file states leads to, with `/`; nothing for
/// one that leads nowhere below its folder.
std::optional<std::string> fileOfName(const std::string& name);

}  // namespace quorbind::testing
