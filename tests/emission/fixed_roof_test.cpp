#include "emission/fixed_roof.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/expect_error.h"

namespace orvex::emission {
namespace {

constexpr std::string_view kVertical = "Vertical Fixed Roof Tank";
constexpr std::string_view kHorizontal = "Horizontal Tank";

/// A vertical tank 40 ft high, filled to 20 ft, as the roof tests change it.
RoofShape Vertical(std::string_view roof_type, double roof_height, double cone_slope = 0.0625) {
  return {kVertical, roof_type, cone_slope, 40, 20, roof_height};
}

/// Gasoline-like liquid at 1.5 psia in a white tank with vents of +-0.03 psig.
constexpr ExpansionInputs kSunnyDay = {
    .ambient_max_r = 529.67,
    .ambient_min_r = 509.67,
    .absorptance = 0.17,
    .insolation = 1200,
    .average_surface_r = 516.8928,
    .atmospheric_psia = 14.7,
    .vent_pressure_psig = 0.03,
    .vent_vacuum_psig = -0.03,
    .average_psia = 1.5,
    .maximum_psia = 1.65,
    .minimum_psia = 1.35,
    .heated = false,
};

TEST(EffDiam, OfAVerticalTankIsItsDiameter) { EXPECT_EQ(EffDiam(12, 30, kVertical), 12); }

TEST(EffDiam, OfAnyOtherTankIsThatOfACircleOfItsSurface) {
  // root of (30 * 12 / 0.785) = root of 458.598726
  EXPECT_DOUBLE_EQ(EffDiam(12, 30, kHorizontal), 21.41491830744749);
  EXPECT_DOUBLE_EQ(EffDiam(12, 30, ""), 21.41491830744749);
}

TEST(EffDiam, KeepsTheOrderOfItsArithmetic) {
  // IEEE doubles: length * diameter first, then / 0.785; dividing first ends in ...a4c.
  EXPECT_EQ(EffDiam(10, 60.4, kHorizontal), 0x1.bbd11228bca4dp+4);
}

TEST(EffDiam, OfANegativeLengthIsError5) { EXPECT_RUN_TIME_ERROR(EffDiam(12, -30, kHorizontal), 5); }

TEST(RoofOutage, OfAConeIsAThirdOfItsHeight) {
  double dome_radius = 0;
  EXPECT_DOUBLE_EQ(HRO(Vertical("Cone", 4.5), 30, dome_radius), 1.5);
  EXPECT_DOUBLE_EQ(HVO(Vertical("Cone", 4.5), 30, dome_radius, 30), 21.5);
  EXPECT_EQ(dome_radius, 0) << "a cone has no radius to fill in";
}

TEST(RoofOutage, OfAConeWithoutHeightFollowsFromItsSlope) {
  // (0.0625 * 30 / 2) / 3 = 0.3125
  double dome_radius = 0;
  EXPECT_DOUBLE_EQ(HRO(Vertical("Cone", 0), 30, dome_radius), 0.3125);
  EXPECT_DOUBLE_EQ(HVO(Vertical("Cone", 0), 30, dome_radius, 30), 20.3125);
}

TEST(RoofOutage, OfADomeFollowsFromItsHeight) {
  // 4 * (1/2 + 1/6 * (4 / 15)^2) = 4 * (0.5 + 0.0118518519) = 2.04740741
  double dome_radius = 0;
  EXPECT_DOUBLE_EQ(HRO(Vertical("Dome", 4), 30, dome_radius), 2.0474074074074074);
  EXPECT_DOUBLE_EQ(HVO(Vertical("Dome", 4), 30, dome_radius, 30), 22.047407407407407);
  EXPECT_EQ(dome_radius, 0) << "a dome of known height needs no radius";
}

TEST(RoofOutage, ALowRoofStillHasAHeight) {
  // Cone: 0.5 / 3; dome: 0.5 * (1/2 + 1/6 * (0.5 / 15)^2) = 0.250092593
  double dome_radius = 24;
  EXPECT_DOUBLE_EQ(HRO(Vertical("Cone", 0.5), 30, dome_radius), 0.16666666666666667);
  EXPECT_DOUBLE_EQ(HRO(Vertical("Dome", 0.5), 30, dome_radius), 0.25009259259259259);
}

TEST(RoofOutage, OfADomeWithoutHeightFollowsFromItsRadius) {
  // H = 24 - root of (24^2 - 15^2) = 24 - 18.7349940 = 5.26500600
  // 5.26500600 * (1/2 + 1/6 * (5.26500600 / 15)^2) = 2.74061225
  double dome_radius = 24;
  EXPECT_DOUBLE_EQ(HRO(Vertical("Dome", 0), 30, dome_radius), 2.7406122498018030);
  EXPECT_EQ(dome_radius, 24);
}

TEST(RoofOutage, OfADomeWithoutHeightAndRadiusTakesTheDiameterAsItsRadiusAndKeepsIt) {
  // H = 30 - root of (30^2 - 15^2) = 4.01923789; 4.01923789 * (1/2 + 1/6 * (4.01923789 / 15)^2) = 2.05771366
  double dome_radius = 0;
  EXPECT_NEAR(HRO(Vertical("Dome", 0), 30, dome_radius), 2.0577136594005218, 1e-14);
  EXPECT_EQ(dome_radius, 30);

  dome_radius = 0;
  EXPECT_NEAR(HVO(Vertical("Dome", 0), 30, dome_radius, 30), 22.057713659400522, 1e-13);
  EXPECT_EQ(dome_radius, 30);
}

TEST(RoofOutage, OfAnyOtherRoofIsNothingAtAll) {
  for (const std::string_view roof : {"", "Flat", "cone", "DOME"}) {
    double dome_radius = 0;
    EXPECT_EQ(HRO(Vertical(roof, 4), 30, dome_radius), 0) << roof;
    EXPECT_EQ(HVO(Vertical(roof, 4), 30, dome_radius, 30), 0) << roof << ": not the outage of the shell alone";
    EXPECT_EQ(dome_radius, 0) << roof;
  }
}

TEST(RoofOutage, OfAHorizontalTankIgnoresItsRoofFieldsAndIsHalfTheActualDiameter) {
  double dome_radius = 0;
  for (const std::string_view roof : {"Cone", "Dome", ""}) {
    const RoofShape lying = {kHorizontal, roof, 0.0625, 30, 6, 4};
    EXPECT_EQ(HRO(lying, 21.4, dome_radius), 0);
    EXPECT_EQ(HVO(lying, 21.4, dome_radius, 12), 6);
  }
  EXPECT_EQ(dome_radius, 0);
}

TEST(RoofOutage, OfADomeFlatterThanTheTankIsWideIsError5) {
  double dome_radius = 14;
  EXPECT_RUN_TIME_ERROR(HRO(Vertical("Dome", 0), 30, dome_radius), 5);
  EXPECT_RUN_TIME_ERROR(HVO(Vertical("Dome", 0), 30, dome_radius, 30), 5);
}

TEST(RoofOutage, OfADomeWithoutDiameterIsError11) {
  double dome_radius = 0;
  EXPECT_RUN_TIME_ERROR(HRO(Vertical("Dome", 4), 0, dome_radius), 11);
  EXPECT_RUN_TIME_ERROR(HRO(Vertical("Dome", 0), 0, dome_radius), 11);
}

TEST(RoofOutage, KeepsTheOrderOfItsArithmetic) {
  // IEEE doubles. Dome: h * (1/2 + (1/6) * (h / R) squared); dividing by 6 last ends in ...1ca.
  double dome_radius = 0;
  EXPECT_EQ(HRO(Vertical("Dome", 16.83), 15.8, dome_radius), 0x1.5254247dc91c9p+4);
  // 48.61 - 24.35 + 3.57 / 3, from the left; with the liquid taken off last it ends in ...332.
  const RoofShape shape = {kVertical, "Cone", 0, 48.61, 24.35, 3.57};
  EXPECT_EQ(HVO(shape, 30, dome_radius, 30), 0x1.9733333333333p+4);
}

TEST(VaporVolume, IsThatOfACylinder) {
  // 3.14159265 / 4 * 30^2 * 20.625 = 0.7853981625 * 900 * 20.625
  EXPECT_DOUBLE_EQ(VaporVolume(20.625, 30), 14578.95339140625);
}

TEST(VaporVolume, KeepsTheOrderOfItsArithmetic) {
  // IEEE doubles, ((pi / 4) * D squared) * H; other groupings end in ...0a9 and ...0aa.
  EXPECT_EQ(VaporVolume(29.21, 144.29), 0x1.d270226c6f0a8p+18);
}

TEST(VaporVolume, OutsideTheRangeIsError6) { EXPECT_RUN_TIME_ERROR(VaporVolume(1, 1e200), 6); }

TEST(VaporSaturation, FallsWithPressureAndOutage) {
  // 1 / (1 + 0.053 * 1.5 * 20.625) = 1 / 2.6396875
  EXPECT_DOUBLE_EQ(VaporSaturation(1.5, 20.625), 0.37883272167633479);
  EXPECT_EQ(VaporSaturation(1.5, 0), 1);
  EXPECT_EQ(VaporSaturation(0, 20.625), 1);
}

TEST(VaporSaturation, KeepsTheOrderOfItsArithmetic) {
  // IEEE doubles, (0.053 * P) * H; 0.053 * (P * H) ends in ...c09.
  EXPECT_EQ(VaporSaturation(5.24, 37.23), 0x1.6936f82a42c08p-4);
}

TEST(VaporSaturation, DoesNotHideAnOverflow) {
  EXPECT_RUN_TIME_ERROR(VaporSaturation(std::numeric_limits<double>::max(), 1e10), 6);
}

TEST(VaporTemperatureRange, FollowsTheSun) {
  // 0.72 * 20 + 0.028 * 0.17 * 1200 = 14.4 + 5.712
  EXPECT_NEAR(VaporTemperatureRange(kSunnyDay), 20.112, 1e-12);
}

TEST(VaporTemperatureRange, OfAHeatedTankIsThatOfItsLiquid) {
  ExpansionInputs heated = kSunnyDay;
  heated.heated = true;
  EXPECT_NEAR(VaporTemperatureRange(heated), 20, 1e-12);
}

TEST(VaporExpansion, ComesFromTheRangesOfTemperatureAndPressure) {
  // 20.112 / 516.8928 = 0.0389094219; ((1.65 - 1.35) - (0.03 + 0.03)) / (14.7 - 1.5) = 0.24 / 13.2 = 0.0181818182
  EXPECT_NEAR(VaporExpansion(kSunnyDay), 0.057091240019382953, 1e-15);
}

TEST(VaporExpansion, OfAHeatedTankTakesTheWholeTemperatureRange) {
  // 20 / 516.8928 + 0.24 / 13.2 = 0.0386927425 + 0.0181818182
  ExpansionInputs heated = kSunnyDay;
  heated.heated = true;
  EXPECT_NEAR(VaporExpansion(heated), 0.056874560661496753, 1e-15);
}

TEST(VaporExpansion, WithVentsWiderThanThePressureRangeIsNeverNegative) {
  // 0.0389094219 + (0.3 - 2) / 13.2 = -0.0899 below zero
  ExpansionInputs stiff_vents = kSunnyDay;
  stiff_vents.vent_pressure_psig = 1;
  stiff_vents.vent_vacuum_psig = -1;
  EXPECT_EQ(VaporExpansion(stiff_vents), 0);
}

TEST(VaporExpansion, OfAHeatedTankAtConstantTemperatureIsNothingWithOpenVents) {
  ExpansionInputs constant = kSunnyDay;
  constant.heated = true;
  constant.ambient_max_r = constant.ambient_min_r = constant.average_surface_r;
  constant.maximum_psia = constant.minimum_psia = constant.average_psia;
  constant.vent_pressure_psig = constant.vent_vacuum_psig = 0;
  EXPECT_EQ(VaporExpansion(constant), 0);
}

TEST(VaporExpansion, AtAtmosphericVaporPressureIsError11) {
  ExpansionInputs boiling = kSunnyDay;
  boiling.average_psia = boiling.atmospheric_psia;
  EXPECT_RUN_TIME_ERROR(VaporExpansion(boiling), 11);
}

TEST(VaporExpansion, AtASurfaceTemperatureOfZeroIsError11) {
  ExpansionInputs cold = kSunnyDay;
  cold.average_surface_r = 0;
  EXPECT_RUN_TIME_ERROR(VaporExpansion(cold), 11);
}

TEST(KP, IsLowerForCrudeOils) {
  EXPECT_EQ(KP("Crude Oils"), 0.75);
  for (const std::string_view other : {"Organic Liquids", "Petroleum Distillates", "", "crude oils"})
    EXPECT_EQ(KP(other), 1) << other;
}

TEST(TurnoverFactor, IsOneUpToThirtySixTurnovers) {
  EXPECT_EQ(TurnoverFactor(36), 1);
  EXPECT_EQ(TurnoverFactor(10), 1);
  EXPECT_EQ(TurnoverFactor(0), 1);
  EXPECT_EQ(TurnoverFactor(-5), 1);
}

TEST(TurnoverFactor, FallsAboveThirtySixTurnovers) {
  // (180 + 37) / (6 * 37) = 217 / 222; (180 + 40) / 240
  EXPECT_DOUBLE_EQ(TurnoverFactor(37), 0.97747747747747748);
  EXPECT_DOUBLE_EQ(TurnoverFactor(40), 0.91666666666666667);
  EXPECT_LT(TurnoverFactor(36.0001), 1);
}

TEST(WorkingLoss, GrowsWithThroughput) {
  // 0.001 * 80 * 1.5 * (420000 / 42) * 217/222 * 0.75 = 0.12 * 10000 * 0.97747747... * 0.75
  EXPECT_DOUBLE_EQ(WorkingLoss(80, 1.5, 420000, 217.0 / 222.0, 0.75), 879.72972972972973);
  EXPECT_EQ(WorkingLoss(80, 1.5, 0, 1, 1), 0);
}

TEST(WorkingLoss, KeepsTheOrderOfItsArithmetic) {
  // IEEE doubles from the left, Q / 42 first; other groupings end in ...a45 and ...a46.
  EXPECT_EQ(WorkingLoss(73.86, 9.607, 3097781.4, 0.3415, 0.75), 0x1.a2e3fb2ec3a44p+13);
}

TEST(WorkingLoss, OutsideTheRangeIsError6) { EXPECT_RUN_TIME_ERROR(WorkingLoss(1e200, 1e200, 42, 1, 1), 6); }

}  // namespace
}  // namespace orvex::emission
