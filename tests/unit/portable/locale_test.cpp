#include <gtest/gtest.h>
#include <stdlib.h>
#include <time.h>

#include <optional>
#include <string>

#include "platform/portable/portable_locale.h"

namespace quorbind::testing {
namespace {

/// The process in another time zone, for as long as this lives.
class TimeZone {
 public:
  explicit TimeZone(const char* zone) {
    if (const char* value = ::getenv("TZ")) {
      old_ = value;
    }
    ::setenv("TZ", zone, 1);
  }
  ~TimeZone() {
    if (old_) {
      ::setenv("TZ", old_->c_str(), 1);
    } else {
      ::unsetenv("TZ");
    }
    ::tzset();
  }
  TimeZone(const TimeZone&) = delete;
  TimeZone& operator=(const TimeZone&) = delete;

 private:
  std::optional<std::string> old_;
};

/// Minutes since the beginning of the month.
int minutesOf(const LocalTime& time) {
  return (time.day * 24 + time.hour) * 60 + time.minute;
}

class PortableLocaleTest : public ::testing::Test {
 protected:
  PortableLocale locale_;
};

TEST_F(PortableLocaleTest, WritesADateMonthFirstAndTheHourOnADialOfTwelve) {
  EXPECT_EQ(locale_.generalDate({2026, 1, 2, 15, 4, 5}), "1/2/2026 3:04:05 PM");
  EXPECT_EQ(locale_.generalDate({2026, 11, 22, 9, 14, 35}), "11/22/2026 9:14:35 AM");
}

TEST_F(PortableLocaleTest, CallsMidnightAndNoonTwelve) {
  EXPECT_EQ(locale_.generalDate({2026, 1, 2, 0, 0, 0}), "1/2/2026 12:00:00 AM");
  EXPECT_EQ(locale_.generalDate({2026, 1, 2, 0, 59, 59}), "1/2/2026 12:59:59 AM");
  EXPECT_EQ(locale_.generalDate({2026, 1, 2, 12, 0, 0}), "1/2/2026 12:00:00 PM");
  EXPECT_EQ(locale_.generalDate({2026, 1, 2, 23, 59, 59}), "1/2/2026 11:59:59 PM");
}

TEST_F(PortableLocaleTest, FollowsTheZoneOfTheProcess) {
  const auto minutesIn = [this](const char* zone) {
    const TimeZone here(zone);
    return minutesOf(locale_.now());
  };
  constexpr int kDay = 24 * 60;
  const int east = minutesIn("EAST-5:30");
  const int west = minutesIn("WEST+3:30");
  // A month's end between the two leaves the time of day.
  const int ahead = (east - west + 31 * kDay) % kDay;
  EXPECT_GE(ahead, 9 * 60 - 1);
  EXPECT_LE(ahead, 9 * 60);
}

TEST_F(PortableLocaleTest, ReadsTheSystemCodePageAsWindows1252) {
  EXPECT_EQ(locale_.fromSystemCodePage("\x80 \x84gr\xFC\xDF\x65\x93"),
            "\u20AC \u201Egr\u00FC\u00DFe\u201C");
  EXPECT_EQ(locale_.fromSystemCodePage("\x81"), "\uFFFD");
}

TEST_F(PortableLocaleTest, UpperCasesAroundBytesThatAreNotUtf8) {
  EXPECT_EQ(locale_.upperCase("a\xFFz\xC3"), "A\xFFZ\xC3");
}

TEST_F(PortableLocaleTest, ComparesViewsOfNothing) {
  EXPECT_EQ(locale_.compareText({}, ""), 0);
  EXPECT_LT(locale_.compareText({}, "a"), 0);
}

}  // namespace
}  // namespace quorbind::testing
