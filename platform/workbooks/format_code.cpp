#include "platform/workbooks/format_code.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "platform/text.h"
#include "platform/text_encoding.h"

namespace quorbind {

namespace {

using Kind = FormatToken::Kind;

constexpr std::size_t kMostSections = 4;
constexpr std::string_view kGeneralWord = "General";
constexpr std::string_view kDateLetters = "ymdhs";
constexpr std::string_view kElapsedLetters = "hms";

char lowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string lowerAscii(std::string_view text) {
  std::string result(text);
  std::transform(
      result.begin(), result.end(), result.begin(), [](char c) { return lowerAscii(c); });
  return result;
}

/// How often the first character of `text` stands there in a row, in either letter case.
std::size_t lengthOfRow(std::string_view text) {
  std::size_t length = 1;
  while (length < text.size() && lowerAscii(text[length]) == lowerAscii(text.front())) {
    ++length;
  }
  return length;
}

std::optional<FormatCondition> conditionIn(std::string_view text) {
  using Relation = FormatCondition::Relation;
  // The longer mark of two that begin alike comes first.
  constexpr std::array<std::pair<std::string_view, Relation>, 6> kMarks{
      {{"<=", Relation::kAtMost},
       {"<>", Relation::kNotEqual},
       {">=", Relation::kAtLeast},
       {"<", Relation::kBelow},
       {">", Relation::kAbove},
       {"=", Relation::kEqual}}};
  for (const auto& [mark, relation] : kMarks) {
    if (text.starts_with(mark)) {
      const std::string_view number = trimBlanks(text.substr(mark.size()));
      double bound = 0;
      const auto read = std::from_chars(number.data(), number.data() + number.size(), bound);
      if (read.ec == std::errc() && read.ptr == number.data() + number.size()) {
        return FormatCondition{relation, bound};
      }
    }
  }
  return std::nullopt;
}

/// Reads a format from its beginning to its end.
class FormatParser {
 public:
  explicit FormatParser(std::string_view code) : rest_(code) {}

  std::vector<FormatSection> parse() {
    while (!rest_.empty()) {
      readNext();
    }
    return std::move(sections_);
  }

 private:
  void readNext() {
    if (rest_.front() == ';') {
      beginSection();
    } else if (!readQuoted() && !readBracketed() && !readDatePart() && !readMark()) {
      const std::size_t length = std::max<std::size_t>(firstUtf8Character(rest_).length, 1);
      add(Kind::kLiteral, take(length));
    }
  }

  void beginSection() {
    take(1);
    if (sections_.size() == kMostSections) {
      rest_ = {};
    } else {
      sections_.emplace_back();
    }
  }

  /// What stands for itself by a sign in front of it or around it. `_` leaves the room of a
  /// character, `*` fills the cell's width, which has no meaning in a text.
  bool readQuoted() {
    const char sign = rest_.front();
    if (sign == '"') {
      take(1);
      const std::size_t end = std::min(rest_.find('"'), rest_.size());
      add(Kind::kLiteral, take(end));
      take(1);
      return true;
    }
    if (sign != '\\' && sign != '_' && sign != '*') {
      return false;
    }
    take(1);
    if (!rest_.empty()) {
      const std::size_t length = std::max<std::size_t>(firstUtf8Character(rest_).length, 1);
      const std::string_view character = take(length);
      if (sign != '*') {
        add(Kind::kLiteral, sign == '_' ? " " : character);
      }
    }
    return true;
  }

  bool readBracketed() {
    const std::size_t end = rest_.find(']');
    if (rest_.front() != '[' || end == std::string_view::npos) {
      return false;
    }
    const std::string_view inside = take(end + 1).substr(1, end - 1);
    if (inside.starts_with('$')) {
      // A currency, and behind the hyphen the language that it belongs to.
      add(Kind::kLiteral, inside.substr(1, inside.find('-') - 1));
    } else if (const auto condition = conditionIn(inside)) {
      sections_.back().condition = condition;
    } else if (!inside.empty() && contains(kElapsedLetters, lowerAscii(inside.substr(0, 1))) &&
               lengthOfRow(inside) == inside.size()) {
      add(Kind::kElapsed, inside);
    }
    // What is left are colours.
    return true;
  }

  bool readDatePart() {
    if (startsIgnoringAsciiCase(rest_, kGeneralWord)) {
      add(Kind::kGeneral, take(kGeneralWord.size()));
      return true;
    }
    for (const std::string_view halves : {"AM/PM", "A/P"}) {
      if (startsIgnoringAsciiCase(rest_, halves)) {
        add(Kind::kHalfOfDay, take(halves.size()));
        return true;
      }
    }
    if (contains(kDateLetters, lowerAscii(rest_.substr(0, 1)))) {
      add(Kind::kDatePart, take(lengthOfRow(rest_)));
      return true;
    }
    return readSubSecond();
  }

  bool readSubSecond() {
    const std::vector<FormatToken>& tokens = sections_.back().tokens;
    const bool followsSeconds =
        !tokens.empty() &&
        (tokens.back().is(Kind::kDatePart) || tokens.back().is(Kind::kElapsed)) &&
        tokens.back().text.front() == 's';
    if (!followsSeconds || !rest_.starts_with(".0")) {
      return false;
    }
    add(Kind::kSubSecond, take(1 + lengthOfRow(rest_.substr(1))));
    return true;
  }

  bool readMark() {
    const char sign = rest_.front();
    if ((sign == 'E' || sign == 'e') && (rest_.substr(1, 1) == "+" || rest_.substr(1, 1) == "-")) {
      add(Kind::kExponent, take(2));
      return true;
    }
    const auto kind = kindOfMark(sign);
    if (kind) {
      add(*kind, take(1));
    }
    return kind.has_value();
  }

  static std::optional<Kind> kindOfMark(char sign) {
    switch (sign) {
      case '0':
      case '#':
      case '?':
        return Kind::kDigit;
      case '.':
        return Kind::kPoint;
      case ',':
        return Kind::kComma;
      case '%':
        return Kind::kPercent;
      case '/':
        return Kind::kSlash;
      case '@':
        return Kind::kText;
      default:
        return std::nullopt;
    }
  }

  std::string_view take(std::size_t length) {
    const std::string_view taken = rest_.substr(0, length);
    rest_.remove_prefix(taken.size());
    return taken;
  }

  void add(Kind kind, std::string_view text) {
    sections_.back().tokens.push_back(
        {kind, kind == Kind::kLiteral ? std::string(text) : lowerAscii(text)});
  }

  std::string_view rest_;
  std::vector<FormatSection> sections_ = std::vector<FormatSection>(1);
};

}  // namespace

bool FormatCondition::holds(double value) const {
  switch (relation) {
    case Relation::kBelow:
      return value < bound;
    case Relation::kAtMost:
      return value <= bound;
    case Relation::kEqual:
      return value == bound;
    case Relation::kNotEqual:
      return value != bound;
    case Relation::kAtLeast:
      return value >= bound;
    case Relation::kAbove:
      return value > bound;
  }
  return false;
}

bool FormatSection::has(FormatToken::Kind kind) const {
  return std::any_of(
      tokens.begin(), tokens.end(), [kind](const FormatToken& token) { return token.is(kind); });
}

bool FormatSection::isDate() const {
  return has(Kind::kDatePart) || has(Kind::kElapsed) || has(Kind::kHalfOfDay);
}

std::vector<FormatSection> parseFormatCode(std::string_view code) {
  const bool isUsable = !code.empty() && code.size() <= kLongestFormatCode;
  return FormatParser(isUsable ? code : kGeneralWord).parse();
}

}  // namespace quorbind
