#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorbind {

// What names typed in the dialogs, and other texts that a library keeps, must not hold. Each
// function answers the message that tells the user so, or nothing when the text obeys the rule.

std::optional<std::string> refusalOfBookName(std::string_view name);
/// The acronym becomes part of file names, hence its longer list.
std::optional<std::string> refusalOfAcronym(std::string_view acronym);
std::optional<std::string> refusalOfFolder(std::string_view folder);
/// Of any text that goes into an XML file as it is. With a character that none can hold it would
/// stand there as another text, and would not be found again.
std::optional<std::string> refusalOfCharacters(std::string_view text);

}  // namespace quorbind
