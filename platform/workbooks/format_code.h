#pragma once

// The number formats of spreadsheets as they are written: up to four sections between semicolons,
// for positive and negative numbers, for zero and for texts, each a row of marks and plain text.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorbind {

struct FormatToken {
  enum class Kind {
    kLiteral,    ///< text that stands for itself
    kDigit,      ///< `0`, `#` or `?`
    kPoint,      ///< the decimal point
    kComma,      ///< between digits it groups them, behind them it divides by a thousand
    kPercent,    ///< multiplies by a hundred and shows itself
    kExponent,   ///< `E+` or `E-`; the digits behind it are the exponent's
    kSlash,      ///< of a fraction
    kText,       ///< `@`
    kGeneral,    ///< the number as it shows without a format
    kDatePart,   ///< a row of `y`, `m`, `d`, `h` or `s`
    kElapsed,    ///< the same between brackets: `[h]`, which counts on beyond a day
    kSubSecond,  ///< the point and the zeros behind seconds
    kHalfOfDay,  ///< `AM/PM` or `A/P`
  };

  Kind kind;
  /// The text, or the mark as it is written, letters in lower case.
  std::string text;

  [[nodiscard]] bool is(Kind wanted) const { return kind == wanted; }
};

/// `[>=100]` and the like.
struct FormatCondition {
  enum class Relation { kBelow, kAtMost, kEqual, kNotEqual, kAtLeast, kAbove };

  Relation relation;
  double bound;

  [[nodiscard]] bool holds(double value) const;
};

struct FormatSection {
  std::vector<FormatToken> tokens;
  std::optional<FormatCondition> condition;

  [[nodiscard]] bool has(FormatToken::Kind kind) const;
  /// Whether it shows dates or times of day.
  [[nodiscard]] bool isDate() const;
};

/// The most characters that a format can have.
inline constexpr std::size_t kLongestFormatCode = 255;

/// The sections of a format; never none, and never more than four. What has no meaning in it stands
/// for itself. A format that is empty or too long counts as `General`.
std::vector<FormatSection> parseFormatCode(std::string_view code);

}  // namespace quorbind
