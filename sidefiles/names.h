#pragma once

#include <string_view>

// The names in a library's file of link identifiers: under the root one list, in it one entry per
// identifier.

namespace quorbind::link_names {

inline constexpr std::string_view kFile = "Quor_LinkID.xml";
inline constexpr std::string_view kDescription = "Inter Book Linking data file";
inline constexpr std::string_view kLinks = "LINKS";
inline constexpr std::string_view kList = "IBD";
inline constexpr std::string_view kId = "ID";
inline constexpr std::string_view kLinkId = "LinkID";
inline constexpr std::string_view kFullLink = "FullLink";
inline constexpr std::string_view kSourceFile = "LinkIDSourceFile";
inline constexpr std::string_view kBookAcro = "BookAcro";

}  // namespace quorbind::link_names
