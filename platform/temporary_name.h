#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorbind {

/// A file is replaced by way of a temporary beside it, whose name is that of the file and behind it
/// this, eight hexadecimal digits and kTemporaryExtension: `Quor_TOC.xml.quorbind-1c0ffee5.tmp`.
/// One that a killed process left behind is known by this, and may be deleted.
inline constexpr std::string_view kTemporaryInfix = ".quorbind-";
inline constexpr std::string_view kTemporaryExtension = ".tmp";

/// What is put behind the name of the file.
std::string temporaryEnding(std::uint32_t number);

/// Whether the name is that of a file with such an ending behind it.
bool isTemporaryName(std::string_view name);

}  // namespace quorbind
