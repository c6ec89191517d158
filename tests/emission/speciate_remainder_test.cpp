#include "emission/speciate_fixture.h"

namespace orvex::emission {
namespace {

/// 25 % Light and 35 % Heavy by weight of a liquid of 80 lb/lb-mole, with a vapor of 60 lb/lb-mole and 2 psia.
class PartialSpeciationTest : public SpeciateTest {
 protected:
  PartialSpeciationTest() {
    SetSpeciation(shell::kPartialSpeciation);
    AddPrimary({{"MOLWT", 80.0}, {"VP_MOLWT", 60.0}, {"A_VP", 2.0}});
    AddLight(1, {{"WT_FRACT", 25.0}});
    AddHeavy(2, {{"WT_FRACT", 35.0}});
  }
};

TEST_F(PartialSpeciationTest, WhatIsIdentifiedIsSplitByItsPercents) {
  Split();
  EXPECT_EQ(Names(), (Rows{"Light", "Heavy", kRemainder}));
  // Light: 25 / 50 = 0.5 moles; x = 0.25 x 80 / 50 = 0.4; y = 3 x 0.4 / 2 = 0.6; v = 0.6 x 50 / 60 = 0.5
  ExpectShares("Light", {.moles = 0.5, .l_wt = 0.25, .v_wt = 0.5, .l_mo = 0.4, .v_mo = 0.6});
  ExpectLosses("Light", {50, 100, 5, 5, 15, 20});
  ExpectPressures("Light", 3, 2, 4);
  // Heavy: 35 / 100 = 0.35 moles; x = 0.35 x 80 / 100 = 0.28; y = 0.75 x 0.28 / 2 = 0.105; v = 0.105 x 80 / 60 = 0.14
  ExpectShares("Heavy", {.moles = 0.35, .l_wt = 0.35, .v_wt = 0.14, .l_mo = 0.28, .v_mo = 0.105});
  ExpectLosses("Heavy", {14, 28, 1.4, 7, 4.2, 5.6});
}

TEST_F(PartialSpeciationTest, TheRestIsUnidentified) {
  Split();
  // lw = 1 - 0.6, v = 1 - 0.64, x = 1 - 0.68, y = 1 - 0.705; M = (80 - 50 x 0.4 - 100 x 0.28) / 0.32 = 100;
  // m = (60 - 50 x 0.6 - 80 x 0.105) / 0.295 = 21.6 / 0.295 = 73.220339; moles = 0.4 / 100
  ExpectShares(kRemainder, {.moles = 0.004, .l_wt = 0.4, .v_wt = 0.36, .l_mo = 0.32, .v_mo = 0.295});
  ExpectWeights(kRemainder, 100, 21.6 / 0.295);
  // 100 - 50 - 14 and so on; the withdrawal loss by liquid: 20 - 5 - 7
  ExpectLosses(kRemainder, {36, 72, 3.6, 8, 10.8, 14.4});
  // the number of the last component stays
  EXPECT_EQ(Field(kRemainder, "CAS"), "222-22-2");
  EXPECT_EQ(Field(kRemainder, "PRIMARY").AsBool(), false);
}

TEST_F(PartialSpeciationTest, TheRestsPressureRangeStandsOnTheMixturesAveragePressure) {
  ChangePrimary({{"M_VP", 1.5}, {"X_VP", 2.5}});  // of no account
  Split();
  // P = (2 - 3 x 0.4 - 0.75 x 0.28) / 0.32 = 0.59 / 0.32 = 1.84375
  // maximum sum 4 x 0.4 = 1.6, then + 1 x 0.28 = 1.88: Px = (2 - 1.88) / 0.32 = 0.375
  // minimum sum on top of the maximum's: after Light 2 x 0.4 + 1.6, after Heavy 0.5 x 0.28 + 1.88 = 2.02:
  // Pn = (2 - 2.02) / 0.32 = -0.0625 (a sum of its own, 0.8 + 0.14, would give 3.3125)
  ExpectPressures(kRemainder, 1.84375, -0.0625, 0.375);
}

TEST_F(PartialSpeciationTest, OnAFloatingRoofTheRestHasNoPressureRange) {
  ChangePrimary({{"TANK_TYPE", shell::kExternalFloatingRoof}});
  Split();
  for (const auto* name : {"Light", "Heavy", kRemainder}) {
    EXPECT_EQ(Number(name, "M_VP"), 0) << name;
    EXPECT_EQ(Number(name, "X_VP"), 0) << name;
  }
  EXPECT_NEAR(Number(kRemainder, "A_VP"), 1.84375, 1e-10);
}

TEST_F(PartialSpeciationTest, PercentsOfAHundredHaveNoRemainder) {
  ChangeComponent(1, {{"WT_FRACT", 65.0}});
  Split();
  EXPECT_EQ(Names(), (Rows{"Light", "Heavy"}));
}

TEST_F(PartialSpeciationTest, ASumAHairAboveAHundredHasAnAlmostEmptyRemainder) {
  ChangeComponent(1, {{"WT_FRACT", 65.0000001}});
  Split();
  EXPECT_EQ(Names(), (Rows{"Light", "Heavy", kRemainder}));
  EXPECT_NEAR(Number(kRemainder, "L_WT_FRACT"), -1e-9, 1e-12);
}

TEST_F(PartialSpeciationTest, ASumAboveAHundredLeavesANegativeRemainder) {
  ChangeComponent(1, {{"WT_FRACT", 100.0}});
  Split();
  // Light x = 1.6, y = 2.4, v = 2; with Heavy x sums to 1.88, y to 2.505, v to 2.14
  EXPECT_NEAR(Number(kRemainder, "L_WT_FRACT"), -0.35, kTolerance);
  EXPECT_NEAR(Number(kRemainder, "V_WT_FRACT"), -1.14, kTolerance);
  EXPECT_NEAR(Number(kRemainder, "L_MO_FRACT"), -0.88, kTolerance);
  EXPECT_NEAR(Number(kRemainder, "V_MO_FRACT"), -1.505, kTolerance);
  ExpectLosses(kRemainder, {-114, -228, -11.4, -7, -34.2, -45.6});
}

TEST_F(PartialSpeciationTest, RelativeWeightsCountNothingTowardsAHundred) {
  // Weights of 25 and 35 serve as percents in the split, but the percents themselves sum to 0.
  ChangeComponent(1, {{"WT_FRACT", 0.0}, {"WEIGHT", 25.0}});
  ChangeComponent(2, {{"WT_FRACT", 0.0}, {"WEIGHT", 35.0}});
  Split();
  EXPECT_EQ(Names(), (Rows{"Light", "Heavy", kRemainder}));
  EXPECT_NEAR(Number("Light", "L_WT_FRACT"), 0.25, kTolerance);
  EXPECT_NEAR(Number(kRemainder, "L_WT_FRACT"), 0.4, kTolerance);
}

TEST_F(PartialSpeciationTest, MolesThatSumToOneLeaveNoRemainderToBeWritten) {
  // Light alone: x = (0.5 x 100) / 50 = 1 of the moles with half the weight.
  client.Execute("DELETE * FROM components");
  AddLight(1, {{"WT_FRACT", 50.0}});
  ChangePrimary({{"MOLWT", 100.0}});
  test.host.ExpectError(11, "modEmission.Speciate");
  Split();
  EXPECT_EQ(Names(), Rows{"Light"});
}

/// 60 % Light and 30 % Heavy by weight of the vapor, over the same liquid.
class VaporSpeciationTest : public SpeciateTest {
 protected:
  VaporSpeciationTest() {
    SetSpeciation(shell::kVaporWeightSpeciation);
    AddPrimary({{"MOLWT", 80.0}, {"VP_MOLWT", 60.0}, {"A_VP", 2.0}});
    AddLight(1, {{"VP_FRACT", 60.0}, {"WT_FRACT", 11.0}});  // the liquid's percents are of no account
    AddHeavy(2, {{"VP_FRACT", 30.0}});
  }
};

TEST_F(VaporSpeciationTest, WhatIsIdentifiedIsSplitByItsVapor) {
  Split();
  EXPECT_EQ(Names(), (Rows{"Light", "Heavy", kRemainder}));
  // Light: v = 0.6; y = 0.6 x 60 / 50 = 0.72; x = 0.72 x 2 / 3 = 0.48; w2 = 48 x 50 / 80 = 30; lw = 30 / 90;
  //        moles = 0.3 / 50
  ExpectShares("Light", {.moles = 0.006, .l_wt = 1.0 / 3, .v_wt = 0.6, .l_mo = 0.48, .v_mo = 0.72});
  // Heavy: v = 0.3; y = 0.3 x 60 / 80 = 0.225; x = 0.225 x 2 / 0.75 = 0.6; w2 = 60 x 100 / 80 = 75; lw = 75 / 90;
  //        moles = 0.75 / 100
  ExpectShares("Heavy", {.moles = 0.0075, .l_wt = 75.0 / 90, .v_wt = 0.3, .l_mo = 0.6, .v_mo = 0.225});
  ExpectPressures("Light", 3, 2, 4);
  ExpectPressures("Heavy", 0.75, 0.5, 1);
}

TEST_F(VaporSpeciationTest, TheWithdrawalLossGoesByTheLiquidOfTheRowBefore) {
  Split();
  // Light has no row before it, Heavy takes Light's third of 20, the rest is left.
  ExpectLosses("Light", {60, 120, 6, 0, 18, 24});
  ExpectLosses("Heavy", {30, 60, 3, 20.0 / 3, 9, 12});
  ExpectLosses(kRemainder, {10, 20, 1, 40.0 / 3, 3, 4});
}

TEST_F(VaporSpeciationTest, TheWithdrawalLossLagsOnAFloatingRoofToo) {
  ChangePrimary({{"TANK_TYPE", shell::kInternalFloatingRoof}});
  Split();
  ExpectLosses("Light", {60, 120, 6, 0, 18, 24});
  ExpectLosses("Heavy", {30, 60, 3, 20.0 / 3, 9, 12});
  ExpectPressures("Light", 3, 0, 0);
}

TEST_F(VaporSpeciationTest, TheRestIsUnidentified) {
  Split();
  // lw = 1 - 105 / 90 = -1 / 6, v = 0.1, x = 1 - 1.08 = -0.08, y = 1 - 0.945 = 0.055
  // M = (80 - 50 x 0.48 - 100 x 0.6) / -0.08 = -4 / -0.08 = 50; m = (60 - 50 x 0.72 - 80 x 0.225) / 0.055 = 6 / 0.055
  // moles = (-1 / 6) / 50 = -0.0033333
  ExpectShares(kRemainder, {.moles = -1.0 / 300, .l_wt = -1.0 / 6, .v_wt = 0.1, .l_mo = -0.08, .v_mo = 0.055});
  ExpectWeights(kRemainder, 50, 6 / 0.055);
  // P = (2 - 3 x 0.48 - 0.75 x 0.6) / -0.08 = 0.11 / -0.08 = -1.375; maximum sum 1.92 + 0.6 = 2.52, minimum sum
  // 0.5 x 0.6 + 2.52 = 2.82: Pn = -0.82 / -0.08 = 10.25, Px = -0.52 / -0.08 = 6.5
  ExpectPressures(kRemainder, -1.375, 10.25, 6.5);
  EXPECT_EQ(Field(kRemainder, "CAS"), "222-22-2");
}

TEST_F(VaporSpeciationTest, PercentsOfAHundredHaveNoRemainder) {
  ChangeComponent(2, {{"VP_FRACT", 40.0}});
  Split();
  EXPECT_EQ(Names(), (Rows{"Light", "Heavy"}));
  // lw is of 100 now: 30 / 100 for Light; the withdrawal loss of the last component is never given out
  EXPECT_NEAR(Number("Light", "L_WT_FRACT"), 0.3, kTolerance);
  EXPECT_NEAR(Number("Light", "WD_LOSS") + Number("Heavy", "WD_LOSS"), 6, 1e-9);
}

TEST_F(VaporSpeciationTest, ASumAHairAboveAHundredHasAnAlmostEmptyRemainder) {
  ChangeComponent(2, {{"VP_FRACT", 40.0000001}});
  Split();
  EXPECT_EQ(Names(), (Rows{"Light", "Heavy", kRemainder}));
  EXPECT_NEAR(Number(kRemainder, "V_WT_FRACT"), -1e-9, 1e-12);
}

TEST_F(VaporSpeciationTest, AComponentWithoutVaporPressureIsReportedAndNotWritten) {
  ChangeComponent(2, {{"NAME", "Secret"}});
  test.host.ExpectError(11, "modEmission.Speciate");
  Split();
  EXPECT_EQ(Names(), Rows{"Light"});
}

TEST_F(VaporSpeciationTest, AWeightOfZeroIsReportedAndNotWritten) {
  for (const auto* field : {"MOLWT", "VP_MOLWT"}) {
    client.Execute("DELETE * FROM emission WHERE name <> 'Blend'");
    ChangeComponent(2, {{"MOLWT", 100.0}, {"VP_MOLWT", 80.0}});
    ChangeComponent(2, {{field, 0.0}});
    test.host.ExpectError(11, "modEmission.Speciate");
    Split();
    EXPECT_EQ(Names(), Rows{"Light"}) << field;
  }
}

TEST_F(VaporSpeciationTest, VaporFractionsThatMakeUpAllMolesLeaveNoRemainderToBeWritten) {
  // Light alone with 50 % of a vapor of 100 lb/lb-mole: y = 0.5 x 100 / 50 = 1
  client.Execute("DELETE * FROM components");
  AddLight(1, {{"VP_FRACT", 50.0}});
  ChangePrimary({{"VP_MOLWT", 100.0}});
  test.host.ExpectError(11, "modEmission.Speciate");
  Split();
  EXPECT_EQ(Names(), Rows{"Light"});
}

}  // namespace
}  // namespace orvex::emission
