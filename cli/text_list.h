#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quorbind {

/// The texts one behind the other, with `separator` between them.
std::string joined(const std::vector<std::string>& texts, std::string_view separator);

/// A list from the command line: its pieces at `;`, or else at `,`, without the blanks around them;
/// empty ones are left out.
std::vector<std::string> splitList(std::string_view list);

/// A list as the component answers it, without the empty entry at its end.
std::vector<std::string> withoutLastEntry(std::vector<std::string> published);

/// `1 file`, `2 files`.
std::string counted(std::size_t count, std::string_view one, std::string_view several);

}  // namespace quorbind
