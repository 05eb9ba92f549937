#include "platform/workbooks/number_display.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <utility>

#include "platform/text.h"
#include "platform/workbooks/decimal.h"

namespace quorbind {

namespace {

using Kind = FormatToken::Kind;
using Tokens = std::vector<FormatToken>;

constexpr int kGeneralWidth = 11;
constexpr int kGroup = 3;

// Numbers without a format

std::string inPowersOfTen(const Decimal& number) {
  constexpr int kMantissaDecimals = 5;
  int exponent = number.point() - 1;
  Decimal mantissa = number.shifted(-exponent).roundedTo(kMantissaDecimals);
  if (mantissa.point() > 1) {
    mantissa = mantissa.shifted(-1);
    ++exponent;
  }
  const std::string digits = std::to_string(std::abs(exponent));
  return mantissa.plain() + (exponent < 0 ? "E-" : "E+") + (digits.size() < 2 ? "0" : "") + digits;
}

std::string generalSize(const Decimal& number) {
  const int wholeDigits = std::max(number.point(), 1);
  const Decimal fitting = number.roundedTo(std::max(kGeneralWidth - 1 - wholeDigits, 0));
  // Of a small number no digit may be lost to the zeros in front of it.
  constexpr int kSmallestPoint = -3;
  const bool keepsItsDigits =
      number.point() >= kSmallestPoint || fitting.digits() == number.digits();
  return fitting.point() <= kGeneralWidth && keepsItsDigits ? fitting.plain()
                                                            : inPowersOfTen(number);
}

// Numbers in a format

std::string paddingFor(const FormatToken& digit) {
  switch (digit.text.front()) {
    case '0':
      return "0";
    case '?':
      return " ";
    default:
      return {};
  }
}

std::size_t countDigits(const Tokens& tokens) {
  return static_cast<std::size_t>(
      std::count_if(tokens.begin(), tokens.end(), [](const FormatToken& token) {
        return token.is(Kind::kDigit);
      }));
}

/// Fills the places of `tokens` with the digits of `number` before its point, from the right; the
/// leftmost place takes all that are left.
std::string fillWhole(const Tokens& tokens, const Decimal& number, bool isGrouped) {
  std::size_t placesLeft = countDigits(tokens);
  std::vector<std::string> pieces;
  int place = 0;
  const auto emit = [&](const std::string& digit) {
    if (isGrouped && place > 0 && place % kGroup == 0 && !digit.empty()) {
      pieces.emplace_back(digit == " " ? " " : ",");
    }
    pieces.push_back(digit);
    ++place;
  };
  for (std::size_t left = tokens.size(); left > 0; --left) {
    const auto& token = tokens[left - 1];
    if (!token.is(Kind::kDigit)) {
      pieces.push_back(token.text);
      continue;
    }
    emit(place < number.point() ? std::string(1, number.digitAt(place)) : paddingFor(token));
    --placesLeft;
    while (placesLeft == 0 && place < number.point()) {
      emit(std::string(1, number.digitAt(place)));
    }
  }
  std::string text;
  for (std::size_t left = pieces.size(); left > 0; --left) {
    text += pieces[left - 1];
  }
  return text;
}

/// Fills the places of `tokens` with the digits of `number` behind its point, from the left.
std::string fillDecimals(const Tokens& tokens, const Decimal& number) {
  std::string text;
  int place = -1;
  for (const FormatToken& token : tokens) {
    if (!token.is(Kind::kDigit)) {
      text += token.text;
      continue;
    }
    const bool hasDigit = number.hasDigitsFrom(place);
    text += hasDigit ? std::string(1, number.digitAt(place)) : paddingFor(token);
    --place;
  }
  return text;
}

/// A pattern of places around a decimal point, taken apart.
struct Pattern {
  Tokens whole;
  Tokens decimals;
  bool hasPoint = false;
  bool isGrouped = false;
  /// The power of ten by which percent signs and trailing commas move the number.
  int shift = 0;

  [[nodiscard]] int decimalPlaces() const { return static_cast<int>(countDigits(decimals)); }
};

Pattern patternOf(const Tokens& tokens) {
  Pattern pattern;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const FormatToken& token = tokens[i];
    Tokens& side = pattern.hasPoint ? pattern.decimals : pattern.whole;
    if (token.is(Kind::kPoint) && !pattern.hasPoint) {
      pattern.hasPoint = true;
    } else if (token.is(Kind::kComma) && countDigits(pattern.whole) > 0) {
      const auto next = std::find_if(
          tokens.begin() + static_cast<std::ptrdiff_t>(i), tokens.end(), [](const auto& later) {
            return later.is(Kind::kDigit) || later.is(Kind::kPoint);
          });
      const bool groups = !pattern.hasPoint && next != tokens.end() && next->is(Kind::kDigit);
      pattern.isGrouped = pattern.isGrouped || groups;
      pattern.shift -= groups ? 0 : kGroup;
    } else {
      pattern.shift += token.is(Kind::kPercent) ? 2 : 0;
      side.push_back(token);
    }
  }
  return pattern;
}

std::string fill(const Pattern& pattern, const Decimal& rounded) {
  std::string text = fillWhole(pattern.whole, rounded, pattern.isGrouped);
  if (pattern.hasPoint) {
    text += '.';
  }
  return text + fillDecimals(pattern.decimals, rounded);
}

std::string displayFixed(const Tokens& tokens, double value) {
  const Pattern pattern = patternOf(tokens);
  return fill(pattern,
              Decimal::of(value).shifted(pattern.shift).roundedTo(pattern.decimalPlaces()));
}

std::string displayInPowersOfTen(const Tokens& tokens,
                                 Tokens::const_iterator exponentMark,
                                 double value) {
  const Pattern pattern = patternOf(Tokens(tokens.begin(), exponentMark));
  const int step = std::max(static_cast<int>(countDigits(pattern.whole)), 1);
  const Decimal number = Decimal::of(value).shifted(pattern.shift);
  const auto exponentOf = [step](const Decimal& size) {
    const int exponent = size.point() - 1;
    return size.isZero() ? 0 : exponent - (((exponent % step) + step) % step);
  };
  int exponent = exponentOf(number);
  Decimal mantissa = number.shifted(-exponent).roundedTo(pattern.decimalPlaces());
  if (const int carried = exponentOf(mantissa); carried > 0) {
    exponent += carried;
    mantissa = mantissa.shifted(-carried);
  }
  const bool showsPlus = exponentMark->text == "e+";
  const char* const sign = exponent < 0 ? "-" : (showsPlus ? "+" : "");
  return fill(pattern, mantissa) + "E" + sign +
         fillWhole(Tokens(std::next(exponentMark), tokens.end()),
                   Decimal::ofInteger(std::abs(exponent)),
                   false);
}

/// Beyond it a numerator would not fit.
constexpr double kLargestInFraction = 1e9;

struct Fraction {
  std::int64_t numerator;
  std::int64_t denominator;
};

/// The fraction that comes nearest to `value`, from 0 to kLargestInFraction, with no denominator
/// above `limit`: found along its continued fraction.
Fraction nearestFraction(double value, std::int64_t limit) {
  constexpr int kSteps = 64;
  Fraction before{0, 1};
  Fraction last{1, 0};
  double rest = value;
  for (int i = 0; i < kSteps; ++i) {
    const auto whole = static_cast<std::int64_t>(rest);
    const Fraction next{before.numerator + whole * last.numerator,
                        before.denominator + whole * last.denominator};
    if (next.denominator > limit) {
      // Between the last two lie fractions that use up the limit.
      const std::int64_t steps = (limit - before.denominator) / last.denominator;
      const Fraction between{before.numerator + steps * last.numerator,
                             before.denominator + steps * last.denominator};
      const auto distance = [value](const Fraction& fraction) {
        return std::abs(value - static_cast<double>(fraction.numerator) /
                                    static_cast<double>(fraction.denominator));
      };
      return distance(between) < distance(last) ? between : last;
    }
    before = std::exchange(last, next);
    constexpr double kNothing = 1e-12;
    const double remainder = rest - static_cast<double>(whole);
    if (remainder < kNothing) {
      break;
    }
    rest = 1 / remainder;
  }
  return last;
}

/// A pattern of places around the slash of a fraction, taken apart.
struct FractionPattern {
  Tokens whole;  ///< empty when there is no place for whole numbers
  Tokens numerator;
  Tokens denominator;
  Tokens tail;
  std::int64_t fixedDenominator = 0;
};

bool isPlace(const FormatToken& token) {
  return token.is(Kind::kDigit);
}

/// A digit of a denominator that is written out, as in `#/16`.
bool isWrittenDigit(const FormatToken& token) {
  const std::string& text = token.text;
  return text.size() == 1 && text.front() >= '0' && text.front() <= '9';
}

FractionPattern fractionPatternOf(const Tokens& tokens, Tokens::const_iterator slash) {
  FractionPattern pattern;
  const auto numerator =
      std::find_if_not(std::make_reverse_iterator(slash), tokens.rend(), isPlace).base();
  pattern.whole.assign(tokens.begin(), numerator);
  pattern.numerator.assign(numerator, slash);
  const auto begin = std::next(slash);
  const bool isFixed = begin != tokens.end() && isWrittenDigit(*begin) && begin->text != "0";
  const auto end = std::find_if_not(begin, tokens.end(), isFixed ? isWrittenDigit : isPlace);
  pattern.denominator.assign(begin, end);
  pattern.tail.assign(end, tokens.end());
  if (isFixed) {
    constexpr std::size_t kLongestDenominator = 6;
    for (const FormatToken& digit : pattern.denominator) {
      if (std::to_string(pattern.fixedDenominator).size() < kLongestDenominator) {
        pattern.fixedDenominator = pattern.fixedDenominator * 10 + (digit.text.front() - '0');
      }
    }
  }
  return pattern;
}

Fraction fractionFor(const FractionPattern& pattern, double value) {
  if (pattern.fixedDenominator > 0) {
    const auto denominator = static_cast<double>(pattern.fixedDenominator);
    return {std::llround(value * denominator), pattern.fixedDenominator};
  }
  constexpr std::size_t kMostPlaces = 6;
  std::int64_t limit = 1;
  for (std::size_t i = 0; i < std::min(pattern.denominator.size(), kMostPlaces); ++i) {
    limit *= 10;
  }
  return nearestFraction(value, std::max<std::int64_t>(limit - 1, 1));
}

/// The denominator stands at the left of its places.
std::string fillDenominator(const FractionPattern& pattern, const Fraction& fraction) {
  std::string text = std::to_string(fraction.denominator);
  for (std::size_t i = text.size(); i < pattern.denominator.size(); ++i) {
    text += paddingFor(pattern.denominator[i]);
  }
  return text;
}

std::string plainText(const Tokens& tokens) {
  std::string text;
  for (const FormatToken& token : tokens) {
    text += token.text;
  }
  return text;
}

/// Makes the last place one that shows a zero too.
void showZero(Tokens& tokens) {
  const auto last = std::find_if(tokens.rbegin(), tokens.rend(), isPlace);
  last->text = "0";
}

std::string displayFraction(const Tokens& tokens, Tokens::const_iterator slash, double value) {
  FractionPattern pattern = fractionPatternOf(tokens, slash);
  const bool hasWhole = countDigits(pattern.whole) > 0;
  const double size = std::abs(value);
  if (!hasWhole && size > kLargestInFraction) {
    return generalSize(Decimal::of(value));
  }
  double whole = hasWhole ? std::floor(size) : 0;
  Fraction fraction = fractionFor(pattern, size - whole);
  if (hasWhole && fraction.numerator == fraction.denominator) {
    whole += 1;
    fraction.numerator = 0;
  }
  if (hasWhole && fraction.numerator == 0) {
    showZero(pattern.whole);
  }
  std::string text =
      hasWhole ? fillWhole(pattern.whole, Decimal::of(whole), false) : plainText(pattern.whole);
  const std::string shown =
      fillWhole(pattern.numerator, Decimal::ofInteger(fraction.numerator), false) + "/" +
      fillDenominator(pattern, fraction);
  // A whole number has no fraction, only the room for one.
  text += hasWhole && fraction.numerator == 0 ? std::string(shown.size(), ' ') : shown;
  return text + plainText(pattern.tail);
}

std::string displayWithoutPlaces(const Tokens& tokens, double value) {
  std::string text;
  for (const FormatToken& token : tokens) {
    const bool isNumber = token.is(Kind::kGeneral) || token.is(Kind::kText);
    text += isNumber ? generalSize(Decimal::of(value)) : token.text;
  }
  return text;
}

}  // namespace

std::string displayNumber(const FormatSection& section, double value) {
  const Tokens& tokens = section.tokens;
  if (!section.has(Kind::kDigit) || section.has(Kind::kGeneral)) {
    return displayWithoutPlaces(tokens, value);
  }
  const auto find = [&tokens](Kind kind) {
    return std::find_if(
        tokens.begin(), tokens.end(), [kind](const FormatToken& token) { return token.is(kind); });
  };
  if (const auto mark = find(Kind::kExponent); mark != tokens.end()) {
    return displayInPowersOfTen(tokens, mark, value);
  }
  if (const auto slash = find(Kind::kSlash); slash != tokens.end()) {
    return displayFraction(tokens, slash, value);
  }
  return displayFixed(tokens, value);
}

}  // namespace quorbind
