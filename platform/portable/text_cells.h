#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quorbind {

/// A character as a terminal shows it.
struct TextCell {
  std::string shown;
  /// In columns: 0 of a mark that stands over the character before it, 2 of a wide one.
  std::size_t width = 1;
};

/// The characters of `text`, one cell each, so that nothing in them moves the cursor: a tab is as
/// wide as kTabWidth blanks, a control character is written out (`\x1B`), and so is one that has no
/// shape but changes how others are shown, such as a change of direction (`\u{202E}`).
std::vector<TextCell> cellsOf(std::string_view text);

inline constexpr std::size_t kTabWidth = 4;

/// How many columns a line that visibleText answers takes, without tabs.
std::size_t columnsOf(std::string_view text);

}  // namespace quorbind
