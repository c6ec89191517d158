#include "reports/frmtankrep.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "support/sample_tanks.h"
#include "support/test_databases.h"

namespace orvex::reports {
namespace {

using Names = std::vector<std::string>;

class FrmtankrepTest : public testing::Test {
 protected:
  void AddTanks(const Names& user_ids) {
    for (const auto& user_id : user_ids) test::AddRow(test_.client(), "tank", {{"USER ID", user_id}});
  }
  Frmtankrep Open() { return OpenFrmtankrep(test_.session); }
  /// A window with these tanks in its list, of which these are chosen.
  Frmtankrep Open(const Names& user_ids, const std::vector<std::size_t>& chosen) {
    AddTanks(user_ids);
    auto form = Open();
    form.lstTanks.selected = chosen;
    ClickSelect(test_.session, form);
    return form;
  }
  static Names Shown(const Frmtankrep& form) {
    return {form.txtID.text, form.txtCity.text, form.txtState.text, form.txtCompany.text, form.txtTankType.text};
  }

  test::TestSession test_;
};

const Names kNothing(5);

TEST_F(FrmtankrepTest, ListsTheTanksInTheOrderOfTheTable) {
  AddTanks({"Zeta", "Alpha"});
  test::AddRow(test_.client(), "tank", {{"CITY", "No name yet"}});
  AddTanks({"", "Mid"});
  const auto form = Open();
  EXPECT_EQ(form.lstTanks.items, (Names{"Zeta", "Alpha", "", "Mid"}));
  EXPECT_TRUE(form.lstChosenTanks.items.empty());
  EXPECT_FALSE(form.cmdRunReport.enabled);
  EXPECT_EQ(Shown(form), kNothing);
  EXPECT_FALSE(form.window.closed);
}

TEST_F(FrmtankrepTest, ShowsThePickedTankToReadOnly) {
  test::AddRow(test_.client(), "tank",
               {{"USER ID", "North 1"},
                {"CITY", "Enid"},
                {"STATE", "Oklahoma"},
                {"COMPANY", "Acme & Sons"},
                {"TANK_TYPE", "Horizontal Tank"}});
  AddTanks({"South"});
  auto form = Open();
  PickTank(test_.session, form, 0);
  EXPECT_EQ(Shown(form), (Names{"North 1", "Enid", "Oklahoma", "Acme & Sons", "Horizontal Tank"}));
  for (const auto* box : {&form.txtID, &form.txtCity, &form.txtState, &form.txtCompany, &form.txtTankType})
    EXPECT_TRUE(box->read_only);
  PickTank(test_.session, form, 1);
  EXPECT_EQ(Shown(form), (Names{"South", "", "", "", ""})) << "what is not known is empty";
}

TEST_F(FrmtankrepTest, OfSeveralTanksWithOneNameTheFirstIsShown) {
  for (const auto* city : {"Enid", "Tulsa"})
    test::AddRow(test_.client(), "tank", {{"USER ID", "Twin"}, {"CITY", city}});
  auto form = Open();
  EXPECT_EQ(form.lstTanks.items, (Names{"Twin", "Twin"}));
  PickTank(test_.session, form, 1);
  EXPECT_EQ(form.txtCity.text, "Enid");
}

TEST_F(FrmtankrepTest, OfATankThatIsNotThereAnyMoreNothingIsShown) {
  AddTanks({"Kept", "Sold"});
  auto form = Open();
  PickTank(test_.session, form, 0);
  test_.client().Execute("DELETE * FROM tank WHERE [USER ID] = 'Sold'");
  PickTank(test_.session, form, 1);
  EXPECT_EQ(Shown(form), kNothing) << "not the tank that was picked before";
}

TEST_F(FrmtankrepTest, NamesAreDataWhateverIsInThem) {
  const Names names = {
      "", " ", "O'Brien", "'; DELETE * FROM tank; --", "[x] & \"y\" * ? #1#", "two\r\nlines", "\u6CB9 \u00D6l"};
  AddTanks(names);
  auto form = Open();
  ASSERT_EQ(form.lstTanks.items, names);
  for (std::size_t row = 0; row < names.size(); ++row) {
    PickTank(test_.session, form, row);
    EXPECT_EQ(form.txtID.text, names[row]);
  }
  ClickSelectAll(test_.session, form);
  EXPECT_EQ(form.lstChosenTanks.items, names);
}

TEST_F(FrmtankrepTest, SelectAddsTheSelectedRowsBehindTheChosenOnes) {
  auto form = Open({"A", "B", "C", "D"}, {2});
  form.lstTanks.selected = {0, 3};
  ClickSelect(test_.session, form);
  EXPECT_EQ(form.lstChosenTanks.items, (Names{"C", "A", "D"}));
  EXPECT_EQ(form.lstTanks.items, (Names{"A", "B", "C", "D"})) << "they stay in the list";
}

TEST_F(FrmtankrepTest, ATankCannotBeSelectedTwice) {
  auto form = Open({"A", "B", "A"}, {0, 2});
  EXPECT_EQ(form.lstChosenTanks.items, Names{"A"});
  form.lstTanks.selected = {0, 1, 2};
  ClickSelect(test_.session, form);
  EXPECT_EQ(form.lstChosenTanks.items, (Names{"A", "B"}));
}

TEST_F(FrmtankrepTest, NamesThatDifferInCaseOrBlanksAreDifferentTanks) {
  const auto form = Open({"tank", "Tank", "Tank ", " Tank"}, {0, 1, 2, 3});
  EXPECT_EQ(form.lstChosenTanks.items, (Names{"tank", "Tank", "Tank ", " Tank"}));
}

TEST_F(FrmtankrepTest, SelectAllStartsTheChosenTanksAnewInTheOrderOfTheTable) {
  auto form = Open({"C", "A", "B", "A"}, {2});
  ClickSelectAll(test_.session, form);
  EXPECT_EQ(form.lstChosenTanks.items, (Names{"C", "A", "B", "A"}));
  ClickSelectAll(test_.session, form);
  EXPECT_EQ(form.lstChosenTanks.items, (Names{"C", "A", "B", "A"}));
}

TEST_F(FrmtankrepTest, SelectAllIsBusyMeanwhile) {
  auto form = Open({"A"}, {});
  EXPECT_TRUE(test_.host.status.empty());
  ClickSelectAll(test_.session, form);
  EXPECT_EQ(test_.host.status, (Names{"Processing, please wait...", "Ready"}));
  EXPECT_EQ(test_.host.pointers, (std::vector{shell::Pointer::kBusy, shell::Pointer::kDefault}));
}

TEST_F(FrmtankrepTest, RemoveTakesTheSelectedRowsOutAndSelectsNothing) {
  auto form = Open({"A", "B", "C", "D"}, {0, 1, 2, 3});
  form.lstChosenTanks.selected = {0, 2};
  ClickRemove(test_.session, form);
  EXPECT_EQ(form.lstChosenTanks.items, (Names{"B", "D"}));
  EXPECT_TRUE(form.lstChosenTanks.selected.empty());
  ClickRemove(test_.session, form);
  EXPECT_EQ(form.lstChosenTanks.items, (Names{"B", "D"})) << "without a selection nothing is removed";
  form.lstTanks.selected = {0};
  ClickSelect(test_.session, form);
  EXPECT_EQ(form.lstChosenTanks.items, (Names{"B", "D", "A"})) << "a removed tank can be chosen again";
}

TEST_F(FrmtankrepTest, RemoveAllClearsTheChosenTanks) {
  auto form = Open({"A", "B"}, {0, 1});
  form.lstChosenTanks.selected = {1};
  ClickRemoveAll(test_.session, form);
  EXPECT_TRUE(form.lstChosenTanks.items.empty());
  EXPECT_TRUE(form.lstChosenTanks.selected.empty());
}

TEST_F(FrmtankrepTest, RunReportIsEnabledExactlyWhileATankIsChosen) {
  auto form = Open({"A", "B"}, {});
  EXPECT_FALSE(form.cmdRunReport.enabled) << "Select without a selection";
  form.lstTanks.selected = {1};
  ClickSelect(test_.session, form);
  EXPECT_TRUE(form.cmdRunReport.enabled);
  form.lstChosenTanks.selected = {0};
  ClickRemove(test_.session, form);
  EXPECT_FALSE(form.cmdRunReport.enabled) << "the last one removed";
  ClickSelectAll(test_.session, form);
  EXPECT_TRUE(form.cmdRunReport.enabled);
  form.lstChosenTanks.selected = {0};
  ClickRemove(test_.session, form);
  EXPECT_TRUE(form.cmdRunReport.enabled) << "one of two removed";
  ClickRemoveAll(test_.session, form);
  EXPECT_FALSE(form.cmdRunReport.enabled);
}

TEST_F(FrmtankrepTest, WithoutTanksSelectAllChoosesNone) {
  auto form = Open();
  EXPECT_TRUE(form.lstTanks.items.empty());
  ClickSelectAll(test_.session, form);
  EXPECT_FALSE(form.cmdRunReport.enabled);
}

TEST_F(FrmtankrepTest, RunReportHandsOnTheChosenTanksInTheirOrderAndStaysOpen) {
  for (const auto* user_id : {"A", "B", "C"}) test::AddVerticalTank(test_, {{"USER ID", user_id}});
  test_.session.ReportTime = "Annual";
  test_.session.TankList = {"of", "the", "run", "before"};
  auto form = Open();
  form.lstTanks.selected = {2};
  ClickSelect(test_.session, form);
  form.lstTanks.selected = {0};
  ClickSelect(test_.session, form);
  ClickRunReport(test_.session, form);
  EXPECT_EQ(test_.session.TankList, (Names{"C", "A"}));
  EXPECT_EQ(test_.host.windows, Names{"frmprintrep"});
  EXPECT_EQ(test_.session.PrintMode, "Report");
  EXPECT_FALSE(form.window.closed);
  EXPECT_EQ(form.lstChosenTanks.items, (Names{"C", "A"}));
  EXPECT_EQ(test_.host.pointers.back(), shell::Pointer::kDefault);
  EXPECT_EQ(test_.host.status.back(), "Ready");
}

TEST_F(FrmtankrepTest, AFaultyTankLeadsToTheErrorsAndCanBeRunAgainWhenMended) {
  const auto ID = test::AddVerticalTank(test_, {{"USER ID", "A"}, {"DIAMETER", 0.0}});
  test_.session.ReportTime = "Annual";
  auto form = Open();
  ClickSelectAll(test_.session, form);
  ClickRunReport(test_.session, form);
  EXPECT_EQ(test_.session.PrintMode, "Error");
  test::ChangeTank(test_.client(), ID, {{"DIAMETER", 20.0}});
  ClickRunReport(test_.session, form);
  EXPECT_EQ(test_.session.PrintMode, "Report");
}

TEST_F(FrmtankrepTest, CloseUnloadsAndHelpShowsItsTopic) {
  auto form = Open();
  ClickHelp(test_.session, form);
  EXPECT_EQ(test_.host.help, Names{"choose_tanks"});
  EXPECT_FALSE(form.window.closed);
  ClickClose(test_.session, form);
  EXPECT_TRUE(form.window.closed);
}

TEST_F(FrmtankrepTest, AMissingTableIsReportedUnderTheWindowsName) {
  AddTanks({"A"});
  auto form = Open();
  test_.client().DeleteTable("tank");
  test_.host.ExpectError(3011, "frmTankRep.");
  PickTank(test_.session, form, 0);
  test_.host.ExpectError(3011, "frmTankRep.");
  EXPECT_TRUE(Open().lstTanks.items.empty());
}

TEST_F(FrmtankrepTest, ALongListIsChosenWholeAndTakenApart) {
  Names names;
  {
    store::Transaction transaction(test_.client());
    auto tanks = test_.client().OpenTable("tank");
    for (int i = 0; i < 5000; ++i) {
      names.push_back("Tank " + std::to_string(4999 - i));
      tanks.AddNew();
      tanks.Set("USER ID", names.back());
      tanks.Update();
    }
    transaction.Commit();
  }
  auto form = Open();
  EXPECT_EQ(form.lstTanks.items, names);
  for (std::size_t row = 0; row < names.size(); ++row) form.lstTanks.selected.push_back(row);
  ClickSelect(test_.session, form);
  ClickSelect(test_.session, form);
  EXPECT_EQ(form.lstChosenTanks.items, names);
  PickTank(test_.session, form, 4321);
  EXPECT_EQ(form.txtID.text, "Tank 678");
  for (std::size_t row = 1; row < names.size(); ++row) form.lstChosenTanks.selected.push_back(row);
  ClickRemove(test_.session, form);
  EXPECT_EQ(form.lstChosenTanks.items, Names{"Tank 4999"});
}

}  // namespace
}  // namespace orvex::reports
