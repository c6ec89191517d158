#include "emission/liquid_temperature.h"

#include <gtest/gtest.h>

#include <limits>

#include "emission/solar.h"
#include "support/expect_error.h"

namespace orvex::emission {
namespace {

TEST(ALST, FollowsThePeriodAndTheYearlyBulk) {
  // T_B = 519.67 + 6 * 0.17 - 1 = 519.69
  // 0.44 * 509.67 = 224.2548; 0.56 * 519.69 = 291.0264; 0.0079 * 0.17 * 1200 = 1.6116; sum 516.8928
  EXPECT_DOUBLE_EQ(ALST(519.67, 509.67, 0.17, 1200), 516.8928);
}

TEST(ALST, OfABareTankKnowsNoSun) {
  // 0.44 * 500 + 0.56 * (510 - 1) = 220 + 285.04
  EXPECT_DOUBLE_EQ(ALST(510, 500, Solar("", "", "", ""), 1200), 505.04);
}

TEST(ALST, KeepsTheOrderOfItsArithmetic) {
  // IEEE doubles, one operation after the other; any regrouping of the terms ends in ...08a.
  EXPECT_EQ(ALST(508.89, 524.7, 0.57, 950), 0x1.04bd5e9e1b089p+9);
}

TEST(ALST, OutsideTheRangeIsError6) {
  EXPECT_RUN_TIME_ERROR(ALST(std::numeric_limits<double>::max(), std::numeric_limits<double>::max(), 1e300, 1e300), 6);
}

TEST(BulkTemperature, IsWarmedByThePaint) {
  // 519.67 + 6 * 0.17 - 1
  EXPECT_DOUBLE_EQ(BulkTemperature(519.67, 0.17), 519.69);
}

TEST(LiquidTemperatureRange, SwingsAroundTheAverage) {
  // 0.72 * (529.67 - 509.67) = 14.4; 0.028 * 0.17 * 1200 = 5.712; 0.25 * 20.112 = 5.028
  EXPECT_DOUBLE_EQ(MaxLiquidTemp(516.8928, 529.67, 509.67, 0.17, 1200), 521.9208);
  EXPECT_DOUBLE_EQ(MinLiquidTemp(516.8928, 529.67, 509.67, 0.17, 1200), 511.8648);
}

TEST(LiquidTemperatureRange, WithoutSunOrSwingIsTheAverage) {
  EXPECT_EQ(MaxLiquidTemp(516.8928, 519.67, 519.67, 0, 1200), 516.8928);
  EXPECT_EQ(MinLiquidTemp(516.8928, 519.67, 519.67, 0, 1200), 516.8928);
}

TEST(LiquidTemperatureRange, KeepsTheOrderOfItsArithmetic) {
  // IEEE doubles, one operation after the other; with 0.028 * (alpha * I), or 0.25 multiplied out, it ends in ...465.
  EXPECT_EQ(MaxLiquidTemp(505.64, 532.21, 494.67, 0.74, 1164), 0x1.03369ec2ce464p+9);
}

TEST(Conversions, BetweenFahrenheitAndRankine) {
  EXPECT_DOUBLE_EQ(FahrenheitToRankine(60), 519.67);
  EXPECT_NEAR(RankineToFahrenheit(519.67), 60, 1e-12);
  EXPECT_EQ(FahrenheitToRankine(0), 459.67);
  EXPECT_EQ(RankineToFahrenheit(459.67), 0);
}

TEST(Conversions, FromRankineToCelsiusAndKelvin) {
  // 212 deg F boils water: (212 - 32) / 1.8 = 100; 32 deg F freezes it
  EXPECT_NEAR(RankineToCelsius(671.67), 100, 1e-12);
  EXPECT_NEAR(RankineToCelsius(491.67), 0, 1e-12);
  EXPECT_NEAR(RankineToKelvin(671.67), 373.15, 1e-12);
  // (60 - 32) / 1.8 + 273.15
  EXPECT_NEAR(RankineToKelvin(519.67), 288.705555555555556, 1e-12);
}

}  // namespace
}  // namespace orvex::emission
