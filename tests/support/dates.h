#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace quorbind::testing {

/// A text whose dates with a time of the day read DATE. Nothing else is of these letters and has
/// two of each separator.
inline std::string withoutDates(std::string text) {
  constexpr std::string_view kDigits = "0123456789";
  constexpr std::string_view kLetters = "0123456789/: APM";
  std::size_t from = text.find_first_of(kDigits);
  while (from != std::string::npos) {
    std::size_t to = std::min(text.find_first_not_of(kLetters, from), text.size());
    const std::string_view run = std::string_view(text).substr(from, to - from);
    if (std::ranges::count(run, '/') == 2 && std::ranges::count(run, ':') == 2) {
      text.replace(from, to - from, "DATE");
      to = from;
    }
    from = text.find_first_of(kDigits, to);
  }
  return text;
}

}  // namespace quorbind::testing
