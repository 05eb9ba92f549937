#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorbind {

/// How many letters have to be left out, put in, exchanged or swapped with their neighbour to make
/// one word of the other.
std::size_t editDistance(std::string_view left, std::string_view right);

/// ` Did you mean 'check'?` when some of `known` are so near to `word`, whatever the letter case,
/// that it is probably a slip of the hand, all of those that are equally near; empty when none is.
/// One that begins with three letters or more of `word`, and that is all of it, is as near as one
/// that is a letter away.
std::string suggestionFor(std::string_view word, const std::vector<std::string>& known);

}  // namespace quorbind
