#include <bit>

#include "refdata/chemical_fixture.h"

/// What a chemical needs before it can be saved.
namespace orvex::refdata {
namespace {

using Controls = std::vector<std::string>;

const Controls kTable = {"txtVP_40", "txtVP_50", "txtVP_60", "txtVP_70", "txtVP_80", "txtVP_90", "txtVP_100"};
const Controls kAntoine = {"txtVP_COEF_A", "txtVP_COEF_B", "txtVP_COEF_C"};
const Controls kKelvin = {"txtVP_2_A", "txtVP_2_B"};
const Controls kReid = {"txtREID"}, kSlope = {"txtASTM_SLOPE"}, kReidAndSlope = {"txtREID", "txtASTM_SLOPE"};

class FrmchemicalCompleteness : public test::ChemicalTest {
 protected:
  void TypeEach(const Controls& controls, const std::string& text) {
    for (const auto& control : controls) Type(control, text);
  }
  /// A new chemical of the category that has these numbers only to make its vapor pressure of.
  void AddWith(const std::string& category, const Controls& numbers) {
    Add();
    Describe("Trial", category);
    TypeEach(numbers, "2.5");
  }
  void ExpectAccepted() {
    SaveAdded();
    EXPECT_EQ(Own(), test::Rows{"Trial"});
    Delete();
  }
  void ExpectRefused() {
    ExpectIncomplete();
    Save();
    EXPECT_EQ(Own(), test::Rows{"-"}) << "nothing of it may be written";
    EXPECT_TRUE(form_.just_added);
    Delete();
  }
};

TEST_F(FrmchemicalCompleteness, NeedsEachOfItsSixPartsAloneAndInPairs) {
  // Name, category, the three numbers, an option.
  constexpr unsigned kParts = 6;
  for (unsigned missing = 1; missing < 1U << kParts; ++missing) {
    if (std::popcount(missing) > 2) continue;
    SCOPED_TRACE(missing);
    const auto has = [&](unsigned part) { return (missing >> part & 1U) == 0; };
    Add();
    if (has(0)) Type("dbcboChemName", "Trial");
    if (has(1)) Choose("cboCategory", "Organic Liquids");
    if (has(2)) Type("txtL_DENS", "6");
    if (has(3)) Type("txtMOLWT", "80");
    if (has(4)) Type("txtVP_MOLWT", "80");
    if (has(5)) TypeEach(kAntoine, "7");
    ExpectRefused();
  }
}

TEST_F(FrmchemicalCompleteness, RestsOnEachOfTheFirstThreeOptionsAlone) {
  for (const auto& option : {kTable, kAntoine, kKelvin}) {
    SCOPED_TRACE(option[0]);
    for (const auto* category : {"Organic Liquids", "Crude Oils", "Petroleum Distillates"}) {
      AddWith(category, option);
      ExpectAccepted();
    }
  }
}

TEST_F(FrmchemicalCompleteness, AZeroInAnyFieldOfAnOptionMakesItIncomplete) {
  for (const auto& option : {kTable, kAntoine, kKelvin}) {
    for (const auto& control : option) {
      SCOPED_TRACE(control);
      AddWith("Organic Liquids", option);
      Type(control, "0");
      ExpectRefused();
    }
  }
}

TEST_F(FrmchemicalCompleteness, PartsOfSeveralOptionsMakeNone) {
  Controls parts(kTable.begin(), kTable.end() - 1);
  parts.insert(parts.end(), kAntoine.begin(), kAntoine.end() - 1);
  parts.insert(parts.end(), kKelvin.begin(), kKelvin.end() - 1);
  AddWith("Organic Liquids", parts);
  ExpectRefused();
}

TEST_F(FrmchemicalCompleteness, TheFourthOptionServesNoOrganicLiquid) {
  for (const auto& numbers : {kReid, kSlope, kReidAndSlope}) {
    AddWith("Organic Liquids", numbers);
    ExpectRefused();
  }
}

TEST_F(FrmchemicalCompleteness, ACrudeOilNeedsItsReidPressureOnly) {
  for (const auto& numbers : {kReid, kReidAndSlope}) {
    AddWith("Crude Oils", numbers);
    ExpectAccepted();
  }
  AddWith("Crude Oils", kSlope);
  ExpectRefused();
}

TEST_F(FrmchemicalCompleteness, ADistillateNeedsItsSlopeToo) {
  AddWith("Petroleum Distillates", kReidAndSlope);
  ExpectAccepted();
  for (const auto& numbers : {kReid, kSlope}) {
    AddWith("Petroleum Distillates", numbers);
    ExpectRefused();
  }
}

TEST_F(FrmchemicalCompleteness, ACategoryThatIsNoneOfTheThreeIsRefused) {
  test::AddRow(*session_.ReferenceDb, "chemical", {{"NAME", "Old"}, {"CATEGORY", "Solvents"}, {"USER_DEF", true}});
  Pick("dbcboChemName", "Old");
  EXPECT_EQ(Shown("cboCategory"), "Solvents");
  TypeEach({"txtMOLWT", "txtVP_MOLWT", "txtL_DENS", "txtVP_2_A", "txtVP_2_B"}, "4");
  ExpectIncomplete();
  Save();
  Choose("cboCategory", "Crude Oils");
  Save();
  EXPECT_EQ(Query("SELECT * FROM chemical WHERE USER_DEF = True", {"NAME", "CATEGORY", "VP_2_B"}),
            test::Rows{"Old|Crude Oils|4"});
}

TEST_F(FrmchemicalCompleteness, NegativeNumbersAreFilledIn) {
  AddWith("Organic Liquids", kAntoine);
  Type("txtVP_COEF_A", "-7");
  ExpectAccepted();
}

}  // namespace
}  // namespace orvex::refdata
