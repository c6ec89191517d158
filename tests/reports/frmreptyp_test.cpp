#include "reports/frmreptyp.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "support/sample_tanks.h"
#include "support/test_databases.h"

namespace orvex::reports {
namespace {

using Names = std::vector<std::string>;

class FrmreptypTest : public testing::Test {
 protected:
  test::TestSession test_;
  shell::Session& session_ = test_.session;
  Frmreptyp form_ = OpenFrmreptyp(session_);
};

TEST_F(FrmreptypTest, OffersTimesAndKindsAndHasChosenNone) {
  EXPECT_EQ(form_.cboRepTime.items, (Names{"Annual", "Monthly"}));
  EXPECT_EQ(form_.cboRepType.items, (Names{"Brief", "Summary", "Detail"}));
  EXPECT_EQ(form_.cboRepTime.text, "");
  EXPECT_EQ(form_.cboRepType.text, "");
  EXPECT_FALSE(form_.fraMonths.visible);
  EXPECT_FALSE(AnyTicked(form_.chkMonths));
  EXPECT_FALSE(form_.cmdOK.enabled);
}

TEST_F(FrmreptypTest, OffersTheMonthsOnlyForAMonthlyReport) {
  ChangeRepTime(session_, form_, "Monthly");
  EXPECT_TRUE(form_.fraMonths.visible);
  ChangeRepTime(session_, form_, "Annual");
  EXPECT_FALSE(form_.fraMonths.visible);
}

TEST_F(FrmreptypTest, AnAnnualReportNeedsATimeAndAKind) {
  ChangeRepTime(session_, form_, "Annual");
  EXPECT_FALSE(form_.cmdOK.enabled) << "no kind yet";
  ChangeRepType(session_, form_, "Detail");
  EXPECT_TRUE(form_.cmdOK.enabled);
  ChangeRepTime(session_, form_, "");
  EXPECT_FALSE(form_.cmdOK.enabled) << "no time any more";
}

TEST_F(FrmreptypTest, AMonthAloneIsNoChoice) {
  TickMonth(session_, form_, 0, true);
  EXPECT_FALSE(form_.cmdOK.enabled);
  ChangeRepTime(session_, form_, "Monthly");
  EXPECT_FALSE(form_.cmdOK.enabled) << "no kind yet";
  ChangeRepType(session_, form_, "Brief");
  EXPECT_TRUE(form_.cmdOK.enabled);
}

TEST_F(FrmreptypTest, MonthlyWithoutAMonthKeepsOKDisabled) {
  ChangeRepType(session_, form_, "Brief");
  ChangeRepTime(session_, form_, "Monthly");
  EXPECT_FALSE(form_.cmdOK.enabled);
}

TEST_F(FrmreptypTest, UntickingTheLastMonthDisablesOKAgain) {
  ChangeRepType(session_, form_, "Brief");
  ChangeRepTime(session_, form_, "Monthly");
  TickMonth(session_, form_, 3, true);
  TickMonth(session_, form_, 4, true);
  EXPECT_TRUE(form_.cmdOK.enabled);
  TickMonth(session_, form_, 3, false);
  EXPECT_TRUE(form_.cmdOK.enabled) << "one is left";
  TickMonth(session_, form_, 4, false);
  EXPECT_FALSE(form_.cmdOK.enabled);
}

TEST_F(FrmreptypTest, AnAnnualReportNeedsNoMonth) {
  ChangeRepType(session_, form_, "Brief");
  ChangeRepTime(session_, form_, "Monthly");
  ChangeRepTime(session_, form_, "Annual");
  EXPECT_TRUE(form_.cmdOK.enabled);
}

TEST_F(FrmreptypTest, AllTicksTheTwelve) {
  ChangeRepType(session_, form_, "Summary");
  ChangeRepTime(session_, form_, "Monthly");
  ClickAll(session_, form_);
  EXPECT_TRUE(std::all_of(form_.chkMonths.begin(), form_.chkMonths.end(), [](const auto& box) { return box.checked; }));
  EXPECT_TRUE(form_.cmdOK.enabled);
}

TEST_F(FrmreptypTest, OKSetsTheSelectionAndRunsTheTankAtHand) {
  test::AddVerticalTank(test_, {{"USER ID", "A"}});
  session_.TankList = {"A"};
  session_.MonthSelected.fill(true);
  ChangeRepTime(session_, form_, "Monthly");
  ChangeRepType(session_, form_, "Summary");
  TickMonth(session_, form_, 1, true);
  ClickOK(session_, form_);
  EXPECT_EQ(session_.ReportTime, "Monthly");
  EXPECT_EQ(session_.ReportType, "Summary");
  const std::array<bool, 12> february = {false, true};
  EXPECT_EQ(session_.MonthSelected, february);
  EXPECT_EQ(session_.TankList, Names{"A"});
  EXPECT_EQ(session_.PrintMode, "Report");
  EXPECT_EQ(test_.host.windows, Names{"frmprintrep"});
  EXPECT_FALSE(form_.window.closed);
  auto rows = test_.client().OpenTable("emission");
  EXPECT_EQ(rows.Text("MONTH"), "February");
  EXPECT_EQ(test_.host.pointers.back(), shell::Pointer::kDefault);
  EXPECT_EQ(test_.host.status.back(), "Ready");
}

TEST_F(FrmreptypTest, CloseUnloadsAndLeavesTheSelection) {
  session_.ReportTime = "Annual";
  session_.ReportType = "Brief";
  ChangeRepTime(session_, form_, "Monthly");
  ChangeRepType(session_, form_, "Detail");
  ClickAll(session_, form_);
  ClickCancel(session_, form_);
  EXPECT_TRUE(form_.window.closed);
  EXPECT_EQ(session_.ReportTime, "Annual");
  EXPECT_EQ(session_.ReportType, "Brief");
  EXPECT_FALSE(session_.MonthSelected[0]);
}

}  // namespace
}  // namespace orvex::reports
