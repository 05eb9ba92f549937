#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorbind {

// What names typed in the dialogs must not hold. Each function answers the message that tells the
// user so, or nothing when the name obeys the rule.

std::optional<std::string> refusalOfBookName(std::string_view name);
/// The acronym becomes part of file names, hence its longer list.
std::optional<std::string> refusalOfAcronym(std::string_view acronym);
std::optional<std::string> refusalOfFolder(std::string_view folder);

}  // namespace quorbind
