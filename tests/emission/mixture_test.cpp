#include "emission/mixture.h"

#include "emission/mixture_fixture.h"

namespace orvex::emission {
namespace {

constexpr double kDigits = 1e-9;  ///< what rounding leaves of the figures worked by hand

/// 40 % Light and 60 % Heavy by weight.
class LiquidMixtureTest : public MixtureTest {
 protected:
  LiquidMixtureTest() {
    AddLight(1, {{"WT_FRACT", 40.0}});
    AddHeavy(2, {{"WT_FRACT", 60.0}});
  }
};

TEST_F(LiquidMixtureTest, TotalMoles) {
  // 40 / 50 + 60 / 100 = 0.8 + 0.6
  EXPECT_NEAR(TotalMoles(test.session, ID, 1), 1.4, kDigits);
}

TEST_F(LiquidMixtureTest, LiquidWeightMixesBothWeightsOfAComponent) {
  // N = 1.4. Light x = (40 / 50) / N, x 50 = 40 / 1.4; Heavy x = (60 / 80) / N, x 80 = 60 / 1.4
  // together 100 / 1.4 = 71.428571 (with the vapor weight in N too it would be 100 / (0.8 + 0.75) = 64.516129)
  EXPECT_NEAR(MixLiquidMW(test.session, ID, 1), 100 / 1.4, kDigits);
}

TEST_F(LiquidMixtureTest, LiquidWeightTakesTheLiquidWeightWhereTheVaporWeightIsNull) {
  ChangeComponent(2, {{"VP_MOLWT", kNull}});
  EXPECT_NEAR(MixLiquidMW(test.session, ID, 1), 100 / 1.4, kDigits);
}

TEST_F(LiquidMixtureTest, LiquidWeightCannotUseAVaporWeightOfZero) {
  ChangeComponent(2, {{"VP_MOLWT", 0.0}});
  test.host.ExpectError(11, "modEmission.MixLiquidMW");
  EXPECT_EQ(MixLiquidMW(test.session, ID, 1), 0);
}

TEST_F(LiquidMixtureTest, Pressure) {
  // M = 500 / 7 = 71.428571; Light x = 0.4 x M / 50 = 4 / 7, Heavy x = 0.6 x M / 100 = 3 / 7
  // at 60 deg F 3 x 4 / 7 + 0.75 x 3 / 7 = 14.25 / 7 = 2.0357143, at 70 deg F (16 + 3) / 7 = 2.7142857
  EXPECT_NEAR(MixturePVA(test.session, ID, 1, k60F), 14.25 / 7, kDigits);
  EXPECT_NEAR(MixturePVA(test.session, ID, 1, k70F), 19.0 / 7, kDigits);
}

TEST_F(LiquidMixtureTest, VaporWeight) {
  // p = 3 x 4 / 7 = 12 / 7 and 0.75 x 3 / 7 = 2.25 / 7 of P = 14.25 / 7
  // 50 x 12 / 14.25 + 80 x 2.25 / 14.25 = 780 / 14.25 = 54.7368421
  EXPECT_NEAR(MixVaporMW(test.session, ID, 1, k60F), 780 / 14.25, kDigits);
}

TEST_F(LiquidMixtureTest, LiquidDensity) {
  // 0.4 / 5 + 0.6 / 8 = 0.155; 1 / 0.155 = 6.4516129
  EXPECT_NEAR(MixLiquidDensity(test.session, ID, 1), 1 / 0.155, kDigits);
}

TEST_F(LiquidMixtureTest, LiquidDensityComesFromTheReferenceTableAtOnce) {
  ChangeComponent(1, {{"L_DENS", 1.0}});
  EXPECT_NEAR(MixLiquidDensity(test.session, ID, 1), 1 / 0.155, kDigits);
  ChangeChemical("Light", {{"L_DENS", 10.0}});
  // 0.4 / 10 + 0.6 / 8 = 0.115
  EXPECT_NEAR(MixLiquidDensity(test.session, ID, 1), 1 / 0.115, kDigits);
}

TEST_F(LiquidMixtureTest, AComponentThatIsNoChemicalAddsNoVolumeToTheDensity) {
  ChangeComponent(1, {{"NAME", "Nothing"}});
  // only 0.6 / 8 = 0.075; 1 / 0.075 = 13.333333
  EXPECT_NEAR(MixLiquidDensity(test.session, ID, 1), 1 / 0.075, kDigits);
  ChangeComponent(2, {{"NAME", "Nothing"}});
  EXPECT_EQ(MixLiquidDensity(test.session, ID, 1), 0);
}

TEST_F(LiquidMixtureTest, AComponentThatIsNoChemicalAddsNoPressure) {
  ChangeComponent(1, {{"NAME", "Nothing"}});
  EXPECT_NEAR(MixturePVA(test.session, ID, 1, k60F), 2.25 / 7, kDigits);
  EXPECT_NEAR(MixVaporMW(test.session, ID, 1, k60F), 80, kDigits);
}

TEST_F(LiquidMixtureTest, ComponentsNeedNoOrderAndNoUnbrokenNumbers) {
  client.Execute("DELETE * FROM components");
  AddHeavy(9, {{"WT_FRACT", 60.0}});
  AddLight(4, {{"WT_FRACT", 40.0}});
  EXPECT_NEAR(TotalMoles(test.session, ID, 1), 1.4, kDigits);
  EXPECT_NEAR(MixturePVA(test.session, ID, 1, k60F), 14.25 / 7, kDigits);
}

TEST_F(LiquidMixtureTest, OnlyTheMixturesOwnComponentsCount) {
  test::AddComponent(client, ID, 2, 1, {{"NAME", "Light"}, {"WT_FRACT", 500.0}});
  test::AddComponent(client, ID + 1, 1, 1, {{"NAME", "Light"}, {"WT_FRACT", 500.0}});
  EXPECT_NEAR(TotalMoles(test.session, ID, 1), 1.4, kDigits);
  EXPECT_NEAR(MixLiquidDensity(test.session, ID, 1), 1 / 0.155, kDigits);
}

TEST_F(LiquidMixtureTest, AComponentWithoutPercentCountsWithItsRelativeWeight) {
  // percent 0 and weight 5, percent null and weight 5, percent below 0 and weight 5, percent and weight both given
  for (const store::Value& none : {store::Value(0.0), kNull, store::Value(-40.0)}) {
    ChangeComponent(1, {{"WT_FRACT", none}, {"WEIGHT", 5.0}});
    // 5 / 50 + 60 / 100
    EXPECT_NEAR(TotalMoles(test.session, ID, 1), 0.7, kDigits);
    // W = 65; (5 / 65) / 5 + (60 / 65) / 8 = (1 + 7.5) / 65
    EXPECT_NEAR(MixLiquidDensity(test.session, ID, 1), 65 / 8.5, kDigits);
  }
  ChangeComponent(1, {{"WT_FRACT", 40.0}, {"WEIGHT", 5.0}});
  EXPECT_NEAR(TotalMoles(test.session, ID, 1), 1.4, kDigits);
}

TEST_F(LiquidMixtureTest, AComponentWithoutAnyWeightCountsNothing) {
  ChangeComponent(1, {{"WT_FRACT", kNull}, {"WEIGHT", kNull}});
  EXPECT_NEAR(TotalMoles(test.session, ID, 1), 0.6, kDigits);
}

TEST_F(LiquidMixtureTest, AnEditOfAComponentIsSeenAtOnceWithinATransaction) {
  const store::Transaction work(client);
  EXPECT_NEAR(TotalMoles(test.session, ID, 1), 1.4, kDigits);
  ChangeComponent(1, {{"WT_FRACT", 20.0}});
  EXPECT_NEAR(TotalMoles(test.session, ID, 1), 1.0, kDigits);
  AddLight(3, {{"WT_FRACT", 10.0}});
  EXPECT_NEAR(TotalMoles(test.session, ID, 1), 1.2, kDigits);
}

TEST_F(LiquidMixtureTest, AMolecularWeightOfZeroIsReportedUnderEachRoutinesOwnName) {
  ChangeComponent(1, {{"MOLWT", 0.0}});
  test.host.ExpectError(11, "modEmission.TotalMoles");
  EXPECT_EQ(TotalMoles(test.session, ID, 1), 0);
  test.host.ExpectError(11, "modEmission.MixLiquidMW");
  EXPECT_EQ(MixLiquidMW(test.session, ID, 1), 0);
  test.host.ExpectError(11, "modEmission.MixLiquidMW");
  test.host.ExpectError(11, "modEmission.MixturePVA");
  EXPECT_EQ(MixturePVA(test.session, ID, 1, k60F), 0);
}

TEST_F(LiquidMixtureTest, AMolecularWeightThatIsMissingIsReported) {
  ChangeComponent(1, {{"MOLWT", kNull}});
  test.host.ExpectError(94, "modEmission.TotalMoles");
  EXPECT_EQ(TotalMoles(test.session, ID, 1), 0);
}

TEST_F(LiquidMixtureTest, AVaporWeightWithoutPressureIsReported) {
  ChangeComponent(1, {{"NAME", "Solid"}});
  ChangeComponent(2, {{"NAME", "Solid"}});
  test.host.ExpectError(11, "modEmission.MixVaporMW");
  EXPECT_EQ(MixVaporMW(test.session, ID, 1, k60F), 0);
}

TEST_F(LiquidMixtureTest, ADensityOfZeroIsReported) {
  ChangeChemical("Light", {{"L_DENS", 0.0}});
  test.host.ExpectError(11, "modEmission.MixLiquidDensity");
  EXPECT_EQ(MixLiquidDensity(test.session, ID, 1), 0);
}

TEST_F(LiquidMixtureTest, WeightsThatAreAllZeroAreReported) {
  ChangeComponent(1, {{"WT_FRACT", 0.0}});
  ChangeComponent(2, {{"WT_FRACT", 0.0}});
  EXPECT_EQ(TotalMoles(test.session, ID, 1), 0);
  test.host.ExpectError(11, "modEmission.MixLiquidMW");
  EXPECT_EQ(MixLiquidMW(test.session, ID, 1), 0);
  test.host.ExpectError(11, "modEmission.MixLiquidMW");
  test.host.ExpectError(11, "modEmission.MixturePVA");
  EXPECT_EQ(MixturePVA(test.session, ID, 1, k60F), 0);
  test.host.ExpectError(11, "modEmission.MixLiquidDensity");
  EXPECT_EQ(MixLiquidDensity(test.session, ID, 1), 0);
}

TEST_F(LiquidMixtureTest, ANumberBeyondAllRangeIsReported) {
  ChangeComponent(1, {{"WT_FRACT", 1e308}, {"MOLWT", 1e-10}});
  test.host.ExpectError(6, "modEmission.TotalMoles");
  EXPECT_EQ(TotalMoles(test.session, ID, 1), 0);
}

TEST_F(MixtureTest, WithoutComponentsTheLiquidRoutinesGiveZeroQuietly) {
  EXPECT_EQ(TotalMoles(test.session, ID, 1), 0);
  EXPECT_EQ(MixLiquidMW(test.session, ID, 1), 0);
  EXPECT_EQ(MixturePVA(test.session, ID, 1, k60F), 0);
  EXPECT_EQ(MixVaporMW(test.session, ID, 1, k60F), 0);
  EXPECT_EQ(MixLiquidDensity(test.session, ID, 1), 0);
}

/// 75 % Light and 25 % Heavy by weight of the vapor: S = 75 / 50 + 25 / 80 = 1.8125, y = 1.5 / S = 24 / 29 and 5 / 29.
class VaporMixtureTest : public MixtureTest {
 protected:
  VaporMixtureTest() {
    AddLight(1, {{"VP_FRACT", 75.0}});
    AddHeavy(2, {{"VP_FRACT", 25.0}});
  }
};

// At 60 deg F the pressure is 1 / (24 / 29 / 3 + 5 / 29 / 0.75) = 87 / 44, and the liquid that gives this vapor holds
// x = (24 / 29 x 87 / 44) / 3 = 24 / 44 of Light and (5 / 29 x 87 / 44) / 0.75 = 20 / 44 of Heavy.

TEST_F(VaporMixtureTest, Pressure) {
  EXPECT_NEAR(VapMixPV(test.session, ID, 1, k60F), 87.0 / 44, kDigits);  // 1.9772727
  // 1 / (24 / 29 / 4 + 5 / 29 / 1) = 29 / 11 = 2.6363636
  EXPECT_NEAR(VapMixPV(test.session, ID, 1, k70F), 29.0 / 11, kDigits);
}

TEST_F(VaporMixtureTest, PressureAtAnotherTemperatureKeepsTheLiquid) {
  // at 70 deg F 24 / 44 x 4 + 20 / 44 x 1 = 116 / 44; at 50 deg F 24 / 44 x 2 + 20 / 44 x 0.5 = 58 / 44 = 1.3181818
  EXPECT_NEAR(VapMixPVMinMax(test.session, ID, 1, k60F, k70F), 116.0 / 44, kDigits);
  EXPECT_NEAR(VapMixPVMinMax(test.session, ID, 1, k60F, k50F), 58.0 / 44, kDigits);
  // the vapor's own temperature gives its pressure back
  EXPECT_NEAR(VapMixPVMinMax(test.session, ID, 1, k60F, k60F), 87.0 / 44, kDigits);
}

TEST_F(VaporMixtureTest, PressureRangeStandsOnTheLiquidOfTheFirstTemperature) {
  ChangeChemical("Heavy", {{"VP_70", 2.0}});
  // 24 / 44 x 4 + 20 / 44 x 2 = 136 / 44 = 3.0909091; the liquid of 70 deg F would give 1 / (6 / 29 + 2.5 / 29)
  EXPECT_NEAR(VapMixPVMinMax(test.session, ID, 1, k60F, k70F), 136.0 / 44, kDigits);
}

TEST_F(VaporMixtureTest, VaporWeight) {
  // 50 x 24 / 29 + 80 x 5 / 29 = 1600 / 29 = 55.1724138
  EXPECT_NEAR(VapMixVaporMW(test.session, ID, 1), 1600.0 / 29, kDigits);
}

TEST_F(VaporMixtureTest, LiquidWeight) {
  // 50 x 24 / 44 + 100 x 20 / 44 = 3200 / 44 = 72.7272727
  EXPECT_NEAR(VapMixLiquidMWf(test.session, ID, 1, k60F), 3200.0 / 44, kDigits);
}

TEST_F(VaporMixtureTest, DensityTakesTheLastComponentsVaporFractionForAll) {
  // M = 3200 / 44. With y = 5 / 29 for both: Light x = (87 / 44 x 5 / 29) / 3 = 5 / 44, w = 5 / 44 x 50 / M = 0.078125;
  // Heavy x = 20 / 44, w = 20 / 44 x 100 / M = 0.625
  // 0.078125 / 5 + 0.625 / 8 = 0.09375; 1 / 0.09375 = 10.6666667 (each with its own y: 6.5306122)
  EXPECT_NEAR(VapMIxLdens(test.session, ID, 1, k60F), 32.0 / 3, kDigits);
}

TEST_F(VaporMixtureTest, TheLastComponentOfTheDensityIsThatOfTheFile) {
  // The same with Heavy first in the file and Light last, whatever their numbers: y = 24 / 29 for both.
  client.Execute("DELETE * FROM components");
  AddHeavy(2, {{"VP_FRACT", 25.0}});
  AddLight(1, {{"VP_FRACT", 75.0}});
  // Heavy x = (87 / 44 x 24 / 29) / 0.75 = 96 / 44, w = 9600 / 3200 = 3; Light x = 24 / 44, w = 1200 / 3200 = 0.375
  // 3 / 8 + 0.375 / 5 = 0.45; 1 / 0.45 = 2.2222222
  EXPECT_NEAR(VapMIxLdens(test.session, ID, 1, k60F), 1 / 0.45, kDigits);
}

TEST_F(VaporMixtureTest, AComponentWithoutVaporPressureIsReportedUnderEachRoutinesOwnName) {
  ChangeComponent(1, {{"NAME", "Solid"}});
  test.host.ExpectError(11, "modEmission.VapMixPV");
  EXPECT_EQ(VapMixPV(test.session, ID, 1, k60F), 0);
  test.host.ExpectError(11, "modEmission.VapMixPV");
  test.host.ExpectError(11, "modEmission.VapMixPVMinMax");
  EXPECT_EQ(VapMixPVMinMax(test.session, ID, 1, k60F, k70F), 0);
  test.host.ExpectError(11, "modEmission.VapMixPV");
  test.host.ExpectError(11, "modEmission.VapMixLiquidMWf");
  EXPECT_EQ(VapMixLiquidMWf(test.session, ID, 1, k60F), 0);
  test.host.ExpectError(11, "modEmission.VapMixPV");
  test.host.ExpectError(11, "modEmission.VapMIxLdens");
  EXPECT_EQ(VapMIxLdens(test.session, ID, 1, k60F), 0);
}

TEST_F(VaporMixtureTest, AVaporWeightOfZeroIsReported) {
  ChangeComponent(2, {{"VP_MOLWT", 0.0}});
  test.host.ExpectError(11, "modEmission.VapMixVaporMW");
  EXPECT_EQ(VapMixVaporMW(test.session, ID, 1), 0);
  test.host.ExpectError(11, "modEmission.VapMixPV");
  EXPECT_EQ(VapMixPV(test.session, ID, 1, k60F), 0);
}

TEST_F(VaporMixtureTest, PercentsThatAreAllZeroAreReported) {
  ChangeComponent(1, {{"VP_FRACT", 0.0}});
  ChangeComponent(2, {{"VP_FRACT", kNull}});
  test.host.ExpectError(11, "modEmission.VapMixVaporMW");
  EXPECT_EQ(VapMixVaporMW(test.session, ID, 1), 0);
}

TEST_F(VaporMixtureTest, ADensityOfZeroIsReported) {
  ChangeChemical("Heavy", {{"L_DENS", 0.0}});
  test.host.ExpectError(11, "modEmission.VapMIxLdens");
  EXPECT_EQ(VapMIxLdens(test.session, ID, 1, k60F), 0);
}

TEST_F(MixtureTest, WithoutComponentsTheVaporPressureAndDensityAreReported) {
  test.host.ExpectError(11, "modEmission.VapMixPV");
  EXPECT_EQ(VapMixPV(test.session, ID, 1, k60F), 0);
  test.host.ExpectError(11, "modEmission.VapMixPV");
  test.host.ExpectError(11, "modEmission.VapMIxLdens");
  EXPECT_EQ(VapMIxLdens(test.session, ID, 1, k60F), 0);
  EXPECT_EQ(VapMixVaporMW(test.session, ID, 1), 0);
}

TEST_F(VaporMixtureTest, PercentsAreCompleteStrictlyBetween99Point9And100Point1) {
  struct Case {
    double sum;
    bool complete;
  };
  constexpr Case kCases[] = {{99.8, false},  {99.9, false},  {99.95, true},  {100.0, true},
                             {100.05, true}, {100.1, false}, {100.2, false}, {0.0, false}};
  ChangeComponent(2, {{"VP_FRACT", 0.0}});
  for (const auto& [sum, complete] : kCases) {
    ChangeComponent(1, {{"VP_FRACT", sum}});
    EXPECT_EQ(VaporFractionsComplete(test.session, ID, 1), complete) << sum;
  }
}

}  // namespace
}  // namespace orvex::emission
