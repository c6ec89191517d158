#include "entry/liquid_fixture.h"

namespace orvex::entry {
namespace {

using test::LiquidTest;
using test::Rows;

constexpr const char* kWarning =
    "Are you sure you want to speciate this organic liquid?  This option is for crude oils, petroleum distillates and "
    "other mixtures.";

class LiquidChoicesTest : public LiquidTest {
 protected:
  void ExpectWeights(std::string_view ending, const char* liquid, const char* vapor, const char* density) {
    const auto shown = [&](std::string_view name) { return Shown("txt" + std::string(name) + std::string(ending)); };
    EXPECT_EQ(shown("MolWt"), liquid);
    EXPECT_EQ(shown("VPMolWt"), vapor);
    EXPECT_EQ(shown("LDens"), density);
  }
};

TEST_F(LiquidChoicesTest, SingleRemovesTheComponentsOfThisMixtureAtOnce) {
  auto& form = OpenLiquid(shell::kVerticalFixedRoof);
  ChooseKind("Multiple", "Full Speciation");
  Type("dbcboMixNameFull", "Light");
  AddShares("WT_FRACT", 50, 50);
  test::AddComponent(Client(), form.ID, 2, 1, {{"NAME", "Kept"}});
  test::AddComponent(Client(), form.ID + 1, 1, 1, {{"NAME", "Other tank"}});
  Choose("cboSingleMultiple", "Single");
  EXPECT_EQ(Components(), (Rows{"2|Kept", "1|Other tank"}));
  EXPECT_EQ(Shown("cboSpecOpt"), "");
  EXPECT_TRUE(Stored("SPEC_OPT").IsNull());
  EXPECT_EQ(Stored("COMPONENT").AsText(), "Single");
  EXPECT_EQ(Shown("dbcboChemName"), "Light");
}

TEST_F(LiquidChoicesTest, SingleClearsTheOptionOfTheRowThoughTheListShowsNone) {
  auto& form = OpenLiquid(shell::kVerticalFixedRoof);
  ChooseKind("Multiple", "Full Speciation");
  FillSpeciationOptions(form);
  Choose("cboSingleMultiple", "Single");
  EXPECT_TRUE(Stored("SPEC_OPT").IsNull());
}

TEST_F(LiquidChoicesTest, MultipleShowsTheFormOfTheStoredOptionAndDeletesNothing) {
  auto& form = OpenLiquid(shell::kVerticalFixedRoof);
  test::ChangeMixture(Client(), form.ID, 1, {{"COMPONENT", "Single"}, {"SPEC_OPT", "None"}, {"MIX NAME", "Slop"}});
  AddShares("WT_FRACT", 50, 50);
  ShowMixture(session_, form);
  EXPECT_EQ(form.form, Section::kSingle);
  Choose("cboSingleMultiple", "Multiple");
  EXPECT_EQ(form.form, Section::kPartial);
  EXPECT_EQ(Shown("dbcboMixNamePartial"), "Slop");
  EXPECT_EQ(Components().size(), 2u);
}

TEST_F(LiquidChoicesTest, AnOptionIsStoredAndAllowsToAdd) {
  auto& form = OpenLiquid(shell::kVerticalFixedRoof);
  form.cmdAdd.enabled = false;
  ChooseKind("Multiple", "Vapor Weight Speciation");
  EXPECT_EQ(Stored("SPEC_OPT").AsText(), "Vapor Weight Speciation");
  EXPECT_TRUE(form.cmdAdd.enabled);
}

TEST_F(LiquidChoicesTest, AChemicalBringsItsNumberWeightsAndPressure) {
  OpenLiquid(shell::kVerticalFixedRoof);
  ChooseKind("Single");
  Choose("dbcboChemName", "Light");
  EXPECT_EQ(Shown("dbcboCAS"), "111-11-1");
  ExpectWeights("Single", "50", "50", "5");
  EXPECT_EQ(Shown("txtALSSingle"), "56.8914");
  EXPECT_EQ(Shown("txtVPSingle"), "2.6891");
  EXPECT_EQ(Stored("MIX NAME").AsText(), "Light");
  EXPECT_EQ(Stored("CAS").AsText(), "111-11-1");
  EXPECT_EQ(Stored("VP").AsDouble(), 2.6891);
}

TEST_F(LiquidChoicesTest, ACasNumberBringsItsNameWeightsAndPressure) {
  OpenLiquid(shell::kExternalFloatingRoof);
  ChooseKind("Single");
  Choose("dbcboCAS", "222-22-2");
  EXPECT_EQ(Shown("dbcboChemName"), "Heavy");
  ExpectWeights("Single", "100", "80", "8");
  EXPECT_EQ(Shown("txtVPSingle"), "0.6723");
  EXPECT_EQ(Stored("MIX NAME").AsText(), "Heavy");
  EXPECT_EQ(Stored("L_DENS").AsDouble(), 8);
}

TEST_F(LiquidChoicesTest, AChemicalThatIsNotThereIsStoredAndComputedAllTheSame) {
  OpenLiquid(shell::kVerticalFixedRoof);
  ChooseKind("Single");
  Type("txtMolWtSingle", "12");
  Choose("dbcboChemName", "Unobtainium");
  EXPECT_EQ(Stored("MIX NAME").AsText(), "Unobtainium");
  EXPECT_EQ(Shown("txtMolWtSingle"), "12");
  EXPECT_EQ(Shown("txtALSSingle"), "56.8914");
  EXPECT_EQ(Shown("txtVPSingle"), "0.00E+00");
}

TEST_F(LiquidChoicesTest, NothingIsTakenOverBeforeTheWindowIsVisible) {
  auto& form = OpenLiquid(shell::kVerticalFixedRoof);
  ChooseKind("Single");
  form.visible = false;
  Choose("dbcboChemName", "Light");
  Choose("dbcboCAS", "222-22-2");
  EXPECT_TRUE(Stored("MIX NAME").IsNull());
  EXPECT_EQ(Shown("txtMolWtSingle"), "0");
}

TEST_F(LiquidChoicesTest, ATypedNameOfTheFullFormTakesTheWeightsOfItsChemical) {
  auto& form = OpenLiquid(shell::kInternalFloatingRoof);
  Choose("cboChemCat", "Organic Liquids");
  ChooseKind("Multiple", "Full Speciation");
  At(form, "dbcboMixNameFull").box.text = "Ligh";
  TypeText(session_, form, "dbcboMixNameFull");
  ExpectWeights("Full", "0", "0", "0");
  At(form, "dbcboMixNameFull").box.text = "Light";
  TypeText(session_, form, "dbcboMixNameFull");
  ExpectWeights("Full", "50", "50", "5");
  EXPECT_EQ(Shown("txtVPFull"), "0");
  Type("txtMolWtFull", "1");
  LeaveEntry(session_, form, "dbcboMixNameFull");
  ExpectWeights("Full", "50", "50", "5");
  EXPECT_EQ(Stored("MIX NAME").AsText(), "Light");
  EXPECT_EQ(Stored("MOLWT").AsDouble(), 50);
}

TEST_F(LiquidChoicesTest, ATypedNameThatIsNoChemicalOfTheFullFormChangesNoWeight) {
  OpenLiquid(shell::kInternalFloatingRoof);
  ChooseKind("Multiple", "Full Speciation");
  Type("txtMolWtFull", "7");
  Type("dbcboMixNameFull", "Slop");
  EXPECT_EQ(Stored("MIX NAME").AsText(), "Slop");
  EXPECT_EQ(Shown("txtMolWtFull"), "7");
}

TEST_F(LiquidChoicesTest, AChemicalAsPartialMixtureIsComputedAndLocked) {
  OpenLiquid(shell::kVerticalFixedRoof);
  const auto locked = {"txtMolWtPartial", "txtVPMolWtPartial", "txtLDensPartial",
                       "txtVPPartial",    "txtVPMinPartial",   "txtVPMaxPartial"};
  ChooseKind("Multiple", "Partial Speciation");
  Type("dbcboMixNamePartial", "Light");
  ExpectWeights("Partial", "50", "50", "5");
  EXPECT_EQ(Shown("txtVPPartial"), "2.6891");
  EXPECT_EQ(Shown("txtVPMinPartial"), "2.1625");
  EXPECT_EQ(Shown("txtVPMaxPartial"), "3.2157");
  for (const auto* control : locked) EXPECT_FALSE(Enabled(control)) << control;
  EXPECT_EQ(Stored("VP_MAX").AsDouble(), 3.2157);
  Type("dbcboMixNamePartial", "Lightish");
  for (const auto* control : locked) EXPECT_TRUE(Enabled(control)) << control;
  EXPECT_EQ(Shown("txtVPPartial"), "2.6891");
}

TEST_F(LiquidChoicesTest, AnOrganicLiquidOfThePersonsListIsWarnedOfAndStands) {
  OpenLiquid(shell::kVerticalFixedRoof);
  Choose("cboChemCat", "Organic Liquids");
  for (const auto& [option, control] : {std::pair("Full Speciation", "dbcboMixNameFull"),
                                        {"Partial Speciation", "dbcboMixNamePartial"},
                                        {"Vapor Weight Speciation", "dbcboMixNamePartial"},
                                        {"None", "dbcboMixNamePartial"}}) {
    ChooseKind("Multiple", option);
    host_.ExpectMessage(kWarning);
    Choose(control, "Benzene");
    EXPECT_EQ(Shown(control), "Benzene");
    EXPECT_EQ(Stored("MIX NAME").AsText(), "Benzene");
    EXPECT_GT(Stored("MOLWT").AsDouble(), 78) << option;
  }
}

TEST_F(LiquidChoicesTest, NoWarningComesForOilsOwnChemicalsTypedOrUnknownNames) {
  OpenLiquid(shell::kVerticalFixedRoof);
  Choose("cboChemCat", "Crude Oils");
  ChooseKind("Multiple", "Full Speciation");
  Choose("dbcboMixNameFull", "Crude oil (RVP 5)");
  Choose("cboChemCat", "Organic Liquids");
  test::ChangeRow(*session_.ReferenceDb, "chemical", "chemname", {"Light"}, {{"USER_DEF", true}});
  Choose("dbcboMixNameFull", "Light");
  Choose("dbcboMixNameFull", "Slop");
  Type("dbcboMixNameFull", "Benzene");
  EXPECT_TRUE(host_.messages.empty());
}

TEST_F(LiquidChoicesTest, ANameTooLongIsRefusedOnceAndNotStored) {
  auto& form = OpenLiquid(shell::kVerticalFixedRoof);
  ChooseKind("Multiple", "Full Speciation");
  host_.ExpectMessage("Please enter no more than 50 characters.");
  Type("dbcboMixNameFull", std::string(51, 'x'));
  EXPECT_EQ(form.window.focus, "dbcboMixNameFull");
  EXPECT_TRUE(Stored("MIX NAME").IsNull());
}

TEST_F(LiquidChoicesTest, FailuresAreReportedUnderTheirRoutines) {
  auto& form = OpenLiquid(shell::kVerticalFixedRoof);
  ChooseKind("Multiple", "Full Speciation");
  At(form, "dbcboMixNameFull").box.text = std::string(51, 'x');
  host_.ExpectError(3163, "frmTank.cboSpecOpt_Click");
  Choose("cboSpecOpt", "None");
  EXPECT_EQ(Shown("cboSpecOpt"), "Full Speciation");
  host_.ExpectError(3163, "frmTank.cboSingleMultiple_Click");
  Choose("cboSingleMultiple", "Multiple");
}

TEST_F(LiquidChoicesTest, AFailedChoiceOfSingleKeepsTheComponents) {
  auto& form = OpenLiquid(shell::kVerticalFixedRoof);
  ChooseKind("Multiple", "Full Speciation");
  AddShares("WT_FRACT", 50, 50);
  At(form, "dbcboMixNameFull").box.text = std::string(51, 'x');
  host_.ExpectError(3163, "frmTank.cboSingleMultiple_Click");
  Choose("cboSingleMultiple", "Single");
  EXPECT_EQ(Components().size(), 2u);
  EXPECT_EQ(Stored("COMPONENT").AsText(), "Multiple");
  // The lists go back, so that the next commit does not make a single chemical with components of it.
  EXPECT_EQ(Shown("cboSingleMultiple"), "Multiple");
  EXPECT_EQ(Shown("cboSpecOpt"), "Full Speciation");
  At(form, "dbcboMixNameFull").box.text = "short";
  CommitMixture(session_, form);
  EXPECT_EQ(Stored("COMPONENT").AsText(), "Multiple");
  EXPECT_EQ(Stored("SPEC_OPT").AsText(), "Full Speciation");
}

}  // namespace
}  // namespace orvex::entry
