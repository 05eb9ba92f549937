#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/platform.h"

namespace quorbind {

/// A place in a table of contents that consists of lines. Lines and the characters of a line are
/// counted from 1; what is 0 can't be told, and neither can what follows it.
struct LinePlace {
  std::size_t line = 0;
  /// The character at which the fault begins, and how many characters it has on this line.
  std::size_t column = 0;
  std::size_t length = 0;
};

/// A line that is to blame: the place on it, and the whole line.
struct FaultyLine {
  LinePlace place;
  std::string text;
};

/// The place of `part`, a view into `line`, which has that number.
LinePlace placeOfPart(std::size_t number, std::string_view line, std::string_view part);

/// The line with that number of the table of contents at `path`, which the component names so and
/// which is of that kind. Nothing when there is none such, the file can't be read, or either is too
/// large to be shown to anybody.
std::optional<std::string> lineOfFile(const Platform& platform,
                                      const std::string& path,
                                      std::int16_t kind,
                                      std::size_t number);

}  // namespace quorbind
