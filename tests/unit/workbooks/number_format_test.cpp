#include "platform/workbooks/number_format.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace quorbind {
namespace {

std::string shown(std::string_view code, double value) {
  return NumberFormat(code).display(value, DateSystem::kFrom1900);
}

std::string shown(std::string_view code, std::string_view text) {
  return NumberFormat(code).display(text);
}

constexpr std::string_view kNotShown = "########";

// Without a format

TEST(NumberFormat, GeneralShowsWholeNumbersOfUpToElevenDigitsPlainly) {
  EXPECT_EQ(shown("General", 0), "0");
  EXPECT_EQ(shown("General", 1), "1");
  EXPECT_EQ(shown("General", -42), "-42");
  EXPECT_EQ(shown("General", 99999999999.0), "99999999999");
  EXPECT_EQ(shown("General", 123456789012.0), "1.23457E+11");
  EXPECT_EQ(shown("General", 1e20), "1E+20");
  EXPECT_EQ(shown("General", -1e300), "-1E+300");
}

TEST(NumberFormat, GeneralShowsElevenCharactersOfAFraction) {
  EXPECT_EQ(shown("General", 1.5), "1.5");
  EXPECT_EQ(shown("General", 0.1 + 0.2), "0.3");
  EXPECT_EQ(shown("General", 1.0 / 3), "0.333333333");
  EXPECT_EQ(shown("General", 12345.6789012), "12345.6789");
  EXPECT_EQ(shown("General", 99999999999.9), "1E+11");
}

TEST(NumberFormat, GeneralShowsSmallNumbersInPowersOfTenWhereDigitsWouldBeLost) {
  EXPECT_EQ(shown("General", 0.0001), "0.0001");
  EXPECT_EQ(shown("General", 0.000012345), "0.000012345");
  EXPECT_EQ(shown("General", 0.0000123456789), "1.23457E-05");
  EXPECT_EQ(shown("General", 9.999999e-10), "1E-09");
}

TEST(NumberFormat, AnEmptyOrTooLongFormatIsGeneral) {
  EXPECT_EQ(shown("", 1.5), "1.5");
  EXPECT_EQ(shown(std::string(256, '0'), 1.5), "1.5");
  EXPECT_EQ(shown(std::string(255, '0'), 1.5), std::string(254, '0') + "2");
}

// Places

TEST(NumberFormat, ZerosFillUpAndHashesDoNot) {
  EXPECT_EQ(shown("0000", 42), "0042");
  EXPECT_EQ(shown("####", 42), "42");
  EXPECT_EQ(shown("????", 42), "  42");
  EXPECT_EQ(shown("#", 0), "");
  EXPECT_EQ(shown("0.00", 1.5), "1.50");
  EXPECT_EQ(shown("0.##", 1.5), "1.5");
  EXPECT_EQ(shown("0.##", 1), "1.");
  EXPECT_EQ(shown("0.??", 1.5), "1.5 ");
}

TEST(NumberFormat, NumbersAreRoundedHalfAwayFromZeroByFifteenDigits) {
  EXPECT_EQ(shown("0", 0.5), "1");
  EXPECT_EQ(shown("0", 2.5), "3");
  EXPECT_EQ(shown("0", -2.5), "-3");
  EXPECT_EQ(shown("0.00", 1.005), "1.01");
  EXPECT_EQ(shown("0.0", 9.96), "10.0");
  EXPECT_EQ(shown("0.00", 0.004), "0.00");
}

TEST(NumberFormat, ACommaBetweenPlacesGroupsAndOneBehindThemDividesByAThousand) {
  EXPECT_EQ(shown("#,##0", 1234567), "1,234,567");
  EXPECT_EQ(shown("#,##0", 12), "12");
  EXPECT_EQ(shown("0,000", 12), "0,012");
  EXPECT_EQ(shown("#,##0.00", 12345.678), "12,345.68");
  EXPECT_EQ(shown("0.0,", 12345), "12.3");
  EXPECT_EQ(shown("0,,", 12345678), "12");
}

TEST(NumberFormat, APercentSignMultipliesByAHundred) {
  EXPECT_EQ(shown("0%", 0.125), "13%");
  EXPECT_EQ(shown("0.00%", 1.0 / 3), "33.33%");
}

TEST(NumberFormat, PlainTextStandsWhereItIsWritten) {
  EXPECT_EQ(shown("\"Level \"0", 2), "Level 2");
  EXPECT_EQ(shown("0\\m", 2), "2m");
  EXPECT_EQ(shown("000\\-00\\-0000", 123456789), "123-45-6789");
  EXPECT_EQ(shown("[$€-407] 0.00", 1.5), "€ 1.50");
  EXPECT_EQ(shown("[$-409]0", 2), "2");
  EXPECT_EQ(shown("[Red]0", 2), "2");
  EXPECT_EQ(shown("0_)", 2), "2 ");
  EXPECT_EQ(shown("* 0", 2), "2");
  EXPECT_EQ(shown("0\"open", 2), "2open");
}

TEST(NumberFormat, PowersOfTenKeepToTheirPlaces) {
  EXPECT_EQ(shown("0.00E+00", 12345), "1.23E+04");
  EXPECT_EQ(shown("0.00E+00", 0.00012345), "1.23E-04");
  EXPECT_EQ(shown("0.00E-00", 12345), "1.23E04");
  EXPECT_EQ(shown("0.0E+0", 99999), "1.0E+5");
  EXPECT_EQ(shown("##0.0E+0", 12345), "12.3E+3");
  EXPECT_EQ(shown("##0.0E+0", 999960), "1.0E+6");
  EXPECT_EQ(shown("0.0E+0", 0), "0.0E+0");
}

TEST(NumberFormat, FractionsAreTheNearestOnesThatFit) {
  EXPECT_EQ(shown("# ?/?", 1.5), "1 1/2");
  EXPECT_EQ(shown("# ?/?", 0.3), " 2/7");
  EXPECT_EQ(shown("# ?\?/?\?", 0.3), "  3/10");
  EXPECT_EQ(shown("# ?/?", 5.99), "6    ");
  EXPECT_EQ(shown("# ?/?\?", 1.5), "1 1/2 ");
  EXPECT_EQ(shown("# ?/?", 0), "0    ");
  EXPECT_EQ(shown("?/?", 1.5), "3/2");
  EXPECT_EQ(shown("# ?/8", 1.75), "1 6/8");
  EXPECT_EQ(shown("# ?\?/16", 0.5), "  8/16");
  EXPECT_EQ(shown("?/?", 1e300), "1E+300");
}

// Sections

TEST(NumberFormat, SectionsAreForPositiveNegativeAndZero) {
  EXPECT_EQ(shown("0;(0)", 5), "5");
  EXPECT_EQ(shown("0;(0)", -5), "(5)");
  EXPECT_EQ(shown("0;(0)", 0), "0");
  EXPECT_EQ(shown("0;(0);\"none\"", 0), "none");
  EXPECT_EQ(shown("0;;", -5), "");
  EXPECT_EQ(shown(";;;", 5), "");
}

TEST(NumberFormat, OneSectionShowsTheSign) {
  EXPECT_EQ(shown("0", -5), "-5");
  EXPECT_EQ(shown("0.0", -0.01), "-0.0");
  EXPECT_EQ(shown("\"L\"0", -5), "-L5");
}

TEST(NumberFormat, ConditionsChooseTheSection) {
  constexpr std::string_view kCode = "[>=100]\"many\";[<0]\"few\";0";
  EXPECT_EQ(shown(kCode, 100), "many");
  EXPECT_EQ(shown(kCode, -3), "few");
  EXPECT_EQ(shown(kCode, 7), "7");
  EXPECT_EQ(shown("[<=100]0;0.0", 100), "100");
  EXPECT_EQ(shown("[<=100]0;0.0", 101), "101.0");
  EXPECT_EQ(shown("[=1]\"one\";[<>2]\"other\";0", 1), "one");
  EXPECT_EQ(shown("[=1]\"one\";[<>2]\"other\";0", 3), "other");
  EXPECT_EQ(shown("[=1]\"one\";[<>2]\"other\";0", 2), "2");
  EXPECT_EQ(shown("[>5]0", 3), kNotShown);
}

TEST(NumberFormat, ASectionWithoutAConditionIsForWhatTheOnesBeforeItLeave) {
  EXPECT_EQ(shown("[>100]\"many\";0;\"rest\"", 101), "many");
  EXPECT_EQ(shown("[>100]\"many\";0;\"rest\"", -3), "3");
  EXPECT_EQ(shown("[>100]\"many\";0;\"rest\"", 50), "rest");
  EXPECT_EQ(shown("0;[<-5]\"low\";\"rest\"", 7), "7");
  EXPECT_EQ(shown("0;[<-5]\"low\";\"rest\"", -9), "low");
}

TEST(NumberFormat, TextsAreShownByTheSectionForThem) {
  EXPECT_EQ(shown("0", "Alarms"), "Alarms");
  EXPECT_EQ(shown("@", "Alarms"), "Alarms");
  EXPECT_EQ(shown("0;0;0;\"<\"@\">\"", "Alarms"), "<Alarms>");
  EXPECT_EQ(shown("0;0;0;", "Alarms"), "");
  EXPECT_EQ(shown("0;\"T: \"@", "Alarms"), "T: Alarms");
}

TEST(NumberFormat, ANumberInATextFormatShowsPlainly) {
  EXPECT_EQ(shown("@", 1.5), "1.5");
  EXPECT_EQ(shown("General;@", -1.5), "-1.5");
}

// Dates

constexpr double kAfternoon = 44197.75;  // 2021-01-01 18:00

TEST(NumberFormat, DatesShowInTheirParts) {
  EXPECT_EQ(shown("m/d/yyyy", kAfternoon), "1/1/2021");
  EXPECT_EQ(shown("yyyy-mm-dd", kAfternoon), "2021-01-01");
  EXPECT_EQ(shown("d-mmm-yy", kAfternoon), "1-Jan-21");
  EXPECT_EQ(shown("dddd, mmmm dd, yyyy", kAfternoon), "Friday, January 01, 2021");
  EXPECT_EQ(shown("ddd mmmmm", kAfternoon), "Fri J");
  EXPECT_EQ(shown("[$-409]d\\.m\\.yyyy;@", kAfternoon), "1.1.2021");
}

TEST(NumberFormat, TimesShowInTheirParts) {
  EXPECT_EQ(shown("h:mm", kAfternoon), "18:00");
  EXPECT_EQ(shown("h:mm AM/PM", kAfternoon), "6:00 PM");
  EXPECT_EQ(shown("hh:mm A/P", 0.25), "06:00 A");
  EXPECT_EQ(shown("h AM/PM", 0.5), "12 PM");
  EXPECT_EQ(shown("h AM/PM", 0), "12 AM");
  EXPECT_EQ(shown("mm:ss", 0.5 + 61.0 / 86400), "01:01");
  EXPECT_EQ(shown("ss.00", 1.234 / 86400), "01.23");
  EXPECT_EQ(shown("m/d/yyyy h:mm", kAfternoon), "1/1/2021 18:00");
}

TEST(NumberFormat, ElapsedTimeCountsBeyondADay) {
  EXPECT_EQ(shown("[h]:mm", 1.5), "36:00");
  EXPECT_EQ(shown("[mm]:ss", 1.0 / 24), "60:00");
  EXPECT_EQ(shown("[s]", 1), "86400");
}

TEST(NumberFormat, SecondsAreRoundedAndCarried) {
  EXPECT_EQ(shown("h:mm:ss", 0.9999999), "0:00:00");
  EXPECT_EQ(shown("m/d/yyyy h:mm:ss", 1.9999999), "1/2/1900 0:00:00");
}

TEST(NumberFormat, TheYear1900HasADayTooMany) {
  EXPECT_EQ(shown("m/d/yyyy", 0), "1/0/1900");
  EXPECT_EQ(shown("m/d/yyyy", 1), "1/1/1900");
  EXPECT_EQ(shown("m/d/yyyy", 59), "2/28/1900");
  EXPECT_EQ(shown("m/d/yyyy", 60), "2/29/1900");
  EXPECT_EQ(shown("dddd m/d/yyyy", 61), "Thursday 3/1/1900");
}

TEST(NumberFormat, DatesMayCountFrom1904) {
  const NumberFormat format("dddd m/d/yyyy");
  EXPECT_EQ(format.display(0, DateSystem::kFrom1904), "Friday 1/1/1904");
  EXPECT_EQ(format.display(44197 - 1462, DateSystem::kFrom1904), "Friday 1/1/2021");
}

TEST(NumberFormat, AMomentThatIsNoDateIsNotShown) {
  EXPECT_EQ(shown("m/d/yyyy", -1), kNotShown);
  EXPECT_EQ(shown("m/d/yyyy", 2958465), "12/31/9999");
  EXPECT_EQ(shown("m/d/yyyy", 2958466), kNotShown);
  EXPECT_EQ(shown("h:mm", 1e300), kNotShown);
}

TEST(NumberFormat, EveryWorkbookHasTheBuiltInFormats) {
  EXPECT_EQ(builtInFormatCode(0), "General");
  EXPECT_EQ(builtInFormatCode(2), "0.00");
  EXPECT_EQ(builtInFormatCode(14), "m/d/yyyy");
  EXPECT_EQ(builtInFormatCode(49), "@");
  EXPECT_EQ(builtInFormatCode(163), "General");
}

}  // namespace
}  // namespace quorbind
