#include <gtest/gtest.h>

#include <initializer_list>
#include <utility>

#include "entry/component_fixture.h"
#include "shell/status.h"

namespace orvex::entry {
namespace {

using shell::Buttons;
using shell::Icon;

using Command = void (*)(shell::Session&, Frmcomponent&);

class ComponentNavigationTest : public test::ComponentTest {
 protected:
  void AddThree() {
    AddComponent(1, {{"NAME", "Benzene"}, {"CAS", "71-43-2"}, {"WT_FRACT", 10.0}});
    AddComponent(2, {{"NAME", "Toluene"}, {"CAS", "108-88-3"}, {"WT_FRACT", 20.0}});
    AddComponent(3, {{"NAME", "Acetone"}, {"CAS", "67-64-1"}, {"WT_FRACT", 30.0}});
  }

  /// Label, chemical, registry number, share, sum.
  static Texts Seen(const Frmcomponent& form) {
    return {form.lblComponentXofX.text, form.dbcboChemName.text, form.dbcboCAS.text, form.txtShare.text,
            form.txtSum.text};
  }
  static std::pair<bool, bool> PreviousAndNext(const Frmcomponent& form) {
    return {form.cmdPrevious.enabled, form.cmdNext.enabled};
  }
  void ExpectRefusal(const char* text) {
    host_.ExpectMessage(text, std::string(shell::kApplicationTitle), Buttons::kOk, Icon::kExclamation);
  }
};

TEST_F(ComponentNavigationTest, OpeningShowsTheFirstOfTheComponents) {
  AddThree();
  const auto form = Open(shell::kFullSpeciation);
  EXPECT_EQ(Seen(form), (Texts{"Component 1 of 3", "Benzene", "71-43-2", "10", "60.00"}));
  EXPECT_EQ(PreviousAndNext(form), std::make_pair(false, true));
}

TEST_F(ComponentNavigationTest, OpeningAMixtureWithoutComponentsGivesItTheFirst) {
  const auto form = Open(shell::kPartialSpeciation);
  EXPECT_EQ(Seen(form), (Texts{"Component 1 of 1", "", "", "0", "0.00"}));
  EXPECT_EQ(PreviousAndNext(form), std::make_pair(false, false));
  EXPECT_EQ(Column("COMP ID"), Texts{"1"});
}

TEST_F(ComponentNavigationTest, OpensOnTheMixtureThatTheEditorShows) {
  AddThree();
  AddComponent(1, {{"NAME", "Styrene"}, {"WT_FRACT", 5.0}}, 2);
  Tank().MixID = 2;
  const auto form = Open(shell::kFullSpeciation);
  EXPECT_EQ(Seen(form), (Texts{"Component 1 of 1", "Styrene", "", "5", "5.00"}));
}

TEST_F(ComponentNavigationTest, NextAndPreviousWalkToBothEnds) {
  AddThree();
  auto form = Open(shell::kFullSpeciation);
  ClickNext(session_, form);
  EXPECT_EQ(Seen(form), (Texts{"Component 2 of 3", "Toluene", "108-88-3", "20", "60.00"}));
  EXPECT_EQ(PreviousAndNext(form), std::make_pair(true, true));
  ClickNext(session_, form);
  EXPECT_EQ(Seen(form), (Texts{"Component 3 of 3", "Acetone", "67-64-1", "30", "60.00"}));
  EXPECT_EQ(PreviousAndNext(form), std::make_pair(true, false));
  ClickPrevious(session_, form);
  ClickPrevious(session_, form);
  EXPECT_EQ(Seen(form), (Texts{"Component 1 of 3", "Benzene", "71-43-2", "10", "60.00"}));
  EXPECT_EQ(PreviousAndNext(form), std::make_pair(false, true));
}

TEST_F(ComponentNavigationTest, AddBehindTheLastMakesAnEmptyOne) {
  auto form = Open(shell::kFullSpeciation);
  Fill(form, "Benzene", "25.5");
  ClickAdd(session_, form);
  EXPECT_EQ(Seen(form), (Texts{"Component 2 of 2", "", "", "0", "25.50"}));
  EXPECT_EQ(PreviousAndNext(form), std::make_pair(true, false));
  EXPECT_EQ(Column("NAME"), (Texts{"Benzene", "null"}));
  EXPECT_EQ(Column("COMP ID"), (Texts{"1", "2"}));
  EXPECT_EQ(Row(2).Long("MIX ID"), 1);
}

TEST_F(ComponentNavigationTest, AnAddThatFailsIsReportedAndStaysWithTheComponent) {
  auto form = Open(shell::kFullSpeciation);
  Fill(form, "Benzene", "25.5");
  ClickAdd(session_, form);
  ClickDelete(session_, form);
  {
    const auto other = store::Database::Open(session_.ClientPath);
    const store::Transaction holding(*other);
    host_.ExpectError(3260, "frmComponent.");
    ClickAdd(session_, form);
  }
  EXPECT_EQ(form.CompID, 1);
  TypeShare(form, "30");
  ClickClose(session_, form);
  EXPECT_EQ(Column("WT_FRACT"), Texts{"30"});
}

TEST_F(ComponentNavigationTest, AddInFrontOfAnotherGoesToThatOne) {
  AddThree();
  auto form = Open(shell::kFullSpeciation);
  ClickAdd(session_, form);
  EXPECT_EQ(form.lblComponentXofX.text, "Component 2 of 3");
  EXPECT_EQ(Column("COMP ID").size(), 3U);
}

TEST_F(ComponentNavigationTest, LeavingWritesWhatWasEntered) {
  auto form = Open(shell::kPartialSpeciation);
  Fill(form, "Benzene", "12.5");
  form.txtMolWt.text = "80";
  form.txtVPMolWt.text = "81.25";
  form.txtLDens.text = "7.5";
  EXPECT_TRUE(Row(1).IsNull("NAME")) << "nothing is written while the component is entered";
  ClickClose(session_, form);
  EXPECT_TRUE(form.window.closed);
  auto row = Row(1);
  EXPECT_EQ(row.Text("NAME"), "Benzene");
  EXPECT_EQ(row.Text("CAS"), "71-43-2");
  EXPECT_EQ(row.Double("WT_FRACT"), 12.5);
  EXPECT_EQ(row.Double("MOLWT"), 80);
  EXPECT_EQ(row.Double("VP_MOLWT"), 81.25);
  EXPECT_EQ(row.Double("L_DENS"), 7.5);
  EXPECT_TRUE(row.IsNull("ALS_TEMP")) << "the temperature is shown only";
}

TEST_F(ComponentNavigationTest, LeavingKeepsAllDigitsOfWhatWasNotChanged) {
  const double third = 100.0 / 3;
  AddComponent(1, {{"NAME", "Benzene"}, {"WT_FRACT", third}, {"MOLWT", third}});
  auto form = Open(shell::kFullSpeciation);
  ClickClose(session_, form);
  EXPECT_EQ(Row(1).Double("WT_FRACT"), third);
  EXPECT_EQ(Row(1).Double("MOLWT"), third);
  EXPECT_TRUE(Row(1).IsNull("L_DENS"));
}

TEST_F(ComponentNavigationTest, ANumberTypedAsZeroOverThatOfTheChemicalIsStoredAsZero) {
  auto form = Open(shell::kFullSpeciation);
  Fill(form, "Benzene", "12.5");
  form.txtVPMolWt.text = "0";
  LeaveNumber(session_, form, "txtVPMolWt");
  ClickClose(session_, form);
  EXPECT_TRUE(form.window.closed);
  EXPECT_EQ(Row(1).Get("VP_MOLWT"), 0.0);
}

TEST_F(ComponentNavigationTest, AComponentWithoutANameIsNotLeft) {
  auto form = Open(shell::kFullSpeciation);
  TypeShare(form, "5");
  for (const Command leave : std::initializer_list<Command>{ClickAdd, ClickNext, ClickPrevious, ClickClose}) {
    ExpectRefusal(kIncomplete);
    form.window.focus = {};
    leave(session_, form);
    EXPECT_FALSE(form.window.closed);
    EXPECT_EQ(form.window.focus, "dbcboChemName");
    EXPECT_EQ(form.lblComponentXofX.text, "Component 1 of 1");
  }
  EXPECT_EQ(Column("WT_FRACT"), Texts{"null"}) << "nor written";
}

TEST_F(ComponentNavigationTest, AComponentWithoutAShareIsNotLeft) {
  auto form = Open(shell::kFullSpeciation);
  Fill(form, "Benzene", "0.00");
  ExpectRefusal(kIncomplete);
  ClickClose(session_, form);
  EXPECT_FALSE(form.window.closed);
  EXPECT_EQ(form.window.focus, "txtShare");
  EXPECT_EQ(Column("NAME"), Texts{"null"});
}

TEST_F(ComponentNavigationTest, TheSmallestShareIsEnough) {
  auto form = Open(shell::kFullSpeciation);
  Fill(form, "Benzene", "5e-324");
  ClickClose(session_, form);
  EXPECT_TRUE(form.window.closed);
  EXPECT_EQ(Row(1).Double("WT_FRACT"), 5e-324);
}

TEST_F(ComponentNavigationTest, ASecondComponentOfOneNameIsNotLeft) {
  AddThree();
  auto form = Open(shell::kFullSpeciation);
  for (const Command leave : std::initializer_list<Command>{ClickAdd, ClickNext, ClickClose}) {
    Fill(form, "Acetone", "10");
    ExpectRefusal("Duplicate Component Name");
    leave(session_, form);
    EXPECT_FALSE(form.window.closed);
    EXPECT_EQ(form.lblComponentXofX.text, "Component 1 of 3");
  }
  EXPECT_EQ(Column("NAME"), (Texts{"Acetone", "Toluene", "Acetone"})) << "the row was written before it was refused";
}

TEST_F(ComponentNavigationTest, TheSameNameInAnotherMixtureIsNoDuplicate) {
  AddComponent(1, {{"NAME", "Benzene"}, {"WT_FRACT", 10.0}});
  AddComponent(1, {{"NAME", "Benzene"}, {"WT_FRACT", 10.0}}, 2);
  auto form = Open(shell::kFullSpeciation);
  ClickClose(session_, form);
  EXPECT_TRUE(form.window.closed);
}

TEST_F(ComponentNavigationTest, TheSumAddsAllThreeSharesOfEachRow) {
  AddComponent(1, {{"NAME", "Benzene"}, {"WT_FRACT", 10.0}, {"WEIGHT", 2.0}});
  AddComponent(2, {{"NAME", "Toluene"}, {"WT_FRACT", 20.0}, {"VP_FRACT", 0.5}});
  auto form = Open(shell::kPartialSpeciation);
  EXPECT_EQ(form.txtSum.text, "30.00") << "the opening counts what is entered here only";
  TypeShare(form, "11");
  ClickNext(session_, form);
  EXPECT_EQ(form.txtSum.text, "33.50") << "11 + 2 + 20 + 0.5";
}

TEST_F(ComponentNavigationTest, VaporPercentsReachTheirOwnField) {
  auto form = Open(shell::kVaporWeightSpeciation);
  Fill(form, "Benzene", "60");
  ClickAdd(session_, form);
  EXPECT_EQ(Column("VP_FRACT"), (Texts{"60", "null"}));
  EXPECT_EQ(Column("WT_FRACT"), (Texts{"null", "null"}));
}

TEST_F(ComponentNavigationTest, NumbersArePlainOrRefused) {
  auto form = Open(shell::kFullSpeciation);
  const std::pair<const char*, shell::TextBox Frmcomponent::*> entries[] = {{"txtShare", &Frmcomponent::txtShare},
                                                                            {"txtMolWt", &Frmcomponent::txtMolWt},
                                                                            {"txtVPMolWt", &Frmcomponent::txtVPMolWt},
                                                                            {"txtLDens", &Frmcomponent::txtLDens}};
  for (const auto& [control, member] : entries) {
    auto& box = form.*member;
    for (const auto& hostile : {std::string("five"), std::string("nan"), std::string("inf"), std::string("1,5"),
                                std::string("1e999"), std::string(400, '9'), std::string("1\n2"), std::string("1\0", 2),
                                std::string(" "), std::string("0x10"), std::string()}) {
      box.text = hostile;
      ExpectRefusal("Please enter a number.");
      LeaveNumber(session_, form, control);
      EXPECT_EQ(box.text, "0") << hostile;
      EXPECT_EQ(form.window.focus, control);
    }
    for (const auto* number : {"1,234.5", "-2", "1e3", ".5"}) {
      box.text = number;
      LeaveNumber(session_, form, control);
      EXPECT_EQ(box.text, number);
    }
  }
}

TEST_F(ComponentNavigationTest, LeavingTheComponentFromAnEntryThatIsNoNumberIsRefused) {
  auto form = Open(shell::kFullSpeciation);
  Fill(form, "Benzene", "5");
  form.txtLDens.text = "heavy";
  ExpectRefusal("Please enter a number.");
  ClickClose(session_, form);
  EXPECT_FALSE(form.window.closed);
  EXPECT_EQ(form.window.focus, "txtLDens");
  ClickClose(session_, form);
  EXPECT_TRUE(form.window.closed);
}

TEST_F(ComponentNavigationTest, WeightsWhoseSumIsNoNumberAreReportedAndCanBeMended) {
  AddComponent(1, {{"NAME", "Benzene"}, {"WEIGHT", 1e308}});
  AddComponent(2, {{"NAME", "Toluene"}, {"WEIGHT", 1.0}});
  auto form = Open(shell::kFullSpeciation);
  ClickNext(session_, form);
  TypeShare(form, "1e308");
  host_.ExpectError(6, "frmComponent.");
  ClickPrevious(session_, form);
  EXPECT_EQ(form.lblComponentXofX.text, "Component 2 of 2");
  TypeShare(form, "2");
  ClickClose(session_, form);
  EXPECT_TRUE(form.window.closed);
}

TEST_F(ComponentNavigationTest, ARowThatIsGoneHoldsNobodyUp) {
  AddThree();
  auto form = Open(shell::kFullSpeciation);
  session_.ClientDb->DeleteMatching("components", "IDMIX", {Tank().ID, 1, 1});
  ClickNext(session_, form);
  EXPECT_EQ(form.dbcboChemName.text, "Toluene");
}

TEST_F(ComponentNavigationTest, HelpIsThatOnComponents) {
  auto form = Open(shell::kFullSpeciation);
  ClickHelp(session_, form);
  EXPECT_EQ(host_.help, Texts{"components"});
}

}  // namespace
}  // namespace orvex::entry
