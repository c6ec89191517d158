#include "reports/chem_opt.h"

#include <gtest/gtest.h>

#include "shell/tank_types.h"
#include "support/test_databases.h"

namespace orvex::reports {
namespace {

class ChemOptTest : public testing::Test {
 protected:
  void AddChemical(std::string_view category, test::FieldValues fields) {
    test::AddRow(test_.reference(), "chemical", {{"NAME", "Stuff"}, {"CATEGORY", category}});
    test::ChangeRow(test_.reference(), "chemical", "chemname", {"Stuff"}, fields);
  }
  void AddTable(test::FieldValues changes = {}) {
    AddChemical(shell::kOrganicLiquids, {{"VP_40", 0.4},
                                         {"VP_50", 0.5},
                                         {"VP_60", 0.625},
                                         {"VP_70", 0.75},
                                         {"VP_80", 1.0},
                                         {"VP_90", 1.25},
                                         {"VP_100", 1500.5}});
    test::ChangeRow(test_.reference(), "chemical", "chemname", {"Stuff"}, changes);
  }
  std::string Basis(double temperature_f = 60) { return ChemOpt(test_.session, "Stuff", temperature_f); }

  test::TestSession test_;
};

TEST_F(ChemOptTest, AChemicalThatIsNotInTheTableHasNoBasis) { EXPECT_EQ(Basis(), ""); }

TEST_F(ChemOptTest, CrudeOilRestsOnItsReidPressureFirst) {
  AddChemical(shell::kCrudeOils, {{"REID", 5.0}, {"VP_COEF_A", 1.0}, {"VP_COEF_B", 2.0}, {"VP_COEF_C", 3.0}});
  EXPECT_EQ(Basis(), "Option 4: RVP=5");
}

TEST_F(ChemOptTest, CrudeOilWithoutReidPressureTakesTheRulesOfAll) {
  AddChemical(shell::kCrudeOils, {{"REID", 0.0}, {"VP_COEF_A", 1.5}, {"VP_COEF_B", 2000.0}, {"VP_COEF_C", 0.25}});
  EXPECT_EQ(Basis(), "Option 2: A=1.5, B=2000, C=0.25");
}

TEST_F(ChemOptTest, ADistillateNeedsReidPressureAndSlope) {
  AddChemical(shell::kPetroleumDistillates, {{"REID", 0.02248}, {"ASTM_SLOPE", 4.5}, {"VP_2_A", 1.0}, {"VP_2_B", 2.0}});
  EXPECT_EQ(Basis(), "Option 4: RVP=0.02248, ASTM Slope=4.5");
  test::ChangeRow(test_.reference(), "chemical", "chemname", {"Stuff"}, {{"ASTM_SLOPE", 0.0}});
  EXPECT_EQ(Basis(), "Option 3: A=1, B=2");
}

TEST_F(ChemOptTest, NegativeReidPressuresAndSlopesCountAsNone) {
  AddChemical(shell::kPetroleumDistillates, {{"REID", -5.0}, {"ASTM_SLOPE", 3.0}, {"VP_2_A", 1.0}, {"VP_2_B", 2.0}});
  EXPECT_EQ(Basis(), "Option 3: A=1, B=2");
  test::ChangeRow(test_.reference(), "chemical", "chemname", {"Stuff"}, {{"REID", 5.0}, {"ASTM_SLOPE", -3.0}});
  EXPECT_EQ(Basis(), "Option 3: A=1, B=2");
  test::ChangeRow(test_.reference(), "chemical", "chemname", {"Stuff"},
                  {{"CATEGORY", shell::kCrudeOils}, {"REID", -5.0}});
  EXPECT_EQ(Basis(), "Option 3: A=1, B=2");
}

TEST_F(ChemOptTest, CoefficientsComeBeforeConstantsAndTheseBeforeTheTable) {
  AddTable({{"VP_COEF_A", 6.0}, {"VP_COEF_B", 1200.0}, {"VP_COEF_C", 220.0}, {"VP_2_A", 5.0}, {"VP_2_B", 4.0}});
  EXPECT_EQ(Basis(), "Option 2: A=6, B=1200, C=220");
  test::ChangeRow(test_.reference(), "chemical", "chemname", {"Stuff"}, {{"VP_COEF_B", 0.0}});
  EXPECT_EQ(Basis(), "Option 3: A=5, B=4");
  test::ChangeRow(test_.reference(), "chemical", "chemname", {"Stuff"}, {{"VP_2_A", 0.0}});
  EXPECT_EQ(Basis(), "Option 1: VP50 = 0.5 VP60 = 0.625");
}

TEST_F(ChemOptTest, AnOrganicLiquidIgnoresItsReidPressure) {
  AddChemical(shell::kOrganicLiquids, {{"REID", 5.0}, {"ASTM_SLOPE", 3.0}, {"VP_2_A", 7009.5}, {"VP_2_B", -2.5}});
  EXPECT_EQ(Basis(), "Option 3: A=7009.5, B=-2.5");
}

TEST_F(ChemOptTest, ACoefficientOfZeroCountsAsNone) {
  AddChemical(shell::kOrganicLiquids, {{"VP_COEF_A", 6.0}, {"VP_COEF_B", 0.0}, {"VP_2_A", 5.0}, {"VP_2_B", 0.0}});
  EXPECT_EQ(Basis(), "");
}

TEST_F(ChemOptTest, NumbersStandAsTheyAreStored) {
  AddChemical(shell::kOrganicLiquids, {{"VP_COEF_A", 6.905}, {"VP_COEF_B", 1211.033}, {"VP_COEF_C", 220.79}});
  EXPECT_EQ(Basis(), "Option 2: A=6.905, B=1211.033, C=220.79");
}

TEST_F(ChemOptTest, TheTableTellsThePointsAroundTheTemperature) {
  AddTable();
  EXPECT_EQ(Basis(-10), "Option 1: VP40 = 0.4");
  EXPECT_EQ(Basis(40), "Option 1: VP40 = 0.4");
  EXPECT_EQ(Basis(40.01), "Option 1: VP40 = 0.4 VP50 = 0.5");
  EXPECT_EQ(Basis(50), "Option 1: VP40 = 0.4 VP50 = 0.5");
  EXPECT_EQ(Basis(50.01), "Option 1: VP50 = 0.5 VP60 = 0.625");
  EXPECT_EQ(Basis(60), "Option 1: VP50 = 0.5 VP60 = 0.625");
  EXPECT_EQ(Basis(60.01), "Option 1: VP60 = 0.625 VP70 = 0.75");
  EXPECT_EQ(Basis(70), "Option 1: VP60 = 0.625 VP70 = 0.75");
}

TEST_F(ChemOptTest, FromSeventyToNinetyItTellsThePointsAtSeventyAndEighty) {
  AddTable();
  for (const double temperature : {70.01, 80.0, 85.0, 90.0})
    EXPECT_EQ(Basis(temperature), "Option 1: VP70 = 0.75 VP80 = 1") << temperature;
}

TEST_F(ChemOptTest, FromNinetyToAHundredItTellsThePointsAtEightyAndNinety) {
  AddTable();
  EXPECT_EQ(Basis(90.01), "Option 1: VP80 = 1 VP90 = 1.25");
  EXPECT_EQ(Basis(100), "Option 1: VP80 = 1 VP90 = 1.25");
}

TEST_F(ChemOptTest, AboveAHundredTheTableIsNoBasis) {
  AddTable();
  EXPECT_EQ(Basis(100.01), "");
}

TEST_F(ChemOptTest, ATableWithAGapIsNoBasis) {
  AddTable();
  for (const auto* point : {"VP_40", "VP_50", "VP_60", "VP_70", "VP_80", "VP_90", "VP_100"}) {
    for (const auto& gap : {store::Value(0.0), store::Value()}) {
      test::ChangeRow(test_.reference(), "chemical", "chemname", {"Stuff"}, {{point, gap}});
      EXPECT_EQ(Basis(55), "") << point;
    }
    test::ChangeRow(test_.reference(), "chemical", "chemname", {"Stuff"}, {{point, 1.5}});
    EXPECT_NE(Basis(55), "") << point;
  }
}

TEST_F(ChemOptTest, AnotherCategoryHasNoBasis) {
  AddChemical("Solids", {{"VP_COEF_A", 1.0}, {"VP_COEF_B", 2.0}, {"VP_COEF_C", 3.0}});
  EXPECT_EQ(Basis(), "");
}

TEST_F(ChemOptTest, ANullAmongTheCoefficientsIsReported) {
  AddChemical(shell::kOrganicLiquids, {{"VP_COEF_B", 2.0}, {"VP_COEF_C", 3.0}});
  test_.host.ExpectError(94, "frmPreview.ChemOpt");
  EXPECT_EQ(Basis(), "");
}

}  // namespace
}  // namespace orvex::reports
