#pragma once

#include <string>
#include <string_view>

namespace quorbind {

/// A local date and time of day.
struct LocalTime {
  int year = 0;
  int month = 0;  ///< 1 to 12
  int day = 0;    ///< 1 to 31
  int hour = 0;   ///< 0 to 23
  int minute = 0;
  int second = 0;
};

/// The language and the clock of the machine. All calls are const and may be made in any order.
class Locale {
 public:
  virtual ~Locale() = default;

  [[nodiscard]] virtual LocalTime now() const = 0;

  /// The general date form: short date and long time as the user's settings have them; off Windows
  /// always `m/d/yyyy h:mm:ss AM/PM`.
  [[nodiscard]] virtual std::string generalDate(const LocalTime& time) const = 0;

  /// Text-mode comparison, without regard to letter case: below, equal to or above 0.
  [[nodiscard]] virtual int compareText(std::string_view left, std::string_view right) const = 0;

  /// Upper case by simple case mapping, so that the number of characters never changes (`ß` stays).
  /// Of ASCII alone it is upperCaseAscii.
  [[nodiscard]] virtual std::string upperCase(std::string_view text) const = 0;

  /// UTF-8 from text in the system's code page (Windows-1252 off Windows). Never fails: a byte
  /// without a meaning becomes U+FFFD.
  [[nodiscard]] virtual std::string fromSystemCodePage(std::string_view bytes) const = 0;
};

}  // namespace quorbind
