#include "entry/entry_lists.h"
#include "entry/liquid_fixture.h"
#include "shell/choices.h"

namespace orvex::entry {
namespace {

using test::LiquidTest;
using test::Rows;

class LiquidListsTest : public LiquidTest {
 protected:
  /// A field of the chemicals of a category, each text once, without nulls, in the order of the alphabet.
  Rows FieldOf(std::string_view category, std::string_view field) {
    Rows texts;
    auto chemical = session_.ReferenceDb->OpenTable("chemical");
    chemical.SetIndex(field == "NAME" ? "chemname" : "zCAS");
    for (; !chemical.AtEnd(); chemical.MoveNext())
      if (chemical.TextOrEmpty("CATEGORY") == category && !chemical.IsNull(field))
        texts.push_back(chemical.Text(field));
    return texts;
  }
};

TEST_F(LiquidListsTest, HoldTheNamesAndCasNumbersOfTheChosenCategory) {
  auto& form = OpenLiquid(shell::kVerticalFixedRoof);
  for (const auto category : shell::kCategories) {
    Choose("cboChemCat", std::string(category));
    const auto names = FieldOf(category, "NAME");
    ASSERT_GE(names.size(), 10u);
    for (const auto* list : {"dbcboChemName", "dbcboMixNamePartial", "dbcboMixNameFull"})
      EXPECT_EQ(At(form, list).box.items, names) << category << " " << list;
    EXPECT_EQ(At(form, "dbcboCAS").box.items, FieldOf(category, "CAS")) << category;
    EXPECT_EQ(Stored("C_CATEGORY").AsText(), category);
  }
}

TEST_F(LiquidListsTest, OfCategoriesAndKindsAreInTheirOrder) {
  auto& form = OpenLiquid(shell::kVerticalFixedRoof);
  EXPECT_EQ(At(form, "cboChemCat").box.items, (Rows{"Organic Liquids", "Petroleum Distillates", "Crude Oils"}));
  EXPECT_EQ(At(form, "cboSingleMultiple").box.items, (Rows{"Single", "Multiple"}));
}

TEST_F(LiquidListsTest, AreEmptyWithoutACategory) {
  auto& form = OpenLiquid(shell::kVerticalFixedRoof);
  for (const auto* list : {"dbcboChemName", "dbcboMixNamePartial", "dbcboMixNameFull", "dbcboCAS"})
    EXPECT_TRUE(At(form, list).box.items.empty()) << list;
}

TEST_F(LiquidListsTest, OfferTheVaporWeightsForFixedRoofsOnly) {
  const Rows fixed = {"Full Speciation", "Partial Speciation", "Vapor Weight Speciation", "None"};
  const Rows floating = {"Full Speciation", "Partial Speciation", "None"};
  for (const auto type : test::kAllTypes) {
    auto& form = OpenLiquid(type);
    EXPECT_EQ(At(form, "cboSpecOpt").box.items, shell::IsFixedRoof(type) ? fixed : floating) << type;
    EXPECT_EQ(Shown("cboSpecOpt"), "") << type;
  }
}

TEST_F(LiquidListsTest, TakeBackTheChosenOptionButLeaveTheRowsOwn) {
  auto& form = OpenLiquid(shell::kVerticalFixedRoof);
  ChooseKind("Multiple", "Partial Speciation");
  FillSpeciationOptions(form);
  EXPECT_EQ(Shown("cboSpecOpt"), "");
  CommitMixture(session_, form);
  EXPECT_EQ(Stored("SPEC_OPT").AsText(), "Partial Speciation");
}

TEST_F(LiquidListsTest, ReportAFailedChoiceOfACategory) {
  auto& form = OpenLiquid(shell::kVerticalFixedRoof);
  ChooseKind("Multiple", "Full Speciation");
  At(form, "dbcboMixNameFull").box.text = std::string(51, 'x');
  host_.ExpectError(3163, "frmTank.cboChemCat");
  Choose("cboChemCat", "Crude Oils");
  EXPECT_EQ(Shown("cboChemCat"), "");
}

}  // namespace
}  // namespace orvex::entry
