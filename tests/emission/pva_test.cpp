#include <gtest/gtest.h>

#include "emission/mixture_fixture.h"
#include "emission/vapor_pressure.h"

namespace orvex::emission {
namespace {

using test::AddRow;

/// A session with one liquid, "Brew", whose fields the tests fill.
class PvaTest : public ::testing::Test {
 protected:
  void AddBrew(test::FieldValues fields) {
    AddRow(reference, "chemical", {{"NAME", "Brew"}, {"CATEGORY", shell::kOrganicLiquids}});
    ChangeBrew(fields);
  }
  void ChangeBrew(test::FieldValues fields) { test::ChangeRow(reference, "chemical", "chemname", {"Brew"}, fields); }
  void FillTable() {
    ChangeBrew({{"VP_40", 1.0},
                {"VP_50", 2.0},
                {"VP_60", 3.0},
                {"VP_70", 4.0},
                {"VP_80", 5.0},
                {"VP_90", 6.0},
                {"VP_100", 7.0}});
  }
  double Pva(double rankine = k60F) { return PVA(test.session, "Brew", rankine); }

  test::TestSession test;
  store::Database& reference = test.reference();
};

// An organic liquid with all three forms at 60 deg F, TC = 15.5555556, TK = 288.705556:
//   Antoine  10^(7 - 1300 / (15.5555556 + 220))  = 10^1.48113208  = 30.2783410 mmHg, x 14.696 / 760 = 0.58548750 psia
//   Kelvin   10^(-0.05223 x 34000 / 288.705556 + 8) = 10^1.84902727 = 70.6361902 mmHg = 1.36588086 psia
//   table    3 psia
constexpr double kAntoineAt60 = 0.58548750;
constexpr double kKelvinAt60 = 1.36588086;

class PvaFormsTest : public PvaTest {
 protected:
  PvaFormsTest() {
    AddBrew({{"VP_COEF_A", 7.0}, {"VP_COEF_B", 1300.0}, {"VP_COEF_C", 220.0}, {"VP_2_A", 34000.0}, {"VP_2_B", 8.0}});
    FillTable();
  }
};

TEST_F(PvaTest, OfANameThatIsNoChemicalIsZero) { EXPECT_EQ(PVA(test.session, "Nothing", k60F), 0); }

TEST_F(PvaTest, FindsANameWithoutRegardToCase) {
  AddBrew({});
  FillTable();
  EXPECT_NEAR(PVA(test.session, "BREW", k60F), 3, 1e-12);
}

TEST_F(PvaFormsTest, TheAntoineFormComesFirst) { EXPECT_NEAR(Pva(), kAntoineAt60, 1e-8); }

TEST_F(PvaFormsTest, WithoutAntoineCoefficientBTheKelvinFormIsTaken) {
  ChangeBrew({{"VP_COEF_B", 0.0}});
  EXPECT_NEAR(Pva(), kKelvinAt60, 1e-8);
  ChangeBrew({{"VP_COEF_B", kNull}});
  EXPECT_NEAR(Pva(), kKelvinAt60, 1e-8);
}

TEST_F(PvaFormsTest, WithoutBothKelvinCoefficientsTheTableIsTaken) {
  for (const auto* missing : {"VP_2_A", "VP_2_B"}) {
    for (const store::Value& value : {store::Value(0.0), kNull}) {
      ChangeBrew({{"VP_COEF_B", kNull}, {"VP_2_A", 34000.0}, {"VP_2_B", 8.0}});
      ChangeBrew({{missing, value}});
      EXPECT_NEAR(Pva(), 3, 1e-12) << missing;
    }
  }
}

TEST_F(PvaFormsTest, AnAntoineFormThatLacksAOrCGivesNothing) {
  // B alone decides on the form; there is no going on to the next one.
  for (const auto* missing : {"VP_COEF_A", "VP_COEF_C"}) {
    ChangeBrew({{"VP_COEF_A", 7.0}, {"VP_COEF_C", 220.0}});
    ChangeBrew({{missing, kNull}});
    EXPECT_EQ(Pva(), 0) << missing;
  }
}

TEST_F(PvaFormsTest, AnAntoineCoefficientCOfZeroIsAValue) {
  // 10^(7 - 1300 / 100) = 10^-6 mmHg at 100 deg C, 671.67 R; x 14.696 / 760 = 1.93368421e-8 psia
  ChangeBrew({{"VP_COEF_C", 0.0}});
  EXPECT_NEAR(Pva(671.67), 1.93368421e-8, 1e-14);
}

TEST_F(PvaFormsTest, AnAntoineDenominatorOfZeroIsReportedAndGivesZero) {
  // TC = -40 exactly at 419.67 R
  ChangeBrew({{"VP_COEF_C", 40.0}});
  test.host.ExpectError(11, "modEmission.PVA");
  EXPECT_EQ(Pva(459.67 - 40), 0);
}

TEST_F(PvaFormsTest, APressureBeyondAllNumbersIsReportedAndGivesZero) {
  ChangeBrew({{"VP_COEF_A", 400.0}});
  test.host.ExpectError(6, "modEmission.PVA");
  EXPECT_EQ(Pva(), 0);
}

TEST_F(PvaTest, AnOrganicLiquidWithoutAnyFormIsZero) {
  AddBrew({{"REID", 5.0}, {"ASTM_SLOPE", 2.0}});
  EXPECT_EQ(Pva(), 0);
}

TEST_F(PvaTest, AnOrganicLiquidWithSixOfTheSevenTableValuesIsZero) {
  AddBrew({});
  for (const auto* missing : {"VP_40", "VP_50", "VP_60", "VP_70", "VP_80", "VP_90", "VP_100"}) {
    for (const store::Value& value : {store::Value(0.0), kNull}) {
      FillTable();
      ChangeBrew({{missing, value}});
      EXPECT_EQ(Pva(), 0) << missing;
    }
  }
}

TEST_F(PvaTest, TheTableAtItsEndsAndBeyond) {
  AddBrew({});
  FillTable();
  EXPECT_NEAR(Pva(459.67 + 40), 1, 1e-12);
  EXPECT_NEAR(Pva(459.67 + 100), 7, 1e-12);
  EXPECT_EQ(Pva(459.67 + 39), 1);
  EXPECT_EQ(Pva(459.67 + 101), 7);
}

TEST_F(PvaTest, OfCrudeOilFollowsItsReidPressure) {
  // ln 5 = 1.60943791; A = 12.82 - 0.9672 x 1.60943791 = 11.26335165; B = 7261 - 1216 x 1.60943791 = 5303.92349848
  // e^(11.26335165 - 5303.92349848 / 519.67) = e^1.05702168 = 2.87778723
  AddBrew({{"CATEGORY", shell::kCrudeOils}, {"REID", 5.0}});
  EXPECT_NEAR(Pva(), 2.87778723, 1e-7);
}

TEST_F(PvaTest, OfCrudeOilIgnoresTheSlopeAndAllOtherForms) {
  AddBrew({{"CATEGORY", shell::kCrudeOils}, {"REID", 5.0}});
  const double plain = Pva();
  ChangeBrew({{"ASTM_SLOPE", 3.0}, {"VP_COEF_A", 7.0}, {"VP_COEF_B", 1300.0}, {"VP_COEF_C", 220.0}});
  FillTable();
  EXPECT_EQ(Pva(), plain);
}

TEST_F(PvaTest, OfDistillatesFollowsReidPressureAndSlope) {
  // S = 4, root 2, ln 10 = 2.30258509: A = 15.64 - 3.708 - (0.8742 - 0.656) x 2.30258509 = 11.42957593
  // B = 8742 - 2084 - (1049 - 358.8) x 2.30258509 = 5068.75576882; e^(A - B / 519.67) = e^1.67577878 = 5.34295449
  AddBrew({{"CATEGORY", shell::kPetroleumDistillates}, {"REID", 10.0}, {"ASTM_SLOPE", 4.0}});
  EXPECT_NEAR(Pva(), 5.34295449, 1e-7);
}

TEST_F(PvaTest, OfDistillatesWithoutSlopeOrReidPressureIsZero) {
  AddBrew({{"CATEGORY", shell::kPetroleumDistillates}});
  for (const store::Value& nothing : {store::Value(0.0), store::Value(-1.0), kNull}) {
    ChangeBrew({{"REID", 10.0}, {"ASTM_SLOPE", nothing}});
    EXPECT_EQ(Pva(), 0);
    ChangeBrew({{"REID", nothing}, {"ASTM_SLOPE", 4.0}});
    EXPECT_EQ(Pva(), 0);
  }
}

TEST_F(PvaTest, OfCrudeOilWithoutReidPressureIsZero) {
  AddBrew({{"CATEGORY", shell::kCrudeOils}});
  for (const store::Value& nothing : {store::Value(0.0), store::Value(-1.0), kNull}) {
    ChangeBrew({{"REID", nothing}});
    EXPECT_EQ(Pva(), 0);
  }
}

TEST_F(PvaTest, OfAnyOtherCategoryIsZero) {
  AddBrew({{"REID", 5.0}, {"ASTM_SLOPE", 4.0}, {"VP_COEF_A", 7.0}, {"VP_COEF_B", 1300.0}, {"VP_COEF_C", 220.0}});
  FillTable();
  for (const store::Value& category :
       {store::Value("Inorganic"), store::Value(""), store::Value("organic liquids"), kNull}) {
    ChangeBrew({{"CATEGORY", category}});
    EXPECT_EQ(Pva(), 0) << category.TextOrEmpty();
  }
}

TEST_F(PvaTest, AtAbsoluteZeroAReidFormIsReportedAndGivesZero) {
  AddBrew({{"CATEGORY", shell::kCrudeOils}, {"REID", 5.0}});
  test.host.ExpectError(11, "modEmission.PVA");
  EXPECT_EQ(Pva(0), 0);
}

TEST_F(PvaTest, AnEditOfTheChemicalIsSeenAtOnce) {
  AddBrew({});
  FillTable();
  EXPECT_NEAR(Pva(), 3, 1e-12);
  ChangeBrew({{"VP_60", 3.5}});
  EXPECT_NEAR(Pva(), 3.5, 1e-12);
  ChangeBrew({{"CATEGORY", "Other"}});
  EXPECT_EQ(Pva(), 0);
}

TEST_F(PvaTest, AnEditOfTheChemicalIsSeenAtOnceWithinATransaction) {
  AddBrew({});
  FillTable();
  {
    const store::Transaction work(reference);
    EXPECT_NEAR(Pva(), 3, 1e-12);
    ChangeBrew({{"VP_60", 3.5}});
    EXPECT_NEAR(Pva(), 3.5, 1e-12);
    ChangeBrew({{"NAME", "Ale"}});
    EXPECT_EQ(Pva(), 0);
    EXPECT_NEAR(PVA(test.session, "Ale", k60F), 3.5, 1e-12);
    reference.Execute("DELETE * FROM chemical");
    EXPECT_EQ(PVA(test.session, "Ale", k60F), 0);
  }
  // Undone with the transaction.
  EXPECT_NEAR(Pva(), 3, 1e-12);
}

TEST_F(PvaTest, IsChemicalTellsWhetherANameStandsInTheTable) {
  AddBrew({});
  EXPECT_TRUE(IsChemical(test.session, "Brew"));
  EXPECT_FALSE(IsChemical(test.session, "Ale"));
}

}  // namespace
}  // namespace orvex::emission
