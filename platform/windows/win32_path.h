#pragma once

// Names as the platform's file calls take them.

#include <string>
#include <string_view>

namespace quorbind {

/// The full name that `name` stands for, `.` and `..` and doubled separators resolved; a separator
/// at its end stays. Nothing needs to be able to stand there. Raises 52 for an empty name, for one
/// with a NUL and for that of a device.
std::wstring fullPath(std::string_view name);

/// A full name in the form that has no limit of 260 characters.
std::wstring extendedPath(std::wstring_view fullPath);

/// `fullPath` without separators at its end, unless it is the root of its drive.
std::wstring_view withoutTrailingSeparator(std::wstring_view fullPath);

/// The extended form of what stands for a file or a folder. Raises 52 for a name that none can
/// have.
std::wstring pathOf(std::string_view name);

/// The extended form of what can only stand for a file. Raises 75 as well, for a name that ends
/// with a separator.
std::wstring pathOfFile(std::string_view name);

}  // namespace quorbind
