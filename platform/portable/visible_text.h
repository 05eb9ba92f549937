#pragma once

#include <string>
#include <string_view>

namespace quorbind {

/// `text` as it may reach a terminal: valid UTF-8 in which control characters are written out
/// (`\x1B`), so that no text out of a document moves the cursor or changes the terminal's state,
/// and those that turn the characters behind them round or end a line (`\u{202E}`). A tab stays,
/// and so does what shapes or joins characters of a plain text; a line end is a control character
/// like any other.
std::string visibleText(std::string_view text);

/// Whether a terminal may do something else with the character than show it, as above. A tab is
/// none.
bool isObeyed(char32_t character);

/// `\u{202E}`
std::string writtenOut(char32_t character);

/// The same for a text of several lines: CR LF, LF and a lone CR are line ends and come out as LF.
/// A line beyond kLongestVisibleLine bytes is cut, and says how much is missing.
std::string visibleLines(std::string_view text);

inline constexpr std::size_t kLongestVisibleLine = 2000;

}  // namespace quorbind
