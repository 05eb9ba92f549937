#include <gtest/gtest.h>

#include <ctime>
#include <string>
#include <tuple>

#include "platform/text.h"
#include "platform/text_encoding.h"
#include "tests/contract/adapters.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {
namespace {

class LocaleContract : public ::testing::Test {
 protected:
  [[nodiscard]] const Locale& locale() const { return adapters_->locale(); }
  [[nodiscard]] int compare(std::string_view left, std::string_view right) const {
    return locale().compareText(left, right);
  }
  [[nodiscard]] std::string upper(std::string_view text) const { return locale().upperCase(text); }

 private:
  TemporaryFolder disk_;
  std::unique_ptr<Adapters> adapters_ = makeAdapters(disk_.path());
};

LocalTime localTimeOf(std::time_t moment) {
  const std::tm* parts = std::localtime(&moment);
  return {.year = parts->tm_year + 1900,
          .month = parts->tm_mon + 1,
          .day = parts->tm_mday,
          .hour = parts->tm_hour,
          .minute = parts->tm_min,
          .second = parts->tm_sec};
}

auto fieldsOf(const LocalTime& time) {
  return std::tie(time.year, time.month, time.day, time.hour, time.minute, time.second);
}

TEST_F(LocaleContract, TellsTheLocalTime) {
  const LocalTime before = localTimeOf(std::time(nullptr));
  const LocalTime now = locale().now();
  const LocalTime after = localTimeOf(std::time(nullptr));
  EXPECT_LE(fieldsOf(before), fieldsOf(now));
  EXPECT_LE(fieldsOf(now), fieldsOf(after));
}

TEST_F(LocaleContract, WritesADateWithItsYearAndSecond) {
  const std::string date = locale().generalDate(
      {.year = 2026, .month = 1, .day = 2, .hour = 15, .minute = 4, .second = 37});
  EXPECT_NE(date.find("26"), std::string::npos) << date;
  EXPECT_NE(date.find("37"), std::string::npos) << date;
}

TEST_F(LocaleContract, ComparesTextWithoutRegardToLetterCase) {
  EXPECT_EQ(compare("Alarms", "aLARMS"), 0);
  EXPECT_EQ(compare("\u00C4RGER", "\u00E4rger"), 0);
  EXPECT_EQ(compare("\u0394\u0395\u039B\u03A4\u0391", "\u03B4\u03B5\u03BB\u03C4\u03B1"), 0);
  EXPECT_EQ(compare("", ""), 0);
}

TEST_F(LocaleContract, TellsAccentsApart) {
  EXPECT_NE(compare("resume", "r\u00E9sum\u00E9"), 0);
  EXPECT_NE(compare("Arger", "\u00C4rger"), 0);
}

TEST_F(LocaleContract, OrdersTextAsADictionaryDoes) {
  EXPECT_LT(compare("apple", "Banana"), 0);
  EXPECT_GT(compare("cherry", "Banana"), 0);
  EXPECT_LT(compare("\u00C4pfel", "Birnen"), 0);
  EXPECT_LT(compare("Book", "Book 2"), 0);
  EXPECT_LT(compare("", "a"), 0);
  EXPECT_GT(compare("a", ""), 0);
}

TEST_F(LocaleContract, KeepsTheOrderWhenTheTextsChangePlaces) {
  EXPECT_LT(compare("one", "two"), 0);
  EXPECT_GT(compare("two", "one"), 0);
}

TEST_F(LocaleContract, FoldsAsciiAsMarksAreFolded) {
  std::string ascii;
  for (char c = 1; c < 127; ++c) {
    ascii += c;
  }
  EXPECT_EQ(upper(ascii), upperCaseAscii(ascii));
}

TEST_F(LocaleContract, UpperCasesEveryLetterThatHasASingleUpperCaseForm) {
  EXPECT_EQ(upper("c:\\in\\Toc_1.txt"), "C:\\IN\\TOC_1.TXT");
  EXPECT_EQ(upper("\u00E4\u00F6\u00FC \u00E9 \u0142 \u03B4 \u0436"),
            "\u00C4\u00D6\u00DC \u00C9 \u0141 \u0394 \u0416");
  EXPECT_EQ(upper(""), "");
}

TEST_F(LocaleContract, KeepsTheNumberOfCharactersInUpperCase) {
  EXPECT_EQ(upper("stra\u00DFe"), "STRA\u00DFE");
  EXPECT_EQ(upper("\uFB01le"), "\uFB01LE");
}

TEST_F(LocaleContract, UpperCasesInTheWayOfNoParticularLanguage) {
  EXPECT_EQ(upper("title"), "TITLE");
  EXPECT_EQ(upper("\u6587\u66F8 1"), "\u6587\u66F8 1");
}

TEST_F(LocaleContract, ReadsPlainCharactersOfTheSystemCodePageAsTheyAre) {
  EXPECT_EQ(locale().fromSystemCodePage("Book 1, \"A\"\r\n"), "Book 1, \"A\"\r\n");
  EXPECT_EQ(locale().fromSystemCodePage(""), "");
}

TEST_F(LocaleContract, ReadsEveryByteOfTheSystemCodePageAsText) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) {
    bytes.push_back(static_cast<char>(byte));
  }
  const std::string text = locale().fromSystemCodePage(bytes);
  EXPECT_GE(text.size(), 256U);
  EXPECT_TRUE(isValidUtf8(text));
}

}  // namespace
}  // namespace quorbind::testing
