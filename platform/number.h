#pragma once

#include <cstdint>
#include <string_view>

namespace quorbind {

/// `text` as a 16-bit integer, in the way a person writes numbers: one sign before or after it,
/// digits with commas and one decimal point, an exponent (`1e2`), or behind the prefixes `&H` and
/// `&O` its 16 bits in hexadecimal or octal (`&HFFFF` is -1; no sign). Blanks, tabs and line ends
/// may stand around the number and beside its sign. Fractions are rounded half to even (0.5 is 0,
/// 1.5 and 2.5 are 2), by all their digits.
///
/// Raises 6 (Overflow) when the value is not within -32768 to 32767, and 13 (Type mismatch) for
/// everything that is not a number, the empty text and `True` included.
std::int16_t toInteger16(std::string_view text);

}  // namespace quorbind
