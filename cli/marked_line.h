#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "cli/line_place.h"

namespace quorbind {

/// A line, with its number or another label in front, as a person is shown it: what moves the
/// cursor is made visible, and what goes beyond kMarkedLineWidth columns is cut around the mark and
/// says so by `...`. Under it `^` marks `length` characters from the one at `column` on, counted
/// from 1, at least one; nothing where `column` is 0. Two lines, or one, each ended by LF.
std::string markedLine(std::string_view label,
                       std::string_view text,
                       std::size_t column,
                       std::size_t length);

/// A line at fault, with its number in front.
std::string markedLine(const FaultyLine& line);

inline constexpr std::size_t kMarkedLineWidth = 72;

}  // namespace quorbind
