#include "platform/number.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <string>
#include <system_error>

#include "platform/runtime_error.h"
#include "platform/text.h"

namespace quorbind {

namespace {

constexpr std::string_view kWhiteSpace = " \t\r\n";

/// Farther than any text has digits, and far enough from the ends of the type to count on with.
constexpr std::int64_t kFarthestExponent = std::numeric_limits<std::int64_t>::max() / 4;

/// More digits than this before the point make a number that no 16 bits hold.
constexpr std::int64_t kMostWholeDigits = std::numeric_limits<std::int16_t>::digits10 + 1;

/// A number without its sign. It keeps all its digits, because the last of thousands may be the one
/// that decides how a half is rounded.
struct Decimal {
  std::string digits;  ///< without zeros in front
  /// How many of the digits stand before the decimal point; below 0, how many zeros between it and
  /// the first of them.
  std::int64_t point = 0;
};

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

/// Takes the sign off `text`, which may stand at either end of it, and answers whether the number
/// is negative.
bool takeSign(std::string_view& text) {
  const auto isSign = [](char c) { return c == '+' || c == '-'; };
  const bool isInFront = !text.empty() && isSign(text.front());
  const bool isBehind = !isInFront && !text.empty() && isSign(text.back());
  if (!isInFront && !isBehind) {
    return false;
  }
  const char sign = isInFront ? text.front() : text.back();
  text = trimAnyOf(text.substr(isInFront ? 1 : 0, text.size() - 1), kWhiteSpace);
  return sign == '-';
}

/// Takes digits, commas and the decimal point off the front of `text`. A comma separates nothing
/// before the first digit; where it stands among the others does not matter.
Decimal takeDigits(std::string_view& text) {
  Decimal number;
  bool hasDigit = false;
  bool hasPoint = false;
  for (; !text.empty(); text.remove_prefix(1)) {
    const char c = text.front();
    if (isDigit(c)) {
      hasDigit = true;
      const bool counts = c != '0' || !number.digits.empty();
      if (counts) {
        number.digits.push_back(c);
      }
      number.point += (counts ? 1 : 0) - (hasPoint ? 1 : 0);
    } else if (c == '.' && !hasPoint) {
      hasPoint = true;
    } else if (c != ',' || !hasDigit) {
      break;
    }
  }
  if (!hasDigit) {
    raise(ErrorNumber::kTypeMismatch);
  }
  return number;
}

/// `text` is all of the exponent, and may be empty.
std::int64_t toExponent(std::string_view text) {
  if (text.empty()) {
    return 0;
  }
  if (text.front() != 'e' && text.front() != 'E') {
    raise(ErrorNumber::kTypeMismatch);
  }
  text.remove_prefix(1);
  const bool isNegative = text.starts_with('-');
  if (isNegative || text.starts_with('+')) {
    text.remove_prefix(1);
  }
  if (text.empty() || !std::all_of(text.begin(), text.end(), isDigit)) {
    raise(ErrorNumber::kTypeMismatch);
  }
  std::int64_t exponent = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), exponent);
  if (result.ec == std::errc::result_out_of_range || exponent > kFarthestExponent) {
    exponent = kFarthestExponent;
  }
  return isNegative ? -exponent : exponent;
}

std::int32_t roundHalfToEven(const Decimal& number) {
  // Without zeros at their end the digits behind the point compare like the numbers they are.
  const std::string_view digits(number.digits.data(), number.digits.find_last_not_of('0') + 1);
  if (digits.empty() || number.point < 0) {
    return 0;
  }
  if (number.point > kMostWholeDigits) {
    raise(ErrorNumber::kOverflow);
  }
  const auto wholeDigits = static_cast<std::size_t>(number.point);
  std::int32_t whole = 0;
  for (std::size_t at = 0; at < wholeDigits; ++at) {
    whole = 10 * whole + (at < digits.size() ? digits[at] - '0' : 0);
  }
  const std::string_view fraction = digits.substr(std::min(wholeDigits, digits.size()));
  const bool isUp = fraction > "5" || (fraction == "5" && whole % 2 != 0);
  return whole + (isUp ? 1 : 0);
}

std::int16_t fromDecimal(std::string_view text) {
  const bool isNegative = takeSign(text);
  Decimal number = takeDigits(text);
  number.point += toExponent(text);
  const std::int32_t magnitude = roundHalfToEven(number);
  const std::int32_t value = isNegative ? -magnitude : magnitude;
  if (value < std::numeric_limits<std::int16_t>::min() ||
      value > std::numeric_limits<std::int16_t>::max()) {
    raise(ErrorNumber::kOverflow);
  }
  return static_cast<std::int16_t>(value);
}

/// The 16 bits that `digits` write down, as a number with a sign.
std::int16_t fromBits(std::string_view digits, int base) {
  std::uint16_t bits = 0;
  const char* end = digits.data() + digits.size();
  const auto result = std::from_chars(digits.data(), end, bits, base);
  if (result.ptr != end || result.ec == std::errc::invalid_argument) {
    raise(ErrorNumber::kTypeMismatch);
  }
  if (result.ec == std::errc::result_out_of_range) {
    raise(ErrorNumber::kOverflow);
  }
  return static_cast<std::int16_t>(bits);
}

}  // namespace

std::int16_t toInteger16(std::string_view text) {
  constexpr std::size_t kPrefixLength = 2;
  const std::string_view number = trimAnyOf(text, kWhiteSpace);
  const std::string_view prefix = number.substr(0, kPrefixLength);
  if (prefix == "&H" || prefix == "&h") {
    return fromBits(number.substr(kPrefixLength), 16);
  }
  if (prefix == "&O" || prefix == "&o") {
    return fromBits(number.substr(kPrefixLength), 8);
  }
  return fromDecimal(number);
}

}  // namespace quorbind
