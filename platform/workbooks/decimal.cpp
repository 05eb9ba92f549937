#include "platform/workbooks/decimal.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

namespace quorbind {

namespace {

constexpr int kSignificantDigits = 15;

/// Adds one to the last of `digits`; answers whether that made them one longer.
bool countUp(std::string& digits) {
  const std::size_t place = digits.find_last_not_of('9');
  const std::size_t nines = place == std::string::npos ? 0 : place + 1;
  std::fill(digits.begin() + static_cast<std::ptrdiff_t>(nines), digits.end(), '0');
  if (nines > 0) {
    ++digits[place];
    return false;
  }
  digits.insert(digits.begin(), '1');
  return true;
}

}  // namespace

Decimal::Decimal(std::string digits, int point) : digits_(std::move(digits)), point_(point) {
  const std::size_t first = std::min(digits_.find_first_not_of('0'), digits_.size());
  digits_.erase(0, first);
  digits_.erase(digits_.find_last_not_of('0') + 1);
  point_ = digits_.empty() ? 0 : point_ - static_cast<int>(first);
}

// Written as d.dddE+nn, the digits without their point are those behind "0.", ten times as small.
Decimal Decimal::of(double value) {
  constexpr std::size_t kRoomForMarks = 16;
  std::string text(kSignificantDigits + kRoomForMarks, '\0');
  const auto written = std::to_chars(text.data(),
                                     text.data() + text.size(),
                                     std::abs(value),
                                     std::chars_format::scientific,
                                     kSignificantDigits - 1);
  text.resize(static_cast<std::size_t>(written.ptr - text.data()));
  const std::size_t mark = text.find('e');
  const bool isNegative = text[mark + 1] == '-';
  int exponent = 0;
  std::from_chars(text.data() + mark + 2, text.data() + text.size(), exponent);
  text.resize(mark);
  text.erase(1, 1);
  return {text, (isNegative ? -exponent : exponent) + 1};
}

Decimal Decimal::ofInteger(long long value) {
  std::string digits = std::to_string(value);
  const int count = static_cast<int>(digits.size());
  return {std::move(digits), count};
}

char Decimal::digitAt(int place) const {
  const int index = point_ - 1 - place;
  const bool isInside = index >= 0 && index < static_cast<int>(digits_.size());
  return isInside ? digits_[static_cast<std::size_t>(index)] : '0';
}

bool Decimal::hasDigitsFrom(int place) const {
  return !isZero() && point_ - static_cast<int>(digits_.size()) <= place;
}

Decimal Decimal::shifted(int places) const {
  return {digits_, point_ + places};
}

Decimal Decimal::roundedTo(int decimals) const {
  const int kept = point_ + decimals;
  if (kept < 0) {
    return {"", 0};
  }
  if (kept >= static_cast<int>(digits_.size())) {
    return *this;
  }
  const auto length = static_cast<std::size_t>(kept);
  std::string digits = digits_.substr(0, length);
  const bool isLonger = digits_[length] >= '5' && countUp(digits);
  return {std::move(digits), point_ + (isLonger ? 1 : 0)};
}

std::string Decimal::plain() const {
  const int last = std::min(0, point_ - static_cast<int>(digits_.size()));
  std::string text;
  for (int place = std::max(point_ - 1, 0); place >= last; --place) {
    if (place == -1) {
      text += '.';
    }
    text += digitAt(place);
  }
  return text;
}

}  // namespace quorbind
