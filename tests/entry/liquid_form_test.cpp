#include <algorithm>

#include "entry/frmtank_text.h"
#include "entry/liquid_fixture.h"

namespace orvex::entry {
namespace {

using test::LiquidTest;
using test::Rows;

// Of a single chemical and of full speciation.
const Rows kFixed = {"ALS_TEMP", "MLS_TEMP", "XLS_TEMP", "BULK_TEMP", "VP", "MOLWT", "VP_MOLWT"};
const Rows kFloating = {"ALS_TEMP", "VP", "MOLWT", "VP_MOLWT", "L_DENS"};
// Of the partial options, which know the range of the pressure.
const Rows kPartialFixed = {"ALS_TEMP", "MLS_TEMP", "XLS_TEMP", "BULK_TEMP", "VP",
                            "VP_MIN",   "VP_MAX",   "MOLWT",    "VP_MOLWT"};

class LiquidFormTest : public LiquidTest {
 protected:
  /// Fields of the numbers that the form shows.
  Rows NumbersShown() {
    Rows fields;
    for (const auto& entry : EntriesOf(Form(), *Form().form))
      if (entry.box.visible && entry.info->kind == EntryKind::kNumber) fields.emplace_back(entry.info->field);
    return fields;
  }
};

TEST_F(LiquidFormTest, OfASingleChemicalHasItsEntriesByRoof) {
  for (const auto type : test::kAllTypes) {
    auto& form = OpenLiquid(type);
    ChooseKind("Single");
    EXPECT_EQ(form.form, Section::kSingle);
    EXPECT_FALSE(Visible("cboSpecOpt"));
    const auto& expected = shell::IsFixedRoof(type) ? kFixed : kFloating;
    EXPECT_EQ(NumbersShown(), expected) << type;
  }
}

TEST_F(LiquidFormTest, OfPartialOptionsHasItsEntriesByRoof) {
  for (const auto type : test::kAllTypes) {
    for (const auto* option : {"Partial Speciation", "Vapor Weight Speciation", "None"}) {
      if (!shell::IsFixedRoof(type) && option == shell::kVaporWeightSpeciation) continue;
      auto& form = OpenLiquid(type);
      ChooseKind("Multiple", option);
      EXPECT_EQ(form.form, Section::kPartial);
      EXPECT_TRUE(Visible("cboSpecOpt"));
      auto expected = shell::IsFixedRoof(type) ? kPartialFixed : kFloating;
      const bool speciated = option != shell::kNoSpeciation;
      if (!speciated) std::erase(expected, "MOLWT");
      EXPECT_EQ(NumbersShown(), expected) << type << " " << option;
      EXPECT_EQ(form.cmdSpecCompPartial.visible, speciated);
      EXPECT_EQ(form.cmdCopySpecPartial.visible, speciated);
      EXPECT_FALSE(form.cmdSpecCompFull.visible);
    }
  }
}

TEST_F(LiquidFormTest, OfFullSpeciationHasItsEntriesByRoof) {
  for (const auto type : test::kAllTypes) {
    auto& form = OpenLiquid(type);
    ChooseKind("Multiple", "Full Speciation");
    EXPECT_EQ(form.form, Section::kFull);
    const auto& expected = shell::IsFixedRoof(type) ? kFixed : kFloating;
    EXPECT_EQ(NumbersShown(), expected) << type;
    EXPECT_TRUE(form.cmdSpecCompFull.visible && form.cmdCopySpecFull.visible);
    EXPECT_FALSE(form.cmdSpecCompPartial.visible);
  }
}

TEST_F(LiquidFormTest, HasTheCaptionsOfItsCommands) {
  for (const auto& [control, caption] : {std::pair("cmdCalcProp", "Calculate Mixture &Properties"),
                                         {"cmdDelete", "&Delete Mixture"},
                                         {"cmdSpecCompFull", "&View/Add Components"},
                                         {"cmdSpecCompPartial", "&View/Add Components"},
                                         {"cmdCopySpecFull", "C&opy Speciation Profile"},
                                         {"cmdCopySpecPartial", "C&opy Speciation Profile"}})
    EXPECT_EQ(std::ranges::find(kFrmTankCommands, std::string_view(control), &shell::ControlText::name)->caption,
              caption);
}

TEST_F(LiquidFormTest, IsHiddenForSeveralComponentsWithoutAnOption) {
  auto& form = OpenLiquid(shell::kVerticalFixedRoof);
  EXPECT_FALSE(form.form);
  EXPECT_FALSE(Visible("cboSpecOpt"));
  ChooseKind("Multiple");
  EXPECT_FALSE(form.form);
  EXPECT_TRUE(Visible("cboSpecOpt"));
}

// As a copy of another tank's own data does. Vapor weights of 50 and 50 give 1.2485 psia, "Heavy" alone 0.6723 psia.
TEST_F(LiquidFormTest, StaysThatOfTheStoredOptionWhenItsChoiceIsTakenBack) {
  auto& form = OpenLiquid(shell::kVerticalFixedRoof);
  ChooseKind("Multiple", "Vapor Weight Speciation");
  Type("dbcboMixNamePartial", "Heavy");
  AddShares("VP_FRACT", 50, 50);
  FillSpeciationOptions(form);
  Calculate();
  EXPECT_EQ(Shown("txtVPPartial"), "1.2485");
  Choose("cboSingleMultiple", "Multiple");
  EXPECT_EQ(form.form, Section::kPartial);
  EXPECT_TRUE(form.cmdSpecCompPartial.visible);
  EXPECT_EQ(Shown("cboSpecOpt"), "");
  EXPECT_EQ(Stored("SPEC_OPT").AsText(), "Vapor Weight Speciation");
}

TEST_F(LiquidFormTest, ShowsTheWeightOfTheLiquidAgainBehindNone) {
  OpenLiquid(shell::kVerticalFixedRoof);
  ChooseKind("Multiple", "None");
  EXPECT_FALSE(Visible("txtMolWtPartial"));
  Choose("cboSpecOpt", "Partial Speciation");
  EXPECT_TRUE(Visible("txtMolWtPartial"));
}

TEST_F(LiquidFormTest, TakesTemperaturesOfAHeatedTankOnly) {
  auto& form = OpenLiquid(shell::kHorizontal);
  const auto temperatures = {"txtALSSingle", "txtMLSPartial", "txtXLSFull", "txtBulkSingle", "txtALSFull"};
  for (const auto* control : temperatures) EXPECT_FALSE(Enabled(control)) << control;
  Heat();
  for (const auto* control : temperatures) EXPECT_TRUE(Enabled(control)) << control;
  Physical(form, "HEATED").box.text = "No";
  EnableTemperatures(form);
  for (const auto* control : temperatures) EXPECT_FALSE(Enabled(control)) << control;
  EXPECT_TRUE(Enabled("txtVPSingle"));
  OpenLiquid(shell::kInternalFloatingRoof);
  EXPECT_FALSE(Enabled("txtALSSingle"));
}

TEST_F(LiquidFormTest, RefusesANumberThatIsNone) {
  auto& form = OpenLiquid(shell::kVerticalFixedRoof);
  for (const auto& [option, control] : {std::pair("Full Speciation", "txtVPFull"), {"None", "txtVPMinPartial"}}) {
    ChooseKind("Multiple", option);
    host_.ExpectMessage("Please enter a number.");
    Type(control, "twelve");
    EXPECT_EQ(Shown(control), "0");
    EXPECT_EQ(form.window.focus, control);
  }
  ChooseKind("Single");
  host_.ExpectMessage("Please enter a number.");
  Type("txtMolWtSingle", "1,5");
  EXPECT_EQ(Shown("txtMolWtSingle"), "0");
}

}  // namespace
}  // namespace orvex::entry
