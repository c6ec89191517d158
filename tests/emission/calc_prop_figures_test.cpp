#include "emission/calc_prop_fixture.h"

namespace orvex::emission {
namespace {

TEST_F(CalcPropTest, AHeatedTankKeepsItsTemperaturesAndUsesThem) {
  ChangeTank(client, ID, {{"HEATED", true}});
  SetMixture({{"ALS_TEMP", 60.0}, {"MLS_TEMP", 50.0}, {"XLS_TEMP", 70.0}, {"BULK_TEMP", 58.0}});
  Calc();
  ExpectTemperatures(60, 50, 70, 58);
  ExpectPressures(3, 2, 4);
  ExpectWeights(50, 50, 5);
}

TEST_F(CalcPropTest, AHeatedMixtureOfComponentsKeepsItsTemperatures) {
  ChangeTank(client, ID, {{"HEATED", true}});
  SetKind(shell::kFullSpeciation);
  SetMixture({{"ALS_TEMP", 60.0}, {"MLS_TEMP", 50.0}, {"XLS_TEMP", 70.0}, {"BULK_TEMP", 58.0}});
  AddHeavy(1, {{"WT_FRACT", 100.0}});
  Calc();
  ExpectTemperatures(60, 50, 70, 58);
  EXPECT_NEAR(Mixture("VP"), 0.75, kExact);
  EXPECT_NEAR(Mixture("VP_MAX"), 4, kExact);
}

TEST_F(CalcPropTest, AHeatedTankWithoutATemperatureIsIncompleteAndStaysAsItIs) {
  ChangeTank(client, ID, {{"HEATED", true}});
  for (const auto* field : {"ALS_TEMP", "MLS_TEMP", "XLS_TEMP", "BULK_TEMP"}) {
    SetMixture({{"ALS_TEMP", 60.0}, {"MLS_TEMP", 50.0}, {"XLS_TEMP", 70.0}, {"BULK_TEMP", 58.0}});
    SetMixture({{field, kNull}});
    Calc();
    EXPECT_EQ(Mixture("VP"), 5) << field;
  }
}

TEST_F(CalcPropTest, AnUndergroundTankHasNeitherSunNorRange) {
  // alpha = 0: T_B = 514.67 - 1 = 54 F, T_LA = 0.44 x 514.67 + 0.56 x 513.67 = 514.11 R = 54.44 F; Light 2.444 psia
  ID = AddUnderground(test, {});
  SetMixture({{"MIX NAME", "Light"}});
  Calc();
  ExpectTemperatures(54.44, 54.44, 54.44, 54);
  ExpectPressures(2.444, 2.444, 2.444);
}

TEST_F(CalcPropTest, AnUndergroundHeatedTankHasNoPressureRange) {
  ChangeTank(client, ID, {{"HEATED", true}, {"UNDER", true}});
  SetMixture({{"ALS_TEMP", 60.0}, {"MLS_TEMP", 50.0}, {"XLS_TEMP", 70.0}, {"BULK_TEMP", 58.0}});
  Calc();
  ExpectTemperatures(60, 50, 70, 58);
  ExpectPressures(3, 3, 3);
}

TEST_F(CalcPropTest, TheRoofsPaintCountsInTheAbsorptance) {
  // alpha = (0.91 + 0.17) / 2 = 0.54: T_B = 514.67 + 3.24 - 1 = 57.24 F
  // T_LA = 226.4548 + 0.56 x 516.91 + 0.0079 x 0.54 x 1400 = 226.4548 + 289.4696 + 5.9724 = 521.8968 R = 62.2268 F
  // +- 0.25 x (14.4 + 0.028 x 0.54 x 1400) = +- 8.892
  ChangeTank(client, ID, {{"RF_COLSHD", "Red/Primer"}, {"RF_COND", "Poor"}});
  Calc();
  ExpectTemperatures(62.2268, 53.3348, 71.1188, 57.24);
}

// Formats ------------------------------------------------------------------------------------------------------------

TEST_F(CalcPropTest, TheWeatherIsReadWithSixDecimals) {
  // Underground T_LA = TAA - 0.56, stored for components with all its decimals: 55.12345678 F is read as 514.793457 R.
  ID = AddUnderground(test, {});
  AddLight(1, {});
  SetCity({{"A_TEMP_DAA", 55.12345678}});
  Calc();
  EXPECT_NEAR(Component("ALS_TEMP").AsDouble(), 514.233457, 1e-10);
}

TEST_F(CalcPropTest, TheInsolationIsReadWithSixDecimalsAndThousands) {
  // alpha = 0.54: the fraction 0.0000004 of the insolation would add 0.0079 x 0.54 x 4e-7 = 1.7e-9
  ChangeTank(client, ID, {{"RF_COLSHD", "Red/Primer"}, {"RF_COND", "Poor"}});
  AddLight(1, {});
  SetCity({{"INSOL_ANN", 1400.0000004}});
  Calc();
  EXPECT_NEAR(Component("ALS_TEMP").AsDouble(), 521.8968, 1e-10);
}

TEST_F(CalcPropTest, TemperaturesAreStoredWithSixDecimals) {
  // TAX 65.000004: range 20.000004, half swing 0.25 x (0.72 x 20.000004 + 6.664) = 5.26600072
  SetCity({{"TAX_ANN", 65.000004}});
  Calc();
  EXPECT_NEAR(Mixture("XLS_TEMP"), 62.157401, kExact);  // 56.8914 + 5.26600072
  EXPECT_NEAR(Mixture("MLS_TEMP"), 51.625399, kExact);  // 56.8914 - 5.26600072
}

TEST_F(CalcPropTest, APressureOfThousandsIsStoredWithoutComma) {
  AddTabulated(reference, "Gas", 1234.56789, 0);
  SetMixture({{"MIX NAME", "Gas"}});
  Calc();
  ExpectPressures(1234.5679, 1234.5679, 1234.5679);
}

TEST_F(CalcPropTest, APressureTooSmallForFourDecimalsIsStoredWithThreeDigits) {
  AddTabulated(reference, "Tar", 0.0000123456, 0);
  SetMixture({{"MIX NAME", "Tar"}});
  Calc();
  ExpectPressures(0.0000123, 0.0000123, 0.0000123);
  EXPECT_EQ(Mixture("VP"), 1.23e-5);
}

TEST_F(CalcPropTest, APressureOfHalfTheLastDecimalIsStoredWithFourDecimals) {
  AddTabulated(reference, "Tar", 0.00005, 0);
  SetMixture({{"MIX NAME", "Tar"}});
  Calc();
  EXPECT_EQ(Mixture("VP"), 0.0001);
  AddTabulated(reference, "Pitch", 0.0000499, 0);
  SetMixture({{"MIX NAME", "Pitch"}});
  Calc();
  EXPECT_EQ(Mixture("VP"), 4.99e-5);
}

TEST_F(CalcPropTest, AChemicalWithoutVaporPressureStoresZero) {
  SetMixture({{"MIX NAME", "Solid"}});
  Calc();
  ExpectPressures(0, 0, 0);
  ExpectWeights(200, 200, 10);
}

TEST_F(CalcPropTest, AWeightThatTheChemicalLacksIsCopiedAsMissing) {
  ChangeChemical("Light", {{"L_DENS", kNull}});
  Calc();
  EXPECT_TRUE(client.OpenMatching("mixtures", "IDMIX", {ID, 1}).IsNull("L_DENS"));
}

}  // namespace
}  // namespace orvex::emission
