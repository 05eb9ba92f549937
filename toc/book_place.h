#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/platform.h"

namespace quorbind {

/// Where a table of contents itself says that its book belongs.
struct StatedPlace {
  /// The line that states it, counted from 1.
  std::size_t line = 0;
  /// The folder below the library's; empty for the library's own, nothing when none is stated.
  std::optional<std::string> folder;
  /// Why the stated folder may not be used: it leads out of the library, breaks the rules of the
  /// folder dialog, or would have another name in the catalogue. Nothing may be written then.
  std::optional<std::string> refusal;
};

/// Why a book may not lie in `folder`, a folder below the library's that `stated` was read as;
/// nothing when it may.
std::optional<std::string> refusalOfStatedFolder(const std::string& folder,
                                                 std::string_view stated);

/// The place that the file name of a book's first entry states, which stands in that line.
StatedPlace statedPlaceOf(std::string_view file, std::size_t line);

/// The place that the first of `entries`, in the intermediate text form, states; it stands in that
/// line. An entry ends with its line, also where a field holds the end of it.
StatedPlace statedPlaceInEntries(std::string_view entries, std::size_t line);

/// Reads it from a table of contents in the intermediate text form. Raises what opening the file
/// raises.
StatedPlace readStatedPlace(const Platform& platform, std::string_view tocPath);

}  // namespace quorbind
