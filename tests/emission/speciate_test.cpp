#include "emission/speciate.h"

#include "emission/speciate_fixture.h"

namespace orvex::emission {
namespace {

// Full speciation -----------------------------------------------------------------------------------------------------

/// 40 % Light and 60 % Heavy by weight: M = 500 / 7 = 71.428571, P = 14.25 / 7 = 2.0357143 psia, vapor weight
/// 780 / 14.25 = 54.7368421.
class FullSpeciationTest : public SpeciateTest {
 protected:
  FullSpeciationTest() { AddPrimary({{"MOLWT", 500.0 / 7}, {"VP_MOLWT", 780 / 14.25}, {"A_VP", 14.25 / 7}}); }

  void ExpectSplit() {
    // Light: 40 / 50 = 0.8 moles of 1.4, x = 4 / 7; y = 3 x (4 / 7) / (14.25 / 7) = 12 / 14.25 = 0.84210526;
    //        v = y x 50 / (780 / 14.25) = 600 / 780 = 0.76923077; losses x v, withdrawal x 0.4
    ExpectShares("Light", {.moles = 0.8, .l_wt = 0.4, .v_wt = 60.0 / 78, .l_mo = 4.0 / 7, .v_mo = 12 / 14.25});
    ExpectWeights("Light", 50, 50);
    ExpectPressures("Light", 3, 2, 4);
    ExpectLosses("Light", {6000.0 / 78, 12000.0 / 78, 600.0 / 78, 8, 1800.0 / 78, 2400.0 / 78});
    // Heavy: 60 / 100 = 0.6 moles, x = 3 / 7; y = 0.75 x (3 / 7) / (14.25 / 7) = 2.25 / 14.25 = 0.15789474;
    //        v = y x 80 / (780 / 14.25) = 180 / 780 = 0.23076923; losses x v, withdrawal x 0.6
    ExpectShares("Heavy", {.moles = 0.6, .l_wt = 0.6, .v_wt = 18.0 / 78, .l_mo = 3.0 / 7, .v_mo = 2.25 / 14.25});
    ExpectWeights("Heavy", 100, 80);
    ExpectPressures("Heavy", 0.75, 0.5, 1);
    ExpectLosses("Heavy", {1800.0 / 78, 3600.0 / 78, 180.0 / 78, 12, 540.0 / 78, 720.0 / 78});
  }
};

TEST_F(FullSpeciationTest, SplitsTheLossesAmongItsComponents) {
  AddLight(1, {{"WT_FRACT", 40.0}});
  AddHeavy(2, {{"WT_FRACT", 60.0}});
  Split();
  EXPECT_EQ(Names(), (Rows{"Light", "Heavy"}));
  ExpectSplit();
  EXPECT_EQ(Field("Light", "CAS"), "111-11-1");
  EXPECT_EQ(Field("Heavy", "CAS"), "222-22-2");
}

TEST_F(FullSpeciationTest, RelativeWeightsAloneGiveFractionsThatSumToOne) {
  // 2 : 3 instead of 40 : 60. Only the moles are of the weights as they stand: 2 / 50 and 3 / 100.
  AddLight(1, {{"WEIGHT", 2.0}});
  AddHeavy(2, {{"WEIGHT", 3.0}});
  Split();
  ExpectShares("Light", {.moles = 0.04, .l_wt = 0.4, .v_wt = 60.0 / 78, .l_mo = 4.0 / 7, .v_mo = 12 / 14.25});
  ExpectShares("Heavy", {.moles = 0.03, .l_wt = 0.6, .v_wt = 18.0 / 78, .l_mo = 3.0 / 7, .v_mo = 2.25 / 14.25});
  EXPECT_NEAR(Number("Light", "L_WT_FRACT") + Number("Heavy", "L_WT_FRACT"), 1, kTolerance);
}

TEST_F(FullSpeciationTest, HasNoRemainderWhateverThePercentsSumTo) {
  AddLight(1, {{"WT_FRACT", 20.0}});
  AddHeavy(2, {{"WT_FRACT", 30.0}});
  Split();
  EXPECT_EQ(Names(), (Rows{"Light", "Heavy"}));
  EXPECT_NEAR(Number("Light", "L_WT_FRACT"), 0.4, kTolerance);
}

TEST_F(FullSpeciationTest, AFloatingRoofHasNoPressureRange) {
  AddLight(1, {{"WT_FRACT", 40.0}});
  AddHeavy(2, {{"WT_FRACT", 60.0}});
  for (const auto type :
       {shell::kInternalFloatingRoof, shell::kExternalFloatingRoof, shell::kDomedExternalFloatingRoof}) {
    ChangePrimary({{"TANK_TYPE", type}});
    Split();
    ExpectPressures("Light", 3, 0, 0);
    ExpectPressures("Heavy", 0.75, 0, 0);
  }
  ChangePrimary({{"TANK_TYPE", shell::kHorizontal}});
  Split();
  ExpectPressures("Light", 3, 2, 4);
}

TEST_F(FullSpeciationTest, ASecondSplitRewritesTheRowsThatAreThere) {
  AddLight(1, {{"WT_FRACT", 40.0}});
  AddHeavy(2, {{"WT_FRACT", 60.0}});
  Split();
  ChangePrimary({{"S_LOSS", 0.0}});
  Split();
  EXPECT_EQ(Names(), (Rows{"Light", "Heavy"}));
  EXPECT_EQ(Number("Light", "S_LOSS"), 0);
  ChangePrimary({{"S_LOSS", 100.0}});
  Split();
  ExpectSplit();
}

TEST_F(FullSpeciationTest, RowsComeInTheOrderOfTheComponentNumbers) {
  AddHeavy(2, {{"WT_FRACT", 60.0}});
  AddLight(1, {{"WT_FRACT", 40.0}});
  Split();
  EXPECT_EQ(Names(), (Rows{"Light", "Heavy"}));
  ExpectSplit();
}

TEST_F(FullSpeciationTest, EachMonthHasItsOwnRows) {
  AddLight(1, {{"WT_FRACT", 100.0}});
  const double pressure = 3;
  AddPrimary({{"MOLWT", 50.0}, {"VP_MOLWT", 50.0}, {"A_VP", pressure}, {"S_LOSS", 11.0}}, "January");
  AddPrimary({{"MOLWT", 50.0}, {"VP_MOLWT", 50.0}, {"A_VP", pressure}, {"S_LOSS", 22.0}}, "May");
  Split("January");
  EXPECT_EQ(Names("January"), Rows{"Light"});
  EXPECT_TRUE(Names("May").empty());
  Split("May");
  EXPECT_NEAR(Field("Light", "S_LOSS", "January").AsDouble(), 11, 1e-12);
  EXPECT_NEAR(Field("Light", "S_LOSS", "May").AsDouble(), 22, 1e-12);
  EXPECT_TRUE(Names().empty());
}

TEST_F(FullSpeciationTest, AMonthThatTheMixtureDoesNotHaveEndsQuietly) {
  AddLight(1, {{"WT_FRACT", 100.0}});
  Split("June");
  EXPECT_EQ(client.OpenTable("emission").RecordCount(), 1);
  // Nor is the row of another mixture or of a component taken for it.
  test::ChangeMixture(client, ID, 1, {{"MIX NAME", "Other"}});
  Split();
  Speciate(test.session, ID, 2, "Annual");
  EXPECT_EQ(client.OpenTable("emission").RecordCount(), 1);
}

TEST_F(FullSpeciationTest, AMixtureWithoutPrimaryRowKeepsItsOldComponentRows) {
  test::AddRow(client, "emission", {{"ID", ID}, {"MIX ID", 1}, {"NAME", "Old"}, {"MONTH", "June"}});
  Split("June");
  EXPECT_EQ(Names("June"), Rows{"Old"});
}

// No speciation -------------------------------------------------------------------------------------------------------

TEST_F(SpeciateTest, AMixtureWithoutComponentsLosesItsOldRowsInAllMonths) {
  AddPrimary();
  AddPrimary({}, "May");
  for (const auto* month : {"Annual", "January", "May"}) {
    test::AddRow(client, "emission", {{"ID", ID}, {"MIX ID", 1}, {"NAME", "Light"}, {"MONTH", month}});
    test::AddRow(client, "emission", {{"ID", ID}, {"MIX ID", 2}, {"NAME", "Light"}, {"MONTH", month}});
    test::AddRow(client, "emission", {{"ID", ID + 1}, {"MIX ID", 1}, {"NAME", "Light"}, {"MONTH", month}});
  }
  test::ChangeMixture(client, ID, 1, {{"COMPONENT", shell::kSingle}, {"SPEC_OPT", kNull}});
  Split();
  for (const auto* month : {"Annual", "January", "May"}) EXPECT_TRUE(Names(month).empty()) << month;
  // Both primary rows, and the rows of the other mixture and the other tank.
  EXPECT_EQ(client.OpenTable("emission").RecordCount(), 8);
}

TEST_F(SpeciateTest, SpeciationNoneWritesRowsWithoutFiguresOfTheirOwn) {
  AddPrimary({{"MOLWT", 70.0}, {"VP_MOLWT", 60.0}, {"A_VP", 2.0}, {"L_DENS", 6.0}});
  AddLight(1, {{"WT_FRACT", 30.0}, {"VP_FRACT", 20.0}});
  AddHeavy(2, {{"WT_FRACT", 50.0}});
  for (const store::Value& none : {store::Value(shell::kNoSpeciation), store::Value(""), kNull}) {
    client.Execute("DELETE * FROM emission WHERE name <> 'Blend'");
    SetSpeciation(none);
    Split();
    EXPECT_EQ(Names(), (Rows{"Light", "Heavy"}));
    for (const auto* name : {"Light", "Heavy"}) {
      ExpectShares(name, {});
      ExpectPressures(name, 0, 0, 0);
      ExpectLosses(name, {0, 0, 0, 0, 0, 0});
    }
    ExpectWeights("Light", 50, 50);
    ExpectWeights("Heavy", 100, 80);
    EXPECT_EQ(Field("Light", "L_DENS"), 6.0);
  }
}

// Gaps and failures ---------------------------------------------------------------------------------------------------

TEST_F(FullSpeciationTest, AGapInTheComponentNumbersRepeatsTheRowBeforeAndLosesTheLast) {
  AddLight(1, {{"WT_FRACT", 40.0}});
  AddHeavy(3, {{"WT_FRACT", 60.0}});
  Split();
  // Two components are counted; number 2 is not there, so that the first one is written twice, number 3 never.
  EXPECT_EQ(Names(), Rows{"Light"});
  EXPECT_NEAR(Number("Light", "S_LOSS"), 6000.0 / 78, 1e-9);
}

TEST_F(FullSpeciationTest, AZeroInTheMixturesOwnRowIsReportedAndWritesNoRow) {
  AddLight(1, {{"WT_FRACT", 40.0}});
  for (const auto* field : {"A_VP", "VP_MOLWT"}) {
    ChangePrimary({{"A_VP", 2.0}, {"VP_MOLWT", 50.0}});
    for (const store::Value& zero : {store::Value(0.0), kNull}) {
      ChangePrimary({{field, zero}});
      test.host.ExpectError(11, "modEmission.Speciate");
      Split();
      EXPECT_TRUE(Names().empty()) << field;
    }
  }
}

TEST_F(FullSpeciationTest, AComponentWithoutMolecularWeightFailsTheMolesOfAll) {
  AddLight(1, {{"WT_FRACT", 40.0}});
  AddHeavy(2, {{"WT_FRACT", 60.0}, {"MOLWT", 0.0}});
  test.host.ExpectError(11, "modEmission.TotalMoles");
  test.host.ExpectError(11, "modEmission.Speciate");
  Split();
  EXPECT_TRUE(Names().empty());
}

TEST_F(SpeciateTest, AFailureKeepsTheRowsBeforeItAndWritesNoneBehind) {
  AddPrimary({{"MOLWT", 80.0}, {"VP_MOLWT", 60.0}, {"A_VP", 2.0}});
  SetSpeciation(shell::kPartialSpeciation);
  AddLight(1, {{"WT_FRACT", 25.0}});
  AddHeavy(2, {{"WT_FRACT", 35.0}, {"MOLWT", 0.0}});
  test::AddComponent(client, ID, 1, 3, {{"NAME", "Solid"}, {"WT_FRACT", 40.0}});
  test.host.ExpectError(11, "modEmission.Speciate");
  Split();
  EXPECT_EQ(Names(), Rows{"Light"});
}

TEST_F(FullSpeciationTest, WeightsThatAreAllZeroAreReported) {
  AddLight(1, {});
  test.host.ExpectError(11, "modEmission.Speciate");
  Split();
  EXPECT_TRUE(Names().empty());
}

TEST_F(FullSpeciationTest, AComponentWithoutNameOrCasIsReportedAndNotWritten) {
  AddLight(1, {{"WT_FRACT", 40.0}});
  AddHeavy(2, {{"WT_FRACT", 60.0}});
  for (const auto* field : {"NAME", "CAS"}) {
    client.Execute("DELETE * FROM emission WHERE name <> 'Blend'");
    ChangeComponent(2, {{"NAME", "Heavy"}, {"CAS", "222-22-2"}});
    ChangeComponent(2, {{field, kNull}});
    test.host.ExpectError(94, "modEmission.Speciate");
    Split();
    EXPECT_EQ(Names(), Rows{"Light"}) << field;
  }
}

TEST_F(FullSpeciationTest, AnEmptyCasIsNotWritten) {
  AddLight(1, {{"WT_FRACT", 100.0}, {"CAS", ""}});
  Split();
  EXPECT_TRUE(Field("Light", "CAS").IsNull());
}

TEST_F(FullSpeciationTest, AComponentThatIsNoChemicalHasNoVapor) {
  AddLight(1, {{"WT_FRACT", 40.0}});
  AddHeavy(2, {{"WT_FRACT", 60.0}, {"NAME", "Secret"}});
  Split();
  ExpectShares("Secret", {.moles = 0.6, .l_wt = 0.6, .v_wt = 0, .l_mo = 3.0 / 7, .v_mo = 0});
  ExpectPressures("Secret", 0, 0, 0);
  ExpectLosses("Secret", {0, 0, 0, 12, 0, 0});
}

}  // namespace
}  // namespace orvex::emission
