#include "shell/number_format.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "support/expect_error.h"

namespace orvex::shell {
namespace {

using store::ErrorNumber;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kGreatest = std::numeric_limits<double>::max();
constexpr double kLeast = std::numeric_limits<double>::denorm_min();  // 4.94065645841247E-324

TEST(NumberFormat, WholeNumbersHaveCommasAndNoPoint) {
  EXPECT_EQ(FormatWhole(0), "0");
  EXPECT_EQ(FormatWhole(999), "999");
  EXPECT_EQ(FormatWhole(1000), "1,000");
  EXPECT_EQ(FormatWhole(1234567.4), "1,234,567");
  EXPECT_EQ(FormatWhole(-1234567.4), "-1,234,567");
}

TEST(NumberFormat, TwoDecimalsAreAlwaysThere) {
  EXPECT_EQ(FormatTwoDecimals(0), "0.00");
  EXPECT_EQ(FormatTwoDecimals(12), "12.00");
  EXPECT_EQ(FormatTwoDecimals(1234.5), "1,234.50");
  EXPECT_EQ(FormatTwoDecimals(-1234.567), "-1,234.57");
}

TEST(NumberFormat, FixedHasTwoDecimalsAndNoCommas) {
  EXPECT_EQ(FormatFixed(0), "0.00");
  EXPECT_EQ(FormatFixed(0.204), "0.20");
  EXPECT_EQ(FormatFixed(0.205), "0.21");
  EXPECT_EQ(FormatFixed(1234567.5), "1234567.50");
  EXPECT_EQ(FormatFixed(-1234.567), "-1234.57");
}

TEST(NumberFormat, FourDecimalsAreAlwaysThere) {
  EXPECT_EQ(FormatFourDecimals(0), "0.0000");
  EXPECT_EQ(FormatFourDecimals(14.7), "14.7000");
  EXPECT_EQ(FormatFourDecimals(1234.5), "1,234.5000");
  EXPECT_EQ(FormatFourDecimals(0.00012), "0.0001");
}

TEST(NumberFormat, TwoToSixDecimalsDropZerosBehindTheSecond) {
  EXPECT_EQ(FormatTwoToSixDecimals(0), "0.00");
  EXPECT_EQ(FormatTwoToSixDecimals(1234.5), "1,234.50");
  EXPECT_EQ(FormatTwoToSixDecimals(1234.567), "1,234.567");
  EXPECT_EQ(FormatTwoToSixDecimals(0.1234567), "0.123457");
  EXPECT_EQ(FormatTwoToSixDecimals(0.120304), "0.120304");
  EXPECT_EQ(FormatTwoToSixDecimals(-0.1203), "-0.1203");
}

TEST(NumberFormat, ScientificHasTwoDecimalsAndTwoExponentDigitsAtLeast) {
  EXPECT_EQ(FormatScientific(0), "0.00E+00");
  EXPECT_EQ(FormatScientific(-0.0), "0.00E+00");
  EXPECT_EQ(FormatScientific(1), "1.00E+00");
  EXPECT_EQ(FormatScientific(0.0000123456), "1.23E-05");
  EXPECT_EQ(FormatScientific(-123456), "-1.23E+05");
  EXPECT_EQ(FormatScientific(1e300), "1.00E+300");
  EXPECT_EQ(FormatScientific(kLeast), "4.94E-324");
}

TEST(NumberFormat, PlainDecimalShowsWhatThereIsAndNoMore) {
  EXPECT_EQ(PlainDecimal(0), "0");
  EXPECT_EQ(PlainDecimal(-0.0), "0");
  EXPECT_EQ(PlainDecimal(100), "100");
  EXPECT_EQ(PlainDecimal(14.7), "14.7");
  EXPECT_EQ(PlainDecimal(-0.5), "-0.5");
  EXPECT_EQ(PlainDecimal(0.1 + 0.2), "0.3");  // 0.30000000000000004 has 17 digits
  EXPECT_EQ(PlainDecimal(1.0 / 3), "0.333333333333333");
}

TEST(NumberFormat, HalvesAreRoundedAwayFromZero) {
  EXPECT_EQ(FormatWhole(0.5), "1");
  EXPECT_EQ(FormatWhole(1.5), "2");
  EXPECT_EQ(FormatWhole(2.5), "3");
  EXPECT_EQ(FormatWhole(-2.5), "-3");
  EXPECT_EQ(FormatTwoDecimals(0.125), "0.13");
  EXPECT_EQ(FormatTwoDecimals(-0.125), "-0.13");
  EXPECT_EQ(FormatFourDecimals(0.00005), "0.0001");
  EXPECT_EQ(FormatTwoToSixDecimals(0.0000005), "0.000001");
}

TEST(NumberFormat, AHalfIsOneOnFifteenDigitsWhateverTheBinaryNumberIs) {
  // As binary numbers these are 1.00499999999999989..., 2.67499999999999982... and 1.0005000000000001....
  EXPECT_EQ(FormatTwoDecimals(1.005), "1.01");
  EXPECT_EQ(FormatTwoDecimals(2.675), "2.68");
  EXPECT_EQ(FormatScientific(1.005), "1.01E+00");
  // Half of the sixteenth digit is no half of the fifteenth: 0.00499999999999999 stays below.
  EXPECT_EQ(FormatTwoDecimals(0.00499999999999999), "0.00");
  EXPECT_EQ(FormatTwoDecimals(0.004999999999999999), "0.01");  // 15 digits: 0.00500000000000000
}

TEST(NumberFormat, ACarryRunsThroughTheNines) {
  EXPECT_EQ(FormatTwoDecimals(999.995), "1,000.00");
  EXPECT_EQ(FormatTwoDecimals(-999.995), "-1,000.00");
  EXPECT_EQ(FormatTwoDecimals(0.995), "1.00");
  EXPECT_EQ(FormatWhole(999999.5), "1,000,000");
  EXPECT_EQ(FormatFourDecimals(9.99995), "10.0000");
  EXPECT_EQ(FormatTwoToSixDecimals(0.9999995), "1.00");
  EXPECT_EQ(FormatScientific(9.995), "1.00E+01");
  EXPECT_EQ(FormatScientific(0.09995), "1.00E-01");
  EXPECT_EQ(FormatScientific(9.995e99), "1.00E+100");
  EXPECT_EQ(FormatScientific(9.995e-101), "1.00E-100");
}

TEST(NumberFormat, NothingThatShowsAsZeroHasASign) {
  EXPECT_EQ(FormatTwoDecimals(-0.0), "0.00");
  EXPECT_EQ(FormatTwoDecimals(-0.001), "0.00");
  EXPECT_EQ(FormatTwoDecimals(-0.005), "-0.01");
  EXPECT_EQ(FormatWhole(-0.4), "0");
  EXPECT_EQ(FormatFourDecimals(-0.00004), "0.0000");
  EXPECT_EQ(FormatTwoToSixDecimals(-1e-7), "0.00");
}

TEST(NumberFormat, SmallNumbersShowTheirDecimals) {
  EXPECT_EQ(FormatTwoDecimals(1e-7), "0.00");
  EXPECT_EQ(FormatTwoDecimals(kLeast), "0.00");
  EXPECT_EQ(FormatScientific(1e-7), "1.00E-07");
  EXPECT_EQ(PlainDecimal(1e-7), "0.0000001");
  EXPECT_EQ(PlainDecimal(1.5e-20), "0.000000000000000000015");
  EXPECT_EQ(PlainDecimal(kLeast), "0." + std::string(323, '0') + "494065645841247");
}

TEST(NumberFormat, GreatNumbersAreFilledUpWithZeros) {
  EXPECT_EQ(FormatTwoDecimals(1e15), "1,000,000,000,000,000.00");
  EXPECT_EQ(FormatTwoDecimals(999999999999999), "999,999,999,999,999.00");
  // Sixteen digits: the last one is rounded.
  EXPECT_EQ(FormatWhole(1234567890123456), "1,234,567,890,123,460");
  EXPECT_EQ(PlainDecimal(1234567890123456), "1234567890123460");
  EXPECT_EQ(PlainDecimal(1e300), "1" + std::string(300, '0'));
  // 301 digits: one, then a hundred groups of three.
  const std::string text = FormatTwoDecimals(-1e300);
  EXPECT_EQ(text.substr(0, 10), "-1,000,000");
  EXPECT_EQ(text.substr(text.size() - 7), ",000.00");
  EXPECT_EQ(text.size(), 1 + 1 + 100 * 4 + 3U);
}

TEST(NumberFormat, RoundingGivesTheNumberThatTheFormatShows) {
  EXPECT_EQ(RoundTwoDecimals(1014.696), 1014.7);
  EXPECT_EQ(RoundFourDecimals(1234.56785), 1234.5679);
  EXPECT_EQ(RoundFourDecimals(-0.00004), 0.0);
  EXPECT_EQ(RoundSixDecimals(518.6712345), 518.671235);
  EXPECT_EQ(RoundSixDecimals(-459.67), -459.67);
  EXPECT_EQ(RoundScientific(0.0000123456), 1.23e-5);
  EXPECT_EQ(RoundScientific(99950), 1e5);
  EXPECT_EQ(RoundScientific(kLeast), kLeast);
}

TEST(NumberFormat, ThousandsCommasDoNotReachARoundedNumber) {
  EXPECT_EQ(RoundFourDecimals(1234567), 1234567.0);
  EXPECT_EQ(RoundSixDecimals(1e15), 1e15);
  EXPECT_EQ(RoundFourDecimals(1e300), 1e300);
}

TEST(NumberFormat, ANumberThatIsNotFiniteIsAnOverflow) {
  EXPECT_RUN_TIME_ERROR(FormatTwoDecimals(kInfinity), ErrorNumber::kOverflow);
  EXPECT_RUN_TIME_ERROR(FormatScientific(-kInfinity), ErrorNumber::kOverflow);
  EXPECT_RUN_TIME_ERROR(PlainDecimal(std::numeric_limits<double>::quiet_NaN()), ErrorNumber::kOverflow);
}

TEST(NumberFormat, ANumberThatIsRoundedBeyondTheRangeIsAnOverflow) {
  // The greatest number is 1.79769313486231571E+308; fifteen digits of it end with ...232.
  EXPECT_EQ(FormatScientific(kGreatest), "1.80E+308");
  EXPECT_RUN_TIME_ERROR(RoundScientific(kGreatest), ErrorNumber::kOverflow);
  EXPECT_RUN_TIME_ERROR(RoundFourDecimals(kGreatest), ErrorNumber::kOverflow);
  EXPECT_RUN_TIME_ERROR(RoundSixDecimals(-kGreatest), ErrorNumber::kOverflow);
}

}  // namespace
}  // namespace orvex::shell
