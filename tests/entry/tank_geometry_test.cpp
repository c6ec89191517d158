#include "entry/tank_geometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/expect_error.h"

namespace orvex::entry {
namespace {

using store::ErrorNumber;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

double Above(double value) { return std::nextafter(value, kInfinity); }
double Below(double value) { return std::nextafter(value, -kInfinity); }

TEST(TankGeometry, GivesTheVolumeOfACylinder) {
  // (10 / 2)^2 * 3.14159 * 20 / 0.13368 = 25 * 62.8318 / 0.13368 = 1570.795 / 0.13368 = 11750.41143028
  EXPECT_EQ(CylinderVolume(10, 20), 11750.41143);
}

TEST(TankGeometry, GivesTheDiameterThatHoldsAVolume) {
  // 10000 * 4 * 0.13368 / (20 * 3.14159) = 5347.2 / 62.8318 = 85.10340306; its root is 9.22515057
  EXPECT_EQ(DiameterFromVolume(10000, 20), 9.225151);
}

TEST(TankGeometry, GivesTheHeightAtWhichAVolumeStands) {
  // 10000 * 0.13368 / (25 * 3.14159) = 1336.8 / 78.53975 = 17.02068061
  EXPECT_EQ(HeightFromVolume(10000, 10), 17.020681);
}

TEST(TankGeometry, GivesOneQuantityOfThroughputByTheOtherTwo) {
  EXPECT_EQ(VolumeFromThroughput(10000, 3), 3333.333333);  // 10000 / 3
  EXPECT_EQ(Turnovers(10000, 7), 1428.571429);             // 10000 / 7 = 1428.5714285...
  EXPECT_EQ(Throughput(2.5, 1000.2), 2500.5);              // 2.5 * 1000.2
}

TEST(TankGeometry, GivesASlopeInWholeHundredths) {
  EXPECT_EQ(ConeSlope(1.25, 20), 0.12);   // 1.25 / 10 * 100 = 12.5, halfway: the even one is 12
  EXPECT_EQ(ConeSlope(1.75, 100), 0.04);  // 1.75 / 50 * 100 = 3.5, halfway: the even one is 4
  EXPECT_EQ(ConeSlope(1, 30), 0.07);      // 1 / 15 * 100 = 6.67
  EXPECT_EQ(ConeSlope(0, 30), 0);
}

TEST(TankGeometry, TakesExactlyTenPercentForInside) {
  EXPECT_FALSE(OutsideTenPercent(90, 100));  // 100 - 100 * 0.1 = 90
  EXPECT_TRUE(OutsideTenPercent(Below(90), 100));
  const double upper = 100 * 1.1;
  EXPECT_FALSE(OutsideTenPercent(upper, 100));
  EXPECT_TRUE(OutsideTenPercent(Above(upper), 100));
  EXPECT_FALSE(OutsideTenPercent(0, 0));
  EXPECT_TRUE(OutsideTenPercent(Above(0), 0));
  EXPECT_TRUE(OutsideTenPercent(Below(0), 0));
}

TEST(TankGeometry, DividesByNothing) {
  EXPECT_RUN_TIME_ERROR(DiameterFromVolume(1, 0), ErrorNumber::kDivisionByZero);
  EXPECT_RUN_TIME_ERROR(HeightFromVolume(1, 0), ErrorNumber::kDivisionByZero);
  EXPECT_RUN_TIME_ERROR(VolumeFromThroughput(1, 0), ErrorNumber::kDivisionByZero);
  EXPECT_RUN_TIME_ERROR(Turnovers(1, 0), ErrorNumber::kDivisionByZero);
  EXPECT_RUN_TIME_ERROR(ConeSlope(1, 0), ErrorNumber::kDivisionByZero);
}

TEST(TankGeometry, OverflowsInsteadOfGivingInfinity) {
  EXPECT_RUN_TIME_ERROR(CylinderVolume(1e200, 1), ErrorNumber::kOverflow);
  EXPECT_RUN_TIME_ERROR(DiameterFromVolume(1e308, 1), ErrorNumber::kOverflow);
  EXPECT_RUN_TIME_ERROR(HeightFromVolume(1e308, 1e-10), ErrorNumber::kOverflow);
  EXPECT_RUN_TIME_ERROR(VolumeFromThroughput(1e308, 0.1), ErrorNumber::kOverflow);
  EXPECT_RUN_TIME_ERROR(Throughput(1e200, 1e200), ErrorNumber::kOverflow);
  EXPECT_RUN_TIME_ERROR(ConeSlope(1e9, 1), ErrorNumber::kOverflow);
}

TEST(TankGeometry, HasNoDiameterForANegativeVolume) {
  EXPECT_RUN_TIME_ERROR(DiameterFromVolume(-1, 20), ErrorNumber::kInvalidProcedureCall);
}

}  // namespace
}  // namespace orvex::entry
