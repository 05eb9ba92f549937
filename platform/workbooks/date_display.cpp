#include "platform/workbooks/date_display.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace quorbind {

namespace {

using Kind = FormatToken::Kind;
using Tokens = std::vector<FormatToken>;

constexpr std::array<std::string_view, 12> kMonths{"January",
                                                   "February",
                                                   "March",
                                                   "April",
                                                   "May",
                                                   "June",
                                                   "July",
                                                   "August",
                                                   "September",
                                                   "October",
                                                   "November",
                                                   "December"};
constexpr std::array<std::string_view, 7> kWeekdays{
    "Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
constexpr std::size_t kShortName = 3;

constexpr std::int64_t kSecondsOfMinute = 60;
constexpr std::int64_t kSecondsOfHour = 60 * kSecondsOfMinute;
constexpr std::int64_t kSecondsOfDay = 24 * kSecondsOfHour;

/// A moment taken apart.
struct Moment {
  std::int64_t days;  ///< since the first day of its system
  int year;
  unsigned month;
  unsigned day;
  unsigned weekday;
  std::int64_t second;    ///< of the day
  std::int64_t fraction;  ///< of the second, in units of the format
};

/// The day that the system of 1900 has and the calendar does not.
constexpr std::int64_t kFalseLeapDay = 60;
constexpr std::int64_t kLastDayFrom1900 = 2958465;
constexpr std::int64_t kDaysBetweenSystems = 1462;

void setCalendarDay(Moment& moment, std::chrono::sys_days day) {
  const std::chrono::year_month_day date(day);
  moment.year = static_cast<int>(date.year());
  moment.month = static_cast<unsigned>(date.month());
  moment.day = static_cast<unsigned>(date.day());
}

void setDay(Moment& moment, DateSystem system) {
  using std::chrono::days;
  using std::chrono::sys_days;
  using std::chrono::year;
  constexpr unsigned kDaysOfWeek = 7;
  const std::int64_t day = moment.days;
  if (system == DateSystem::kFrom1904) {
    // A Friday.
    constexpr unsigned kFirstWeekday = 5;
    moment.weekday = static_cast<unsigned>(day + kFirstWeekday) % kDaysOfWeek;
    setCalendarDay(moment, sys_days(year(1904) / 1 / 1) + days(day));
    return;
  }
  // The first of January is made a Sunday by the false day, the one before it a Saturday.
  constexpr unsigned kWeekdayOfDay0 = 6;
  moment.weekday = static_cast<unsigned>(day + kWeekdayOfDay0) % kDaysOfWeek;
  if (day == 0) {
    moment.year = 1900;
    moment.month = 1;
    moment.day = 0;
  } else if (day == kFalseLeapDay) {
    moment.year = 1900;
    moment.month = 2;
    moment.day = 29;
  } else {
    const std::int64_t behindFalseDay = day > kFalseLeapDay ? 1 : 0;
    setCalendarDay(moment, sys_days(year(1899) / 12 / 31) + days(day - behindFalseDay));
  }
}

std::int64_t powerOfTen(std::size_t exponent) {
  std::int64_t power = 1;
  for (std::size_t i = 0; i < exponent; ++i) {
    power *= 10;
  }
  return power;
}

/// How many digits of a second's fraction the format shows.
std::size_t fractionDigits(const Tokens& tokens) {
  constexpr std::size_t kMost = 6;
  std::size_t digits = 0;
  for (const FormatToken& token : tokens) {
    if (token.is(Kind::kSubSecond)) {
      digits = std::max(digits, std::min(token.text.size() - 1, kMost));
    }
  }
  return digits;
}

std::optional<Moment> momentOf(double serial, DateSystem system, std::size_t digits) {
  const std::int64_t lastDay =
      system == DateSystem::kFrom1900 ? kLastDayFrom1900 : kLastDayFrom1900 - kDaysBetweenSystems;
  if (!(serial >= 0 && serial < static_cast<double>(lastDay + 1))) {
    return std::nullopt;
  }
  const std::int64_t unitsOfSecond = powerOfTen(digits);
  const std::int64_t unitsOfDay = kSecondsOfDay * unitsOfSecond;
  Moment moment{};
  moment.days = static_cast<std::int64_t>(serial);
  std::int64_t units =
      std::llround((serial - static_cast<double>(moment.days)) * static_cast<double>(unitsOfDay));
  if (units == unitsOfDay) {
    units = 0;
    ++moment.days;
  }
  moment.second = units / unitsOfSecond;
  moment.fraction = units % unitsOfSecond;
  setDay(moment, system);
  return moment;
}

std::string padded(std::int64_t number, std::size_t width) {
  const std::string digits = std::to_string(number);
  return std::string(width > digits.size() ? width - digits.size() : 0, '0') + digits;
}

std::string monthText(const Moment& moment, std::size_t width) {
  const std::string_view name = kMonths.at(moment.month - 1);
  constexpr std::size_t kFirstLetter = 5;
  switch (width) {
    case 1:
    case 2:
      return padded(moment.month, width);
    case kShortName:
      return std::string(name.substr(0, kShortName));
    case kFirstLetter:
      return std::string(name.substr(0, 1));
    default:
      return std::string(name);
  }
}

std::string dayText(const Moment& moment, std::size_t width) {
  if (width < kShortName) {
    return padded(moment.day, width);
  }
  const std::string_view name = kWeekdays.at(moment.weekday);
  return std::string(width == kShortName ? name.substr(0, kShortName) : name);
}

std::string yearText(const Moment& moment, std::size_t width) {
  constexpr int kCentury = 100;
  return width <= 2 ? padded(moment.year % kCentury, 2) : padded(moment.year, 4);
}

bool isPart(const FormatToken& token) {
  return token.is(Kind::kDatePart) || token.is(Kind::kElapsed);
}

bool isPart(const FormatToken& token, char letter) {
  return isPart(token) && token.text.front() == letter;
}

/// Whether the `m` at `index` means minutes: it follows the hours or precedes the seconds.
bool meansMinutes(const Tokens& tokens, std::size_t index) {
  const auto part = [](const FormatToken& token) { return isPart(token); };
  const auto here = tokens.begin() + static_cast<std::ptrdiff_t>(index);
  const auto before = std::find_if(std::make_reverse_iterator(here), tokens.rend(), part);
  const auto behind = std::find_if(here + 1, tokens.end(), part);
  return (before != tokens.rend() && isPart(*before, 'h')) ||
         (behind != tokens.end() && isPart(*behind, 's'));
}

std::string elapsedText(const Moment& moment, const FormatToken& token) {
  const std::int64_t seconds = moment.days * kSecondsOfDay + moment.second;
  switch (token.text.front()) {
    case 'h':
      return padded(seconds / kSecondsOfHour, token.text.size());
    case 'm':
      return padded(seconds / kSecondsOfMinute, token.text.size());
    default:
      return padded(seconds, token.text.size());
  }
}

class DateDisplay {
 public:
  DateDisplay(const FormatSection& section, const Moment& moment, std::size_t digits)
      : tokens_(section.tokens),
        moment_(moment),
        digits_(digits),
        hasHalves_(section.has(Kind::kHalfOfDay)) {}

  [[nodiscard]] std::string text() const {
    std::string text;
    for (std::size_t i = 0; i < tokens_.size(); ++i) {
      text += textOf(i);
    }
    return text;
  }

 private:
  [[nodiscard]] std::string textOf(std::size_t index) const {
    const FormatToken& token = tokens_[index];
    switch (token.kind) {
      case Kind::kDatePart:
        return partText(index);
      case Kind::kElapsed:
        return elapsedText(moment_, token);
      case Kind::kSubSecond:
        return "." + padded(moment_.fraction, digits_).substr(0, token.text.size() - 1);
      case Kind::kHalfOfDay:
        return halfText(token);
      default:
        return token.text;
    }
  }

  [[nodiscard]] std::string partText(std::size_t index) const {
    const std::string& part = tokens_[index].text;
    const std::size_t width = std::min<std::size_t>(part.size(), 2);
    switch (part.front()) {
      case 'y':
        return yearText(moment_, part.size());
      case 'd':
        return dayText(moment_, part.size());
      case 'h':
        return padded(hour(), width);
      case 's':
        return padded(moment_.second % kSecondsOfMinute, width);
      default:
        return meansMinutes(tokens_, index) ? padded(minute(), width)
                                            : monthText(moment_, part.size());
    }
  }

  [[nodiscard]] std::string halfText(const FormatToken& token) const {
    constexpr std::string_view kShort = "a/p";
    const std::string half = moment_.second < kSecondsOfDay / 2 ? "A" : "P";
    return token.text == kShort ? half : half + "M";
  }

  [[nodiscard]] std::int64_t hour() const {
    constexpr std::int64_t kHalf = 12;
    const std::int64_t hour = moment_.second / kSecondsOfHour;
    if (!hasHalves_) {
      return hour;
    }
    return hour % kHalf == 0 ? kHalf : hour % kHalf;
  }
  [[nodiscard]] std::int64_t minute() const {
    return moment_.second % kSecondsOfHour / kSecondsOfMinute;
  }

  const Tokens& tokens_;
  const Moment& moment_;
  std::size_t digits_;
  bool hasHalves_;
};

}  // namespace

std::optional<std::string> displayDate(const FormatSection& section,
                                       double serial,
                                       DateSystem system) {
  const std::size_t digits = fractionDigits(section.tokens);
  const std::optional<Moment> moment = momentOf(serial, system, digits);
  if (!moment) {
    return std::nullopt;
  }
  return DateDisplay(section, *moment, digits).text();
}

}  // namespace quorbind
