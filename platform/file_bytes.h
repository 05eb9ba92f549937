#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quorbind {

class FileSystem;

/// All bytes of a file; nothing when there are more than `limit`. Raises what opening it and
/// reading it raise.
std::optional<std::string> bytesOf(FileSystem& files, std::string_view path, std::size_t limit);

/// Raises what opening a file raises, and reading it: a folder may open, a broken disk too.
void requireReadable(FileSystem& files, std::string_view path);

}  // namespace quorbind
