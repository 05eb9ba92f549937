#include "cli/marked_line.h"

#include <algorithm>
#include <vector>

#include "platform/portable/text_cells.h"
#include "platform/portable/visible_text.h"

namespace quorbind {

namespace {

constexpr std::string_view kCut = "...";
/// How much of a cut line stands in front of the mark.
constexpr std::size_t kWidthBeforeMark = 32;

/// What is shown of a line: the cells from `begin` to `end`.
struct Window {
  std::size_t begin = 0;
  std::size_t end = 0;
};

using Cells = std::vector<TextCell>;

std::size_t widthOf(const Cells& cells, const Window& window) {
  std::size_t width = 0;
  for (std::size_t at = window.begin; at < window.end; ++at) {
    width += cells[at].width;
  }
  return width;
}

Window windowAround(const Cells& cells, std::size_t mark) {
  if (widthOf(cells, {0, cells.size()}) <= kMarkedLineWidth) {
    return {0, cells.size()};
  }
  Window window{mark, mark};
  for (std::size_t width = 0;
       window.begin > 0 && (width += cells[window.begin - 1].width) <= kWidthBeforeMark;) {
    --window.begin;
  }
  window.end = window.begin;
  for (std::size_t width = 0;
       window.end < cells.size() && (width += cells[window.end].width) <= kMarkedLineWidth;) {
    ++window.end;
  }
  return window;
}

}  // namespace

std::string markedLine(std::string_view label,
                       std::string_view text,
                       std::size_t column,
                       std::size_t length) {
  const Cells cells = cellsOf(text);
  const std::size_t mark = std::min(column == 0 ? 0 : column - 1, cells.size());
  const Window window = windowAround(cells, mark);
  const std::string gutter = visibleText(label);
  const std::string cutBefore(window.begin > 0 ? kCut : "");

  std::string shown = "  " + gutter + " | " + cutBefore;
  for (std::size_t at = window.begin; at < window.end; ++at) {
    shown += cells[at].shown;
  }
  shown.append(window.end < cells.size() ? kCut : "");
  shown.erase(shown.find_last_not_of(' ') + 1);
  shown += '\n';
  if (column == 0) {
    return shown;
  }
  const std::size_t before = cutBefore.size() + widthOf(cells, {window.begin, mark});
  const std::size_t markEnd = std::min(mark + length, window.end);
  const std::size_t marked =
      std::max<std::size_t>(1, mark < markEnd ? widthOf(cells, {mark, markEnd}) : 0);
  return shown + "  " + std::string(gutter.size(), ' ') + " | " + std::string(before, ' ') +
         std::string(marked, '^') + '\n';
}

std::string markedLine(const FaultyLine& line) {
  return markedLine(
      std::to_string(line.place.line), line.text, line.place.column, line.place.length);
}

}  // namespace quorbind
