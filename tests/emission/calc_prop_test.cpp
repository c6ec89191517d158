#include "emission/calc_prop.h"

#include <string>
#include <utility>
#include <vector>

#include "emission/calc_prop_fixture.h"

namespace orvex::emission {
namespace {

TEST_F(CalcPropTest, ASingleChemicalTakesItsDataFromTheReferenceTable) {
  Calc();
  ExpectFilledFromLight();
}

TEST_F(CalcPropTest, PartialAndNoSpeciationTakeTheMixturesOwnChemical) {
  AddHeavy(1, {{"WT_FRACT", 50.0}, {"VP_FRACT", 100.0}});
  for (const auto kind : {shell::kPartialSpeciation, shell::kNoSpeciation}) {
    SetKind(kind);
    SetMixture({{"VP", 5.0}, {"MOLWT", 8.0}, {"ALS_TEMP", 1.0}});
    Calc();
    ExpectFilledFromLight();
  }
}

TEST_F(CalcPropTest, AMixtureThatIsNoChemicalKeepsThePersonsOwnFigures) {
  SetMixture({{"MIX NAME", "House blend"}});
  Calc();
  ExpectUntouched();
  for (const auto kind : {shell::kPartialSpeciation, shell::kVaporWeightSpeciation, shell::kNoSpeciation}) {
    SetKind(kind);
    Calc();
    ExpectUntouched();
  }
}

TEST_F(CalcPropTest, FullSpeciationIsComputedFromTheComponents) {
  SetMixture({{"MIX NAME", "House blend"}});
  SetKind(shell::kFullSpeciation);
  AddLight(1, {{"WT_FRACT", 40.0}});
  AddHeavy(2, {{"WT_FRACT", 60.0}});
  Calc();
  ExpectTemperatures(kAverageF, kMinimumF, kMaximumF, kBulkF);
  // Moles 4 / 7 and 3 / 7, weight 100 / 1.4, density 1 / 0.155. At 56.8914 F Light 2.68914 and Heavy 0.672285 psia:
  // VP = (4 x 2.68914 + 3 x 0.672285) / 7 = 12.773415 / 7 = 1.824773571, with all its decimals
  // vapor weight = (50 x 10.75656 + 80 x 2.016855) / 12.773415 = 699.1764 / 12.773415 = 54.73684211
  EXPECT_NEAR(Mixture("VP"), 12.773415 / 7, 1e-9);
  ExpectWeights(100 / 1.4, 699.1764 / 12.773415, 1 / 0.155);
}

TEST_F(CalcPropTest, TheRangeOfFullSpeciationIsZeroForANameThatIsNoChemical) {
  SetMixture({{"MIX NAME", "House blend"}});
  SetKind(shell::kFullSpeciation);
  AddLight(1, {{"WT_FRACT", 100.0}});
  Calc();
  EXPECT_EQ(Mixture("VP_MAX"), 0);
  EXPECT_EQ(Mixture("VP_MIN"), 0);
}

TEST_F(CalcPropTest, TheRangeOfFullSpeciationIsThatOfTheChemicalOfItsName) {
  SetKind(shell::kFullSpeciation);
  AddHeavy(1, {{"WT_FRACT", 100.0}});
  Calc();
  EXPECT_NEAR(Mixture("VP"), 0.672285, 1e-9);     // Heavy
  EXPECT_NEAR(Mixture("VP_MAX"), 3.21574, 1e-9);  // Light, with all decimals
  EXPECT_NEAR(Mixture("VP_MIN"), 2.16254, 1e-9);
}

TEST_F(CalcPropTest, FullSpeciationUsesTheComponentsAsTheyStoodBefore) {
  SetKind(shell::kFullSpeciation);
  AddLight(1, {{"WT_FRACT", 100.0}, {"MOLWT", 60.0}, {"VP_MOLWT", 60.0}});
  Calc();
  EXPECT_NEAR(Mixture("MOLWT"), 60, 1e-9);
  // The components are refreshed behind the mixture: the next time it shows.
  EXPECT_EQ(Component("MOLWT").AsDouble(), 50);
  Calc();
  EXPECT_NEAR(Mixture("MOLWT"), 50, 1e-9);
}

/// Vapor of 75 % Light and 25 % Heavy: y = 24 / 29 and 5 / 29.
class VaporWeightTest : public CalcPropTest {
 protected:
  VaporWeightTest() {
    SetKind(shell::kVaporWeightSpeciation);
    AddLight(1, {{"VP_FRACT", 75.0}});
    AddHeavy(2, {{"VP_FRACT", 25.0}});
  }

  // At T_LA Light has 2.68914 psia and Heavy a quarter of it, 0.672285; so at all temperatures. P = 1 / ((24 / 29 +
  // 4 x 5 / 29) / 2.68914) = 29 / 44 x 2.68914 = 1.772387727; at T_LX and T_LN 29 / 44 of 3.21574 and 2.16254, which is
  // 2.119465 and 1.425310455.
  // Liquid x = 24 / 44 and 20 / 44: M = 3200 / 44 = 72.727273, vapor weight 1600 / 29 = 55.172414, density with Heavy's
  // y for both 32 / 3 = 10.666667; each to six decimals.
  void ExpectFilledFromVapor() {
    ExpectTemperatures(kAverageF, kMinimumF, kMaximumF, kBulkF);
    ExpectPressures(1.7724, 1.4253, 2.1195);
    EXPECT_NEAR(Mixture("MOLWT"), 72.727273, kExact);
    EXPECT_NEAR(Mixture("VP_MOLWT"), 55.172414, kExact);
    EXPECT_NEAR(Mixture("L_DENS"), 10.666667, kExact);
  }
};

TEST_F(VaporWeightTest, ACompleteVaporReplacesTheChemicalsFigures) {
  Calc();
  ExpectFilledFromVapor();
}

TEST_F(VaporWeightTest, ASumOf99Point95IsComplete) {
  ChangeComponent(1, {{"VP_FRACT", 74.95}});
  // y / p = 74.95 / 50 : 4 x 25 / 80 = 1.499 : 1.25; M = (50 x 1.499 + 100 x 1.25) / 2.749 = 72.735540
  Calc();
  EXPECT_NEAR(Mixture("MOLWT"), 72.73554, kExact);
}

TEST_F(VaporWeightTest, ASumOfExactly99Point9Or100Point1IsNot) {
  ChangeComponent(2, {{"VP_FRACT", 0.0}});
  for (const double sum : {99.9, 100.1}) {
    ChangeComponent(1, {{"VP_FRACT", sum}});
    SetMixture({{"VP", 5.0}, {"MOLWT", 8.0}});
    Calc();
    ExpectFilledFromLight();
  }
}

TEST_F(VaporWeightTest, ANameThatIsNoChemicalStillTakesItsVaporsFigures) {
  SetMixture({{"MIX NAME", "House blend"}});
  Calc();
  ExpectTemperatures(1, 2, 3, 4);
  ExpectPressures(1.7724, 1.4253, 2.1195);
}

TEST_F(VaporWeightTest, WithoutASurfaceTemperatureInItsRowItDoesNot) {
  SetMixture({{"MIX NAME", "House blend"}});
  for (const store::Value& none : {store::Value(0.0), kNull}) {
    SetMixture({{"ALS_TEMP", none}});
    Calc();
    ExpectPressures(5, 6, 7);
    ExpectWeights(8, 9, 10);
  }
}

TEST_F(VaporWeightTest, ThousandsSurviveTheRounding) {
  // Weights a hundred times as large: 7272.727273 has a comma as a text, not as a number.
  for (const std::int32_t comp : {1, 2}) {
    ChangeComponent(comp, {{"MOLWT", comp == 1 ? 5000.0 : 10000.0}, {"VP_MOLWT", comp == 1 ? 5000.0 : 8000.0}});
  }
  Calc();
  EXPECT_NEAR(Mixture("MOLWT"), 7272.727273, 1e-9);
  EXPECT_NEAR(Mixture("VP_MOLWT"), 5517.241379, 1e-9);
}

TEST_F(VaporWeightTest, AComponentWithoutPressureIsReportedAndLeavesZeros) {
  ChangeComponent(1, {{"NAME", "Solid"}});
  for (const auto* routine :
       {"VapMixPV", "VapMixPV", "VapMixPVMinMax", "VapMixPV", "VapMixPVMinMax", "VapMixPV", "VapMixLiquidMWf"}) {
    test.host.ExpectError(11, std::string("modEmission.") + routine);
  }
  test.host.ExpectError(11, "modEmission.VapMixPV");
  test.host.ExpectError(11, "modEmission.VapMIxLdens");
  Calc();
  ExpectPressures(0, 0, 0);
  EXPECT_EQ(Mixture("MOLWT"), 0);
}

TEST_F(CalcPropTest, AMixtureOfNoKnownKindIsLeftAlone) {
  const std::pair<store::Value, store::Value> kinds[] = {{kNull, kNull},         {"", shell::kFullSpeciation},
                                                         {"single", kNull},      {shell::kMultiple, kNull},
                                                         {shell::kMultiple, ""}, {shell::kMultiple, "Full"}};
  AddLight(1, {{"WT_FRACT", 40.0}, {"VP", 77.0}});
  for (const auto& [component, speciation] : kinds) {
    SetMixture({{"COMPONENT", component}, {"SPEC_OPT", speciation}});
    Calc();
    ExpectUntouched();
    EXPECT_EQ(Component("VP").AsDouble(), 77);
  }
}

TEST_F(CalcPropTest, AMixtureOfNoKnownKindEndsTheWalkBeforeTheNextOne) {
  AddMixture(client, ID, 2, {{"MIX NAME", "Light"}, {"COMPONENT", "Other"}, {"VP", 5.0}});
  AddMixture(client, ID, 3, {{"MIX NAME", "Light"}, {"VP", 5.0}});
  Calc();
  ExpectFilledFromLight();
  EXPECT_EQ(Mixture("VP", 2), 5);
  EXPECT_EQ(Mixture("VP", 3), 5);
}

TEST_F(CalcPropTest, ComponentsTakeTheirDataFromTheReferenceTable) {
  AddComponent(client, ID, 1, 1, {{"NAME", "Light"}, {"CAS", "0"}, {"MOLWT", 1.0}, {"VP_MOLWT", 2.0}, {"L_DENS", 3.0}});
  Calc();
  EXPECT_EQ(Component("CAS"), "111-11-1");
  EXPECT_EQ(Component("MOLWT"), 50.0);
  EXPECT_EQ(Component("VP_MOLWT"), 50.0);
  EXPECT_EQ(Component("L_DENS"), 5.0);
  // Rankine here, and a pressure with all its decimals.
  EXPECT_NEAR(Component("ALS_TEMP").AsDouble(), kAverageR, 1e-10);
  EXPECT_NEAR(Component("VP").AsDouble(), 2.68914, 1e-9);
}

TEST_F(CalcPropTest, AComponentWithoutCasGetsAnEmptyText) {
  AddComponent(client, ID, 1, 1, {{"NAME", "Solid"}, {"CAS", "0"}});
  Calc();
  EXPECT_EQ(Component("CAS"), "");
}

TEST_F(CalcPropTest, AComponentThatIsNoChemicalIsLeftAlone) {
  AddComponent(client, ID, 1, 1, {{"NAME", "Secret"}, {"CAS", kNull}, {"MOLWT", 1.0}, {"ALS_TEMP", 2.0}, {"VP", 3.0}});
  Calc();
  EXPECT_TRUE(Component("CAS").IsNull());
  EXPECT_EQ(Component("MOLWT"), 1.0);
  EXPECT_EQ(Component("ALS_TEMP"), 2.0);
  EXPECT_EQ(Component("VP"), 3.0);
}

TEST_F(CalcPropTest, AtOrBelowAbsoluteZeroAComponentKeepsItsPressure) {
  ChangeTank(client, ID, {{"HEATED", true}});
  AddLight(1, {{"VP", 77.0}});
  for (const double average_f : {-459.67, -500.0}) {
    SetMixture({{"ALS_TEMP", average_f}});
    Calc();
    EXPECT_NEAR(Component("ALS_TEMP").AsDouble(), average_f + 459.67, kExact);
    EXPECT_EQ(Component("VP"), 77.0);
  }
}

TEST_F(CalcPropTest, EveryMixtureIsFilledAndEveryComponentOfTheTankRefreshed) {
  AddMixture(client, ID, 2, {{"MIX NAME", "Heavy"}});
  AddLight(1, {{"VP", 77.0}});
  AddComponent(client, ID, 2, 1, {{"NAME", "Heavy"}, {"VP", 77.0}});
  AddComponent(client, ID + 1, 1, 1, {{"NAME", "Heavy"}, {"VP", 77.0}});
  Calc();
  ExpectFilledFromLight();
  EXPECT_NEAR(Mixture("VP", 2), 0.6723, kExact);  // 0.672285
  EXPECT_EQ(Mixture("MOLWT", 2), 100);
  EXPECT_NEAR(Component("VP").AsDouble(), 2.68914, 1e-9);
  EXPECT_NEAR(Component("VP", 1, 2).AsDouble(), 0.672285, 1e-9);
  EXPECT_EQ(client.OpenMatching("components", "IDMIX", {ID + 1}).Double("VP"), 77);
}

TEST_F(CalcPropTest, TheLastMixturesTemperatureStaysInAllComponents) {
  ChangeTank(client, ID, {{"HEATED", true}});
  SetMixture({{"ALS_TEMP", 60.0}});
  AddMixture(client, ID, 2, {{"MIX NAME", "Heavy"}, {"ALS_TEMP", 70.0}});
  AddLight(1, {});
  AddComponent(client, ID, 2, 1, {{"NAME", "Heavy"}});
  Calc();
  EXPECT_NEAR(Component("ALS_TEMP").AsDouble(), k70F, 1e-10);
  EXPECT_NEAR(Component("VP").AsDouble(), 4, 1e-9);
  EXPECT_NEAR(Component("ALS_TEMP", 1, 2).AsDouble(), k70F, 1e-10);
}

TEST_F(CalcPropTest, WhatWasFilledBeforeAMixtureWithoutTemperaturesStays) {
  ChangeTank(client, ID, {{"HEATED", true}});
  SetMixture({{"ALS_TEMP", 60.0}, {"MLS_TEMP", 50.0}, {"XLS_TEMP", 70.0}});
  AddMixture(client, ID, 2, {{"MIX NAME", "Light"}, {"ALS_TEMP", kNull}, {"VP", 5.0}});
  AddLight(1, {});
  Calc();
  EXPECT_NEAR(Mixture("VP"), 3, kExact);
  EXPECT_EQ(Mixture("VP", 2), 5);
  EXPECT_NEAR(Component("VP").AsDouble(), 3, 1e-9);
}

TEST_F(CalcPropTest, NothingElseOfTheRowsChanges) {
  const auto tank = client.OpenTable("tank").GetRows(10);
  test::SetThroughput(client, ID, 1, 1234);
  SetMixture({{"CAS", "9-9"}, {"C_CATEGORY", "Kept"}});
  Calc();
  EXPECT_EQ(client.OpenTable("tank").GetRows(10), tank);
  EXPECT_EQ(Mixture("MAR_THRU"), 1234);
  EXPECT_EQ(client.OpenMatching("mixtures", "IDMIX", {ID, 1}).Text("CAS"), "9-9");
  EXPECT_EQ(client.OpenMatching("mixtures", "IDMIX", {ID, 1}).Text("C_CATEGORY"), "Kept");
}

TEST_F(CalcPropTest, ShowsThatItIsBusyAndRestoresPointerAndStatusOnEveryWayOut) {
  const auto expect_restored = [&] {
    Calc();
    EXPECT_EQ(test.host.status, (std::vector<std::string>{"Processing, please wait...", "Ready"}));
    EXPECT_EQ(test.host.pointers, (std::vector{shell::Pointer::kBusy, shell::Pointer::kDefault}));
    test.host.status.clear();
    test.host.pointers.clear();
  };
  expect_restored();
  SetMixture({{"COMPONENT", "Other"}});
  expect_restored();
  ChangeTank(client, ID, {{"MET CTYST", ""}});
  expect_restored();
}

}  // namespace
}  // namespace orvex::emission
