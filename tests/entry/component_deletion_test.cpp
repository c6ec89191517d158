#include <gtest/gtest.h>

#include <initializer_list>

#include "entry/component_fixture.h"

namespace orvex::entry {
namespace {

class ComponentDeletionTest : public test::ComponentTest {
 protected:
  ComponentDeletionTest() { AddComponent(1, {{"NAME", "Styrene"}, {"WT_FRACT", 7.0}}, 2); }

  void AddThree() {
    AddComponent(1, {{"NAME", "Benzene"}, {"CAS", "71-43-2"}, {"WT_FRACT", 10.0}});
    AddComponent(2, {{"NAME", "Toluene"}, {"CAS", "108-88-3"}, {"WT_FRACT", 20.0}, {"MOLWT", 92.141}});
    AddComponent(3, {{"NAME", "Acetone"}, {"CAS", "67-64-1"}, {"WT_FRACT", 30.0}, {"VP_FRACT", 0.25}});
  }

  void ExpectOtherMixtureUntouched() {
    EXPECT_EQ(Column("NAME", 2), Texts{"Styrene"});
    EXPECT_EQ(Column("WT_FRACT", 2), Texts{"7"});
  }
};

TEST_F(ComponentDeletionTest, OfTheFirstShowsTheOneThatFollows) {
  AddThree();
  auto form = Open(shell::kFullSpeciation);
  ClickDelete(session_, form);
  EXPECT_EQ(form.lblComponentXofX.text, "Component 1 of 2");
  EXPECT_EQ(form.dbcboChemName.text, "Toluene");
  EXPECT_EQ(form.dbcboCAS.text, "108-88-3");
  EXPECT_EQ(form.txtShare.text, "20");
  EXPECT_EQ(form.txtMolWt.text, "92.141");
  EXPECT_EQ(form.txtSum.text, "50.25") << "20 + 30 + 0.25";
  EXPECT_FALSE(form.cmdPrevious.enabled);
  EXPECT_TRUE(form.cmdNext.enabled);
  EXPECT_EQ(Column("COMP ID"), (Texts{"1", "2"}));
  EXPECT_EQ(Column("NAME"), (Texts{"Toluene", "Acetone"}));
  ExpectOtherMixtureUntouched();
}

TEST_F(ComponentDeletionTest, OfAMiddleOneShowsTheOneBeforeAndNumbersTheOthersAnew) {
  AddThree();
  auto form = Open(shell::kFullSpeciation);
  ClickNext(session_, form);
  ClickDelete(session_, form);
  EXPECT_EQ(form.lblComponentXofX.text, "Component 1 of 2");
  EXPECT_EQ(form.dbcboChemName.text, "Benzene");
  EXPECT_EQ(form.txtSum.text, "40.25") << "10 + 30 + 0.25";
  EXPECT_EQ(Column("COMP ID"), (Texts{"1", "2"}));
  EXPECT_EQ(Column("NAME"), (Texts{"Benzene", "Acetone"}));
}

TEST_F(ComponentDeletionTest, OfTheLastShowsTheOneBefore) {
  AddThree();
  auto form = Open(shell::kFullSpeciation);
  ClickNext(session_, form);
  ClickNext(session_, form);
  ClickDelete(session_, form);
  EXPECT_EQ(form.lblComponentXofX.text, "Component 2 of 2");
  EXPECT_EQ(form.dbcboChemName.text, "Toluene");
  EXPECT_EQ(form.txtSum.text, "30.00");
  EXPECT_TRUE(form.cmdPrevious.enabled);
  EXPECT_FALSE(form.cmdNext.enabled);
}

TEST_F(ComponentDeletionTest, OfTheOnlyOneClosesTheWindowAndLeavesNone) {
  AddComponent(1, {{"NAME", "Benzene"}, {"WT_FRACT", 10.0}});
  auto form = Open(shell::kFullSpeciation);
  ClickDelete(session_, form);
  EXPECT_TRUE(form.window.closed);
  EXPECT_EQ(Column("NAME"), Texts{});
  ExpectOtherMixtureUntouched();
}

TEST_F(ComponentDeletionTest, OfTheOnlyOneClosesTheWindowWhateverItsNumber) {
  AddComponent(3, {{"NAME", "Benzene"}, {"WT_FRACT", 10.0}});
  auto form = Open(shell::kFullSpeciation);
  EXPECT_EQ(form.lblComponentXofX.text, "Component 1 of 1");
  ClickDelete(session_, form);
  EXPECT_TRUE(form.window.closed);
  EXPECT_EQ(Column("NAME"), Texts{});
}

TEST_F(ComponentDeletionTest, ThatFailsIsReportedAndChangesNothing) {
  AddThree();
  auto form = Open(shell::kFullSpeciation);
  ClickNext(session_, form);
  const auto other = store::Database::Open(session_.ClientPath);
  const store::Transaction holding(*other);
  using Command = void (*)(shell::Session&, Frmcomponent&);
  for (const Command command : std::initializer_list<Command>{ClickDelete, ClickDeleteAll}) {
    host_.ExpectError(3260, "frmComponent.");
    command(session_, form);
    EXPECT_FALSE(form.window.closed);
    EXPECT_EQ(form.CompID, 2);
    EXPECT_EQ(form.dbcboChemName.text, "Toluene");
    EXPECT_EQ(Column("COMP ID"), (Texts{"1", "2", "3"}));
  }
}

TEST_F(ComponentDeletionTest, GetsRidOfAComponentThatMayNotBeLeft) {
  AddComponent(1, {{"NAME", "Benzene"}, {"CAS", "71-43-2"}, {"WT_FRACT", 10.0}});
  auto form = Open(shell::kFullSpeciation);
  ClickAdd(session_, form);
  ClickDelete(session_, form);
  EXPECT_EQ(form.lblComponentXofX.text, "Component 1 of 1");
  EXPECT_EQ(form.dbcboChemName.text, "Benzene");
  EXPECT_EQ(Column("NAME"), Texts{"Benzene"});
}

TEST_F(ComponentDeletionTest, NumbersInTheOrderOfTheTableAndNotOfTheOldNumbers) {
  AddComponent(3, {{"NAME", "Acetone"}, {"WT_FRACT", 30.0}});
  AddComponent(1, {{"NAME", "Benzene"}, {"WT_FRACT", 10.0}});
  AddComponent(4, {{"NAME", "Styrene"}, {"WT_FRACT", 5.0}});
  AddComponent(2, {{"NAME", "Toluene"}, {"WT_FRACT", 20.0}});
  auto form = Open(shell::kFullSpeciation);
  ClickDelete(session_, form);
  EXPECT_EQ(Column("COMP ID"), (Texts{"1", "2", "3"}));
  EXPECT_EQ(Column("NAME"), (Texts{"Acetone", "Styrene", "Toluene"}));
  EXPECT_EQ(form.dbcboChemName.text, "Acetone") << "which is number 1 now";
}

TEST_F(ComponentDeletionTest, OfAllLeavesOneEmptyComponent) {
  AddThree();
  auto form = Open(shell::kFullSpeciation);
  ClickNext(session_, form);
  ClickDeleteAll(session_, form);
  EXPECT_FALSE(form.window.closed);
  EXPECT_EQ(form.lblComponentXofX.text, "Component 1 of 1");
  EXPECT_EQ(form.dbcboChemName.text, "");
  EXPECT_EQ(form.dbcboCAS.text, "");
  EXPECT_EQ(form.txtShare.text, "0");
  EXPECT_EQ(form.txtMolWt.text, "0");
  EXPECT_EQ(form.txtSum.text, "0.00");
  EXPECT_FALSE(form.cmdPrevious.enabled);
  EXPECT_FALSE(form.cmdNext.enabled);
  EXPECT_EQ(Column("COMP ID"), Texts{"1"});
  EXPECT_EQ(Column("NAME"), Texts{"null"});
  ExpectOtherMixtureUntouched();
}

TEST_F(ComponentDeletionTest, OfAllInWeightsStaysWithWeights) {
  AddComponent(1, {{"NAME", "Benzene"}, {"WEIGHT", 10.0}});
  auto form = Open(shell::kFullSpeciation);
  ClickDeleteAll(session_, form);
  EXPECT_EQ(form.lblShare.text, "Weight (lbs)");
  Fill(form, "Acetone", "12");
  ClickClose(session_, form);
  EXPECT_EQ(Column("WEIGHT"), Texts{"12"});
}

}  // namespace
}  // namespace orvex::entry
