#include "emission/vapor_pressure_forms.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>

#include "emission/liquid_temperature.h"
#include "support/expect_error.h"

namespace orvex::emission {
namespace {

constexpr std::array<double, 7> kTable = {1.0, 1.5, 2.25, 3.0, 4.0, 5.5, 7.0};

double AtFahrenheit(double fahrenheit) { return TabulatedVaporPressure(kTable, FahrenheitToRankine(fahrenheit)); }

TEST(TabulatedVaporPressure, GivesTheTableAtItsOwnTemperatures) {
  for (std::size_t i = 0; i < kTable.size(); ++i)
    EXPECT_NEAR(AtFahrenheit(40 + 10 * static_cast<double>(i)), kTable[i], 1e-12) << i;
}

TEST(TabulatedVaporPressure, AtFortyAndAHundredDegreesIsTheFirstAndLastValue) {
  EXPECT_EQ(AtFahrenheit(40), 1.0);
  // 90-100 is the band that holds 100
  EXPECT_NEAR(AtFahrenheit(100), 7.0, 1e-12);
}

TEST(TabulatedVaporPressure, IsNotContinuedBeyondTheTable) {
  for (const double cold : {39.99, 0.0, -459.67}) EXPECT_EQ(AtFahrenheit(cold), 1.0) << cold;
  for (const double hot : {100.01, 150.0, 1e6}) EXPECT_EQ(AtFahrenheit(hot), 7.0) << hot;
}

TEST(TabulatedVaporPressure, RunsStraightBetweenTwoValues) {
  // (45 - 40) / 10 * (1.5 - 1) + 1 = 1.25; (62 - 60) / 10 * (3 - 2.25) + 2.25 = 2.4; 95: 5.5 + 0.5 * 1.5 = 6.25
  EXPECT_NEAR(AtFahrenheit(45), 1.25, 1e-12);
  EXPECT_NEAR(AtFahrenheit(62), 2.4, 1e-12);
  EXPECT_NEAR(AtFahrenheit(95), 6.25, 1e-12);
}

TEST(TabulatedVaporPressure, HasNoStepAtTheBorderOfTwoBands) {
  for (std::size_t i = 1; i + 1 < kTable.size(); ++i) {
    const double border = 40 + 10 * static_cast<double>(i);
    EXPECT_NEAR(AtFahrenheit(border - 1e-9), kTable[i], 1e-9) << border;
    EXPECT_NEAR(AtFahrenheit(border + 1e-9), kTable[i], 1e-9) << border;
  }
}

TEST(TabulatedVaporPressure, AtABorderBelongsToTheBandBelowIt) {
  // 509.67 - 459.67 is 50 to the last bit, and so is (50 - 40) / 10 = 1; 0.706 + 1 * (6.396 - 0.706) in IEEE doubles is
  // one bit short of the 6.396 that the band from 50 would start with.
  EXPECT_EQ(TabulatedVaporPressure({0.706, 6.396, 7, 7, 7, 7, 7}, 509.67), 0x1.995810624dd2ep+2);
}

TEST(TabulatedVaporPressure, KeepsTheOrderOfItsArithmetic) {
  // 69.72 deg F between 1.2839 and 4.0944 psia, IEEE doubles, one operation after the other; dividing by 10 last ends
  // in ...75d.
  EXPECT_EQ(TabulatedVaporPressure({0, 0, 1.2839, 4.0944, 0, 0, 0}, 529.39), 0x1.010153bd1675ep+2);
}

TEST(TabulatedVaporPressure, AtNoFiniteTemperatureIsError6) {
  EXPECT_RUN_TIME_ERROR(TabulatedVaporPressure(kTable, std::numeric_limits<double>::quiet_NaN()), 6);
}

TEST(AntoineVaporPressure, OfBenzeneAt75Degrees) {
  // TC = (75 - 32) / 1.8 = 23.8888889; 6.905 - 1211.033 / (23.8888889 + 220.79) = 1.95552109
  // 10^1.95552109 = 90.2653543 mmHg; x 14.696 / 760 = 1.74544690 psia
  EXPECT_NEAR(AntoineVaporPressure(6.905, 1211.033, 220.79, 534.67), 1.7454469036630785, 1e-13);
}

TEST(AntoineVaporPressure, TakesOneAtmosphereAs14696ThousandthsOfAPsi) {
  // 10^(2 - 0 / x) = 100 mmHg; 100 * 14.696 / 760 = 1.93368421
  EXPECT_DOUBLE_EQ(AntoineVaporPressure(2, 0, 200, 519.67), 1.9336842105263158);
}

TEST(AntoineVaporPressure, AtTheTemperatureThatMeetsMinusCIsError11) {
  EXPECT_RUN_TIME_ERROR(AntoineVaporPressure(6.905, 1211.033, -RankineToCelsius(534.67), 534.67), 11);
}

TEST(AntoineVaporPressure, OutsideTheRangeIsError6) {
  EXPECT_RUN_TIME_ERROR(AntoineVaporPressure(400, 1, 200, 534.67), 6);
}

TEST(KelvinVaporPressure, At60Degrees) {
  // TK = (60 - 32) / 1.8 + 273.15 = 288.705556; -0.05223 * 30000 / 288.705556 + 7.9 = 2.47267112
  // 10^2.47267112 = 296.941651 mmHg; x 14.696 / 760 = 5.74191381 psia
  EXPECT_NEAR(KelvinVaporPressure(30000, 7.9, 519.67), 5.7419138109300355, 1e-12);
}

TEST(KelvinVaporPressure, OutsideTheRangeIsError6) { EXPECT_RUN_TIME_ERROR(KelvinVaporPressure(1, 400, 519.67), 6); }

TEST(CrudeOilVaporPressure, OfReidPressureFiveAt60Degrees) {
  // ln 5 = 1.60943791; A = 12.82 - 0.9672 * 1.60943791 = 11.2633517; B = 7261 - 1216 * 1.60943791 = 5303.92350
  // e^(11.2633517 - 5303.92350 / 519.67) = 2.87778723
  EXPECT_NEAR(CrudeOilVaporPressure(5, 519.67), 2.8777872284409860, 1e-13);
}

TEST(CrudeOilVaporPressure, WithoutReidPressureIsError5) {
  EXPECT_RUN_TIME_ERROR(CrudeOilVaporPressure(0, 519.67), 5);
  EXPECT_RUN_TIME_ERROR(CrudeOilVaporPressure(-1, 519.67), 5);
}

TEST(CrudeOilVaporPressure, AtAbsoluteZeroIsError11) { EXPECT_RUN_TIME_ERROR(CrudeOilVaporPressure(5, 0), 11); }

TEST(DistillateVaporPressure, OfReidPressureTenAndSlopeThreeAt60Degrees) {
  // ln 10 = 2.30258509, root of 3 = 1.73205081
  // A = 15.64 - 1.854 * 1.73205081 - (0.8742 - 0.328 * 1.73205081) * 2.30258509 = 11.7239857
  // B = 8742 - 1042 * 1.73205081 - (1049 - 179.4 * 1.73205081) * 2.30258509 = 5237.27337
  // e^(11.7239857 - 5237.27337 / 519.67) = 5.18572893
  EXPECT_NEAR(DistillateVaporPressure(10, 3, 519.67), 5.1857289308773505, 1e-13);
}

TEST(DistillateVaporPressure, WithoutReidPressureOrWithANegativeSlopeIsError5) {
  EXPECT_RUN_TIME_ERROR(DistillateVaporPressure(0, 3, 519.67), 5);
  EXPECT_RUN_TIME_ERROR(DistillateVaporPressure(10, -3, 519.67), 5);
}

TEST(DistillateVaporPressure, AtAbsoluteZeroIsError11) { EXPECT_RUN_TIME_ERROR(DistillateVaporPressure(10, 3, 0), 11); }

}  // namespace
}  // namespace orvex::emission
