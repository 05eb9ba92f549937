#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "resources/explanations.h"

namespace quorbind {

/// The messages that a person asks about: the one of that number, or every one whose box holds what
/// is asked, or else those whose texts stand in it, of each line the longest, in any ASCII letter
/// case. So a box can be pasted whole. Texts that are only a part of others are found by their
/// number, or when nothing else is; by words of theirs the messages are found to which they belong.
/// In the order of the table.
std::vector<Explanation> explanationsFor(std::string_view question);

/// What would be accepted instead of what the box `box` refuses, one sentence; empty where the box
/// refuses nothing that the table knows.
std::string_view acceptedInsteadOf(std::string_view box);

/// A text of the table as a person reads it: its words in braces are told by their capitals alone.
std::string plainText(std::string_view text);

/// The whole box that shows the message, lines separated by LF, with words in capitals for what
/// differs from box to box.
std::string shownBox(const Explanation& explanation);

/// A topic in one word, as lists and JSON name it.
std::string_view wordFor(Topic topic);

}  // namespace quorbind
