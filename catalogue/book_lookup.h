#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/xml_document.h"

namespace quorbind {

// How the operations on a catalogue find a book, and in which form they answer a list. Values stand
// between double quotation marks; one that holds such a mark raises kInvalidQueryError.

/// The query for the books whose name is stored as `name`.
std::string booksNamed(std::string_view name);
/// The query for the books whose acronym is stored as `acronym`.
std::string booksWithAcronym(std::string_view acronym);

/// The texts of `nodes`, and behind them the one empty entry that hosts expect at the end of a
/// list.
std::vector<std::string> publishedList(const std::vector<XmlNode>& nodes);

/// The same of all elements of that name in a file. Nothing for a file that does not load.
std::optional<std::vector<std::string>> publishedTexts(XmlLibrary& xml,
                                                       std::string_view path,
                                                       std::string_view name);

}  // namespace quorbind
