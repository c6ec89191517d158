#include "entry/component_basis.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "entry/component_fixture.h"

namespace orvex::entry {
namespace {

class ComponentBasisTest : public test::ComponentTest {
 protected:
  static Texts Captions(const Frmcomponent& form) {
    return {form.lblShare.text, form.lblSum.text, form.cmdRelative.visible ? form.cmdRelativeCaption.text : "none"};
  }
};

TEST_F(ComponentBasisTest, FirstOpeningOfANewMixtureShowsPercents) {
  const auto form = Open(shell::kFullSpeciation);
  EXPECT_EQ(Captions(form), (Texts{"Percent of Total Liquid Weight", "Percent Specified:", "Use Relative Weight"}));
  EXPECT_EQ(form.txtSum.text, "0.00");
  EXPECT_EQ(form.txtShare.text, "0");
}

TEST_F(ComponentBasisTest, FullySpeciatedLiquidInPercentsShowsThem) {
  AddComponent(1, {{"NAME", "Benzene"}, {"WT_FRACT", 40.5}, {"WEIGHT", 7.0}});
  AddComponent(2, {{"NAME", "Toluene"}, {"WT_FRACT", 20.25}});
  const auto form = Open(shell::kFullSpeciation);
  EXPECT_EQ(Captions(form), (Texts{"Percent of Total Liquid Weight", "Percent Specified:", "Use Relative Weight"}));
  EXPECT_EQ(form.txtShare.text, "40.5");
  EXPECT_EQ(form.txtSum.text, "60.75") << "40.5 + 20.25, the weight not counted";
}

TEST_F(ComponentBasisTest, FullySpeciatedLiquidInWeightsShowsThem) {
  AddComponent(1, {{"NAME", "Benzene"}, {"WEIGHT", 1200.0}, {"VP_FRACT", 3.0}});
  AddComponent(2, {{"NAME", "Toluene"}, {"WEIGHT", 34.5}});
  const auto form = Open(shell::kFullSpeciation);
  EXPECT_EQ(Captions(form), (Texts{"Weight (lbs)", "Pounds Specified:", "Use Percent of Weight"}));
  EXPECT_EQ(form.txtShare.text, "1200");
  EXPECT_EQ(form.txtSum.text, "1,234.50") << "1200 + 34.5";
}

TEST_F(ComponentBasisTest, PartlySpeciatedLiquidShowsPercentsAndNoSwitch) {
  AddComponent(1, {{"NAME", "Benzene"}, {"WT_FRACT", 1.5}});
  AddComponent(2, {{"NAME", "Toluene"}, {"WT_FRACT", 2.0}});
  const auto form = Open(shell::kPartialSpeciation);
  EXPECT_EQ(Captions(form), (Texts{"Percent of Total Liquid Weight", "Percent Specified:", "none"}));
  EXPECT_EQ(form.txtShare.text, "1.5");
  EXPECT_EQ(form.txtSum.text, "3.50");
}

TEST_F(ComponentBasisTest, VaporWeightsShowPercentsOfTheVaporAndNoSwitch) {
  AddComponent(1, {{"NAME", "Benzene"}, {"VP_FRACT", 55.0}, {"WT_FRACT", 9.0}});
  AddComponent(2, {{"NAME", "Toluene"}, {"VP_FRACT", 45.0}});
  const auto form = Open(shell::kVaporWeightSpeciation);
  EXPECT_EQ(Captions(form), (Texts{"Percent of Total Vapor Weight", "Percent Specified:", "none"}));
  EXPECT_EQ(form.txtShare.text, "55");
  EXPECT_EQ(form.txtSum.text, "100.00");
}

TEST_F(ComponentBasisTest, EachRowOfTheTableIsFoundByItsOptionAndMode) {
  for (const auto& basis : kComponentBases) EXPECT_EQ(&FindBasis(basis.option, basis.mode), &basis);
  EXPECT_EQ(std::size(kComponentBases), 4U);
  EXPECT_THROW((void)FindBasis(shell::kNoSpeciation, kPercentMode), std::out_of_range);
}

TEST_F(ComponentBasisTest, OpeningClearsAllSharesOfTheMixtureWhenItsFirstComponentHasNone) {
  AddComponent(1, {{"NAME", "Benzene"}, {"VP_FRACT", 60.0}});
  AddComponent(2, {{"NAME", "Toluene"}, {"WT_FRACT", 20.0}, {"WEIGHT", 5.0}});
  AddComponent(1, {{"NAME", "Acetone"}, {"VP_FRACT", 30.0}}, 2);
  const auto form = Open(shell::kFullSpeciation);
  EXPECT_EQ(form.lblShare.text, "Percent of Total Liquid Weight");
  EXPECT_EQ(form.txtSum.text, "0.00");
  for (const auto* field : {"VP_FRACT", "WT_FRACT", "WEIGHT"}) EXPECT_EQ(Column(field), (Texts{"0", "0"})) << field;
  EXPECT_EQ(Column("VP_FRACT", 2), Texts{"30"});
}

TEST_F(ComponentBasisTest, OpeningClearsNothingForTheOtherOptions) {
  AddComponent(1, {{"NAME", "Benzene"}, {"VP_FRACT", 60.0}});
  Open(shell::kPartialSpeciation);
  EXPECT_EQ(Column("VP_FRACT"), Texts{"60"});
}

TEST_F(ComponentBasisTest, SwitchingToRelativeWeightClearsAllPercentsOfTheTank) {
  AddComponent(1, {{"NAME", "Benzene"}, {"WT_FRACT", 60.0}, {"VP_FRACT", 7.0}});
  AddComponent(2, {{"NAME", "Toluene"}, {"WT_FRACT", 40.0}});
  AddComponent(1, {{"NAME", "Acetone"}, {"WT_FRACT", 100.0}, {"WEIGHT", 3.0}}, 2);
  test::AddRow(*session_.ClientDb, "components",
               {{"ID", Tank().ID + 1}, {"MIX ID", 1}, {"COMP ID", 1}, {"WT_FRACT", 9.0}});
  auto form = Open(shell::kFullSpeciation);
  ClickRelative(session_, form);
  EXPECT_EQ(Captions(form), (Texts{"Weight (lbs)", "Pounds Specified:", "Use Percent of Weight"}));
  EXPECT_EQ(form.txtShare.text, "0");
  EXPECT_EQ(form.txtSum.text, "0.00");
  EXPECT_EQ(Column("WT_FRACT"), (Texts{"0", "0"}));
  EXPECT_EQ(Column("WT_FRACT", 2), Texts{"0"}) << "those of another mixture, too";
  EXPECT_EQ(Column("WEIGHT", 2), Texts{"3"});
  EXPECT_EQ(Column("VP_FRACT"), (Texts{"7", "null"}));
  EXPECT_EQ(session_.ClientDb->OpenAt("components", "IDMIX", {Tank().ID + 1, 1, 1}).Double("WT_FRACT"), 9)
      << "another tank keeps its own";
}

TEST_F(ComponentBasisTest, SwitchingToPercentClearsWeightsAndPercentsOfTheTank) {
  AddComponent(1, {{"NAME", "Benzene"}, {"WEIGHT", 60.0}, {"VP_FRACT", 7.0}});
  AddComponent(1, {{"NAME", "Acetone"}, {"WT_FRACT", 100.0}, {"WEIGHT", 3.0}}, 2);
  auto form = Open(shell::kFullSpeciation);
  ClickRelative(session_, form);
  EXPECT_EQ(Captions(form), (Texts{"Percent of Total Liquid Weight", "Percent Specified:", "Use Relative Weight"}));
  EXPECT_EQ(form.txtShare.text, "0");
  EXPECT_EQ(form.txtSum.text, "0.00");
  EXPECT_EQ(Column("WEIGHT"), Texts{"0"});
  EXPECT_EQ(Column("WEIGHT", 2), Texts{"0"});
  EXPECT_EQ(Column("WT_FRACT", 2), Texts{"0"});
  EXPECT_EQ(Column("VP_FRACT"), Texts{"7"});
}

TEST_F(ComponentBasisTest, AShareEnteredAfterTheSwitchIsStoredAsAWeight) {
  auto form = Open(shell::kFullSpeciation);
  entry::ChooseChemName(session_, form, "Benzene");
  ClickRelative(session_, form);
  EXPECT_EQ(form.dbcboChemName.text, "Benzene") << "what is being entered stays";
  TypeShare(form, "1,250.5");
  ClickAdd(session_, form);
  EXPECT_EQ(Row(1).Double("WEIGHT"), 1250.5);
  EXPECT_EQ(Row(1).Double("WT_FRACT"), 0);
  EXPECT_EQ(form.txtSum.text, "1,250.50");
}

}  // namespace
}  // namespace orvex::entry
