#include "entry/liquid_fixture.h"

namespace orvex::entry {
namespace {

using test::LiquidTest;
using test::Rows;

constexpr const char* kNoName = "Mixture name cannot be null.  Delete this mixture if you do not wish to save it.";
constexpr const char* kDuplicate = "Duplicate Mixture Name";
constexpr const char* kOnly = "This is the only mixture for this tank.  It cannot be deleted.";

class MixtureNavigationTest : public LiquidTest {
 protected:
  /// A tank with these mixtures, the one of the given number shown. Their components have the mixture's number as name.
  FrmTank& OpenMixtures(const Rows& names, std::int32_t shown = 1) {
    auto& form = OpenLiquid(shell::kVerticalFixedRoof);
    std::int32_t number = 0;
    for (const auto& name : names) {
      if (++number > 1) test::AddRow(Client(), "mixtures", {{"ID", form.ID}, {"MIX ID", number}});
      test::ChangeMixture(Client(), form.ID, number,
                          {{"MIX NAME", name.empty() ? store::Value() : store::Value(name)},
                           {"C_CATEGORY", "Crude Oils"},
                           {"COMPONENT", "Multiple"},
                           {"SPEC_OPT", number % 2 == 1 ? "Full Speciation" : "None"}});
      test::AddComponent(Client(), form.ID, number, 1, {{"NAME", std::to_string(number)}});
    }
    // Without a city nothing is computed from these components, which have no shares.
    At(form, "dbcboCity").box.text = "";
    form.MixID = shown;
    ShowMixture(session_, form);
    return form;
  }
  void Add() { ClickAdd(session_, Form()); }
  void Next() { ClickNextMix(session_, Form()); }
  void Previous() { ClickPrevMix(session_, Form()); }
  void Delete() { ClickDelete(session_, Form()); }
  void ExpectCommands(bool previous, bool next) {
    EXPECT_EQ(Form().cmdPrevMix.enabled, previous) << Label();
    EXPECT_EQ(Form().cmdNextMix.enabled, next) << Label();
  }
};

TEST_F(MixtureNavigationTest, ShowsAMixtureWithItsListsFormNameAndLabel) {
  auto& form = OpenMixtures({"a", "b", "c"}, 2);
  EXPECT_EQ(Label(), "Mixture 2 of 3");
  EXPECT_EQ(form.form, Section::kPartial);
  EXPECT_EQ(Shown("dbcboMixNamePartial"), "b");
  EXPECT_EQ(Shown("cboChemCat"), "Crude Oils");
  EXPECT_EQ(At(form, "dbcboMixNamePartial").box.items.size(), 10u);
  ExpectCommands(true, true);
}

TEST_F(MixtureNavigationTest, WalksToBothEnds) {
  auto& form = OpenMixtures({"a", "b", "c"});
  ExpectCommands(false, true);
  Next();
  EXPECT_EQ(form.form, Section::kPartial);
  ExpectCommands(true, true);
  Next();
  EXPECT_EQ(Label(), "Mixture 3 of 3");
  EXPECT_EQ(form.form, Section::kFull);
  EXPECT_EQ(Shown("dbcboMixNameFull"), "c");
  ExpectCommands(true, false);
  Next();
  EXPECT_EQ(Label(), "Mixture 3 of 3");
  Previous();
  Previous();
  EXPECT_EQ(Shown("dbcboMixNameFull"), "a");
  ExpectCommands(false, true);
  Previous();
  EXPECT_EQ(Label(), "Mixture 1 of 3");
}

TEST_F(MixtureNavigationTest, HasNeitherWayWithOneMixture) {
  OpenMixtures({"a"});
  EXPECT_EQ(Label(), "Mixture 1 of 1");
  ExpectCommands(false, false);
}

TEST_F(MixtureNavigationTest, AddsAnEmptyMixtureBehindTheLast) {
  auto& form = OpenMixtures({"a"});
  Add();
  EXPECT_EQ(Mixtures(), (Rows{"1|a", "2|-"}));
  EXPECT_EQ(Label(), "Mixture 2 of 2");
  EXPECT_FALSE(form.form);
  EXPECT_FALSE(Visible("cboSpecOpt"));
  for (const auto* control : {"cboChemCat", "cboSingleMultiple", "cboSpecOpt", "dbcboChemName", "dbcboCAS",
                              "dbcboMixNamePartial", "dbcboMixNameFull"})
    EXPECT_EQ(Shown(control), "") << control;
  EXPECT_TRUE(At(form, "dbcboMixNameFull").box.items.empty());
  ExpectCommands(true, false);
}

TEST_F(MixtureNavigationTest, AddGoesToTheNextMixtureThatIsThere) {
  OpenMixtures({"a", "b"});
  Add();
  EXPECT_EQ(Label(), "Mixture 2 of 2");
  EXPECT_EQ(Shown("dbcboMixNamePartial"), "b");
  EXPECT_EQ(Mixtures().size(), 2u);
}

TEST_F(MixtureNavigationTest, AddsBeyondTwelveThoughNextEndsThere) {
  OpenMixtures({"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k", "l"}, 12);
  Add();
  EXPECT_EQ(Label(), "Mixture 13 of 13");
  ChooseKind("Multiple", "Full Speciation");
  Type("dbcboMixNameFull", "m");
  Previous();
  EXPECT_EQ(Label(), "Mixture 12 of 13");
  ExpectCommands(true, false);
}

TEST_F(MixtureNavigationTest, StoresWhatWasTypedAndItsPropertiesOnTheWay) {
  auto& form = OpenMixtures({"a", "b"});
  At(form, "dbcboMixNameFull").box.text = "renamed";
  At(form, "txtMolWtFull").box.text = "9";
  At(form, "dbcboCity").box.text = test::kSampleCity;
  Client().DeleteMatching("components", "IDMIX", {form.ID, 1});
  AddShares("WT_FRACT", 50, 50);
  Next();
  auto first = Client().OpenAt("mixtures", "IDMIX", {form.ID, 1});
  EXPECT_EQ(first.Text("MIX NAME"), "renamed");
  EXPECT_EQ(first.Double("MOLWT"), 66.666667);
  EXPECT_EQ(first.Double("ALS_TEMP"), 56.8914);
}

TEST_F(MixtureNavigationTest, RefusesToLeaveAMixtureWithoutAName) {
  for (const auto click : {ClickAdd, ClickNextMix, ClickPrevMix}) {
    OpenMixtures({"a", "", "c"}, 2);
    host_.ExpectMessage(kNoName);
    click(session_, Form());
    EXPECT_EQ(Label(), "Mixture 2 of 3");
  }
}

TEST_F(MixtureNavigationTest, RefusesToLeaveAMixtureThatRepeatsAName) {
  for (const auto click : {ClickAdd, ClickNextMix, ClickPrevMix}) {
    OpenMixtures({"a", "b", "c"}, 2);
    Type("dbcboMixNamePartial", "c");
    host_.ExpectMessage(kDuplicate);
    click(session_, Form());
    EXPECT_EQ(Label(), "Mixture 2 of 3");
    Type("dbcboMixNamePartial", "d");
    Next();
    EXPECT_EQ(Label(), "Mixture 3 of 3");
  }
}

TEST_F(MixtureNavigationTest, LooksAtTheNamesOfThisTankOnly) {
  OpenMixtures({"b"});
  OpenMixtures({"a", "b"});
  Next();
  EXPECT_EQ(Label(), "Mixture 2 of 2");
  Previous();
  EXPECT_EQ(Label(), "Mixture 1 of 2");
}

TEST_F(MixtureNavigationTest, TellsThatANamedMixtureHasNoOptionAndGoesOn) {
  auto& form = OpenMixtures({"a", "b"});
  test::ChangeMixture(Client(), form.ID, 1, {{"SPEC_OPT", store::Value()}});
  ShowMixture(session_, form);
  At(form, "dbcboCity").box.text = test::kSampleCity;
  host_.ExpectMessage("Speciation Option must be selected before properties are calculated.");
  Next();
  EXPECT_EQ(Label(), "Mixture 2 of 2");
}

TEST_F(MixtureNavigationTest, RunsUnderTheBusyStatus) {
  OpenMixtures({"a", "b"});
  for (const auto click : {ClickNextMix, ClickPrevMix, ClickAdd}) {
    host_.status.clear();
    click(session_, Form());
    EXPECT_EQ(host_.status.front().substr(0, 10), "Processing");
    EXPECT_EQ(host_.status.back(), "Ready");
    EXPECT_EQ(host_.pointers.back(), shell::Pointer::kDefault);
  }
}

TEST_F(MixtureNavigationTest, ReportsFailuresUnderItsCommands) {
  auto& form = OpenMixtures({"a", "b"});
  const auto long_name = std::string(51, 'x');
  At(form, "dbcboMixNameFull").box.text = long_name;
  host_.ExpectError(3163, "frmTank.cmdAdd_Click");
  Add();
  host_.ExpectError(3163, "frmTank.cmdNextMix_Click");
  Next();
  host_.ExpectError(3163, "frmTank.cmdprevmix_Click");
  Previous();
  Client().DeleteTable("mixtures");
  host_.ExpectError(3011, "frmTank.cmdDelete_Click");
  Delete();
}

TEST_F(MixtureNavigationTest, DeletesTheMiddleOfThreeAndKeepsTheNumbersOfComponents) {
  OpenMixtures({"a", "b", "c"}, 2);
  Delete();
  EXPECT_EQ(Mixtures(), (Rows{"1|a", "2|c"}));
  EXPECT_EQ(Components(), (Rows{"1|1", "2|2", "3|3"}));
  EXPECT_EQ(Label(), "Mixture 1 of 2");
  EXPECT_EQ(Shown("dbcboMixNameFull"), "a");
  ExpectCommands(false, true);
}

TEST_F(MixtureNavigationTest, DeletesTheFirstAndShowsTheNewFirst) {
  OpenMixtures({"a", "b", "c"}, 1);
  Delete();
  EXPECT_EQ(Mixtures(), (Rows{"1|b", "2|c"}));
  EXPECT_EQ(Label(), "Mixture 1 of 2");
  EXPECT_EQ(Shown("dbcboMixNamePartial"), "b");
}

TEST_F(MixtureNavigationTest, DeletesTheLastAndShowsTheOneBefore) {
  OpenMixtures({"a", "b", "c"}, 3);
  Delete();
  EXPECT_EQ(Mixtures(), (Rows{"1|a", "2|b"}));
  EXPECT_EQ(Label(), "Mixture 2 of 2");
  ExpectCommands(true, false);
}

TEST_F(MixtureNavigationTest, DoesNotDeleteTheOnlyMixture) {
  OpenMixtures({"a"});
  host_.ExpectMessage(kOnly);
  Delete();
  EXPECT_EQ(Mixtures(), (Rows{"1|a"}));
}

TEST_F(MixtureNavigationTest, NumbersInTheOrderOfTheTableWhateverTheNumbersWere) {
  auto& form = OpenMixtures({"a", "b", "c"});
  test::ChangeMixture(Client(), form.ID, 1, {{"MIX ID", 9}});
  test::ChangeMixture(Client(), form.ID, 3, {{"MIX ID", 1}});
  form.MixID = 2;
  ShowMixture(session_, form);
  Delete();
  EXPECT_EQ(Mixtures(), (Rows{"1|a", "2|c"}));
}

TEST_F(MixtureNavigationTest, LeavesTheMixturesOfOtherTanksAloneWhenDeleting) {
  OpenMixtures({"x", "y", "z"});
  OpenMixtures({"a", "b"}, 2);
  Delete();
  EXPECT_EQ(Mixtures(), (Rows{"1|x", "2|y", "3|z", "1|a"}));
}

TEST_F(MixtureNavigationTest, TakesTheDeletedMixtureOutOfTheMonthsThatShowIt) {
  auto& form = OpenMixtures({"a", "b"}, 2);
  form.months[0].cboMix.text = "a";
  form.months[1].cboMix.text = form.months[11].cboMix.text = "b";
  for (auto& month : form.months) month.cboMix.items = {"a", "b"};
  Delete();
  EXPECT_EQ(form.months[0].cboMix.text, "a");
  EXPECT_EQ(form.months[1].cboMix.text, "");
  EXPECT_EQ(form.months[11].cboMix.text, "");
  EXPECT_TRUE(form.months[11].cboMix.items.empty());
}

TEST_F(MixtureNavigationTest, DropsAnUnstoredNameWithItsMixture) {
  auto& form = OpenMixtures({"a", "b"}, 2);
  At(form, "dbcboMixNamePartial").box.text = "never stored";
  Delete();
  EXPECT_EQ(Mixtures(), (Rows{"1|a"}));
}

}  // namespace
}  // namespace orvex::entry
