#pragma once

#include <string>
#include <string_view>

namespace quorbind {

/// `text` in upper case, character by character: the number of characters never changes (`ß`
/// stays). Bytes that are not UTF-8 stay as they are.
std::string simpleUpperCase(std::string_view text);

}  // namespace quorbind
