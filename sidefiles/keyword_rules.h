#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/platform.h"
#include "platform/user_interface.h"

namespace quorbind {

class XmlTextRules;

/// The field that keywords are entered in, as messages name it.
inline constexpr std::string_view kKeywordsField = "Keywords";

/// Why a text can't be a search keyword.
struct KeywordFault {
  UserMessage box;
  /// Whether the keywords behind it in a list are left out as well.
  bool endsList = false;
};

/// The rules for keywords: no "##", no blank inside, no text of a markup character. Blanks at the
/// ends don't count. Nothing for a keyword that obeys them; nobody is told.
std::optional<KeywordFault> findKeywordFault(std::string_view keyword);

/// A keyword as it is stored: without blanks at its ends, markup characters replaced. Raises what
/// `rules` raises.
std::string storedKeyword(XmlTextRules& rules, std::string_view keyword);

/// Whether `strCurWord` holds none of the texts that stand for markup characters. When it does, the
/// user is told of the first, and that it can't be used in the field `strBook`.
bool CheckXMLCharacters(const Platform& platform,
                        std::string_view strCurWord,
                        std::string_view strBook);

}  // namespace quorbind
