#pragma once

// The keywords and the categories of a run, which a host hands over as one text each.

#include <string>
#include <vector>

#include "platform/text_array.h"

namespace quorbind {

/// The keywords, separated by `;`, as AddKeywords takes them: a single one behind an empty one,
/// because an array of one element adds nothing. A comma is part of a keyword.
TextArray keywordsIn(const std::string& list);

/// What becomes of the categories of a run.
struct ChosenCategories {
  /// Those that the book is filed under, without blanks at their ends.
  std::vector<std::string> taken;
  /// Those that are left out: of several categories, each that holds a markup character.
  std::vector<std::string> leftOut;
};

/// The categories, separated by `;`, or else by `,`. A single one is taken as it is.
ChosenCategories chooseCategories(const std::string& list);

}  // namespace quorbind
