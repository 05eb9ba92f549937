#pragma once

#include <string_view>

// What the comments at the top of generated files have in common.

namespace quorbind::file_comment {

inline constexpr std::string_view kMaker = "Quorbind Documentation Tools, Library Tools Group";
inline constexpr std::string_view kFamily = "Quor Documentation Library";
inline constexpr std::string_view kProduct = "Quorbind";
inline constexpr std::string_view kVersion = "Version 0.1";
inline constexpr std::string_view kContact = "Information 'quorbind@example.com'";

}  // namespace quorbind::file_comment
