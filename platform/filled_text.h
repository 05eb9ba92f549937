#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorbind {

/// What stands for the words in braces of a text, by the word.
using TextWords = std::vector<std::pair<std::string_view, std::string>>;

/// `text` with every word in braces, as in `{FILE}`, turned into what `words` has for it, which has
/// to be there. Values are put in once: braces that stand in one mean nothing.
std::string filledText(std::string_view text, const TextWords& words);

}  // namespace quorbind
