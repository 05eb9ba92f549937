#include "platform/number.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/raised_error.h"

namespace quorbind::testing {
namespace {

/// The number of the error that converting `text` raises; 0 when it is a number.
std::int32_t errorOf(std::string_view text) {
  return errorRaisedBy([text] { toInteger16(text); });
}

constexpr std::int32_t kOverflow = 6;
constexpr std::int32_t kTypeMismatch = 13;

TEST(Integer16, IsWrittenInDigits) {
  EXPECT_EQ(toInteger16("0"), 0);
  EXPECT_EQ(toInteger16("7"), 7);
  EXPECT_EQ(toInteger16("32767"), 32767);
  EXPECT_EQ(toInteger16("00000000000000000000000000000000000000001"), 1);
}

TEST(Integer16, HasOneSignBeforeOrAfterTheDigits) {
  EXPECT_EQ(toInteger16("-32768"), -32768);
  EXPECT_EQ(toInteger16("+3"), 3);
  EXPECT_EQ(toInteger16("3-"), -3);
  EXPECT_EQ(toInteger16("3+"), 3);
  EXPECT_EQ(toInteger16("- 3"), -3);
  EXPECT_EQ(toInteger16("3\t-"), -3);
}

TEST(Integer16, HasNoSecondSign) {
  EXPECT_EQ(errorOf("--3"), kTypeMismatch);
  EXPECT_EQ(errorOf("-3-"), kTypeMismatch);
  EXPECT_EQ(errorOf("+3-"), kTypeMismatch);
}

TEST(Integer16, MayStandBetweenBlanksTabsAndLineEnds) {
  EXPECT_EQ(toInteger16("  2 "), 2);
  EXPECT_EQ(toInteger16("\t2\r\n"), 2);
}

TEST(Integer16, IsNotSurroundedByOtherWhiteSpace) {
  EXPECT_EQ(errorOf("\v2"), kTypeMismatch);
  EXPECT_EQ(errorOf("2\f"), kTypeMismatch);
  EXPECT_EQ(errorOf("\u00A0"
                    "2"),
            kTypeMismatch);
}

TEST(Integer16, HasNoWhiteSpaceInside) {
  EXPECT_EQ(errorOf("1 2"), kTypeMismatch);
  EXPECT_EQ(errorOf("1 e2"), kTypeMismatch);
  EXPECT_EQ(errorOf("1e 2"), kTypeMismatch);
}

TEST(Integer16, IgnoresCommasAfterTheFirstDigit) {
  EXPECT_EQ(toInteger16("1,000"), 1000);
  EXPECT_EQ(toInteger16("1,2,3"), 123);
  EXPECT_EQ(toInteger16("1,,2"), 12);
  EXPECT_EQ(toInteger16("1,"), 1);
  EXPECT_EQ(toInteger16("1.5,1"), 2);
  EXPECT_EQ(toInteger16("1,e2"), 100);
}

TEST(Integer16, DoesNotBeginWithAComma) {
  EXPECT_EQ(errorOf(",1"), kTypeMismatch);
  EXPECT_EQ(errorOf(","), kTypeMismatch);
  EXPECT_EQ(errorOf(".,5"), kTypeMismatch);
}

TEST(Integer16, HasAtMostOneDecimalPointWithDigitsOnEitherSide) {
  EXPECT_EQ(toInteger16("2.0"), 2);
  EXPECT_EQ(toInteger16("5."), 5);
  EXPECT_EQ(toInteger16(".7"), 1);
  EXPECT_EQ(errorOf("1.5.1"), kTypeMismatch);
  EXPECT_EQ(errorOf("."), kTypeMismatch);
  EXPECT_EQ(errorOf("-."), kTypeMismatch);
}

TEST(Integer16, RoundsToTheNearest) {
  EXPECT_EQ(toInteger16("1.4"), 1);
  EXPECT_EQ(toInteger16("1.6"), 2);
  EXPECT_EQ(toInteger16("-1.6"), -2);
  EXPECT_EQ(toInteger16("0.05"), 0);
  EXPECT_EQ(toInteger16("0.95"), 1);
}

TEST(Integer16, RoundsAHalfToTheEvenNeighbour) {
  EXPECT_EQ(toInteger16("0.5"), 0);
  EXPECT_EQ(toInteger16("1.5"), 2);
  EXPECT_EQ(toInteger16("2.5"), 2);
  EXPECT_EQ(toInteger16("-0.5"), 0);
  EXPECT_EQ(toInteger16("-1.5"), -2);
  EXPECT_EQ(toInteger16("2.500"), 2);
  EXPECT_EQ(toInteger16("25e-1"), 2);
}

TEST(Integer16, LosesNoDigitAtTheEdgesOfRounding) {
  EXPECT_EQ(toInteger16("2.5" + std::string(400, '0')), 2);
  EXPECT_EQ(toInteger16("2.5" + std::string(400, '0') + "1"), 3);
  EXPECT_EQ(toInteger16("1.4" + std::string(400, '9')), 1);
  EXPECT_EQ(toInteger16("32767.4" + std::string(400, '9')), 32767);
}

TEST(Integer16, OverflowsWhereTheRoundedValueNeedsMoreBits) {
  EXPECT_EQ(errorOf("32768"), kOverflow);
  EXPECT_EQ(errorOf("40000"), kOverflow);
  EXPECT_EQ(errorOf("-32769"), kOverflow);
  EXPECT_EQ(errorOf("32767.5"), kOverflow);
  EXPECT_EQ(errorOf("99999999999999999999999999"), kOverflow);
  EXPECT_EQ(toInteger16("-32768.5"), -32768);
  EXPECT_EQ(errorOf("-32768.50000000000000000000000001"), kOverflow);
}

TEST(Integer16, HasAnExponentOfTen) {
  EXPECT_EQ(toInteger16("1e2"), 100);
  EXPECT_EQ(toInteger16("1E+2"), 100);
  EXPECT_EQ(toInteger16("1.25e3"), 1250);
  EXPECT_EQ(toInteger16("32767000e-3"), 32767);
  EXPECT_EQ(toInteger16("1e-2"), 0);
  EXPECT_EQ(toInteger16("-1e2"), -100);
  EXPECT_EQ(toInteger16("1e2-"), -100);
  EXPECT_EQ(toInteger16("1e0000000000000000000000002"), 100);
}

TEST(Integer16, HasAnExponentOfAnySize) {
  EXPECT_EQ(errorOf("1e400"), kOverflow);
  EXPECT_EQ(toInteger16("1e-400"), 0);
  EXPECT_EQ(toInteger16("0e400"), 0);
  EXPECT_EQ(errorOf("1e99999999999999999999999999"), kOverflow);
  EXPECT_EQ(toInteger16("1e-99999999999999999999999999"), 0);
  EXPECT_EQ(errorOf("1e9223372036854775807"), kOverflow);
  EXPECT_EQ(toInteger16("1" + std::string(1000, '0') + "e-998"), 100);
  EXPECT_EQ(toInteger16("0." + std::string(1000, '0') + "1e1003"), 100);
}

TEST(Integer16, HasDigitsOnlyInItsExponent) {
  EXPECT_EQ(errorOf("12e"), kTypeMismatch);
  EXPECT_EQ(errorOf("1e+"), kTypeMismatch);
  EXPECT_EQ(errorOf("1e+-2"), kTypeMismatch);
  EXPECT_EQ(errorOf("1e1.5"), kTypeMismatch);
  EXPECT_EQ(errorOf("1e1,0"), kTypeMismatch);
  EXPECT_EQ(errorOf("1d2"), kTypeMismatch);
  EXPECT_EQ(errorOf("e2"), kTypeMismatch);
  EXPECT_EQ(errorOf(".e1"), kTypeMismatch);
}

TEST(Integer16, IsWrittenInHexadecimalAsItsSixteenBits) {
  EXPECT_EQ(toInteger16("&H1F"), 31);
  EXPECT_EQ(toInteger16("&h1f"), 31);
  EXPECT_EQ(toInteger16("&H7FFF"), 32767);
  EXPECT_EQ(toInteger16("&H8000"), -32768);
  EXPECT_EQ(toInteger16("&HFFFF"), -1);
  EXPECT_EQ(toInteger16("&H0000000FFFF"), -1);
  EXPECT_EQ(toInteger16(" &H1 "), 1);
  EXPECT_EQ(errorOf("&H10000"), kOverflow);
}

TEST(Integer16, IsWrittenInOctalAsItsSixteenBits) {
  EXPECT_EQ(toInteger16("&O17"), 15);
  EXPECT_EQ(toInteger16("&o177777"), -1);
  EXPECT_EQ(errorOf("&O200000"), kOverflow);
}

TEST(Integer16, HasNothingButDigitsOfItsBaseBehindAPrefix) {
  EXPECT_EQ(errorOf("&H"), kTypeMismatch);
  EXPECT_EQ(errorOf("&O"), kTypeMismatch);
  EXPECT_EQ(errorOf("&HG"), kTypeMismatch);
  EXPECT_EQ(errorOf("&O8"), kTypeMismatch);
  EXPECT_EQ(errorOf("&H10000G"), kTypeMismatch);
  EXPECT_EQ(errorOf("&H1.0"), kTypeMismatch);
  EXPECT_EQ(errorOf("&H 1"), kTypeMismatch);
  EXPECT_EQ(errorOf("&H-1"), kTypeMismatch);
  EXPECT_EQ(errorOf("&H1-"), kTypeMismatch);
  EXPECT_EQ(errorOf("-&H1"), kTypeMismatch);
}

TEST(Integer16, HasNoOtherPrefix) {
  EXPECT_EQ(errorOf("&17"), kTypeMismatch);
  EXPECT_EQ(errorOf("&"), kTypeMismatch);
  EXPECT_EQ(errorOf("&B1"), kTypeMismatch);
  EXPECT_EQ(errorOf("0x10"), kTypeMismatch);
}

TEST(Integer16, IsNothingElse) {
  for (const char* text :
       {"", " ", "-", "+", "True", "one", "(1)", "$1", "1%", "\uFF11", "\"1\""}) {
    EXPECT_EQ(errorOf(text), kTypeMismatch) << text;
  }
  EXPECT_EQ(errorOf(std::string_view("1\0", 2)), kTypeMismatch);
}

}  // namespace
}  // namespace quorbind::testing
