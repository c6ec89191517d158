#include "reports/frmmonth.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "support/test_databases.h"

namespace orvex::reports {
namespace {

using Names = std::vector<std::string>;

class FrmmonthTest : public testing::Test {
 protected:
  test::TestSession test_;
  shell::Session& session_ = test_.session;
  Frmmonth form_ = OpenFrmmonth(session_);
};

TEST_F(FrmmonthTest, OpensWithoutAMonth) {
  EXPECT_FALSE(AnyTicked(form_.chkMonths));
  EXPECT_FALSE(form_.cmdRunReport.enabled);
  EXPECT_TRUE(form_.cmdAll.enabled);
}

TEST_F(FrmmonthTest, RunReportIsEnabledWhileAtLeastOneMonthIsTicked) {
  for (std::size_t month = 0; month < 12; ++month) {
    TickMonth(session_, form_, month, true);
    EXPECT_TRUE(form_.cmdRunReport.enabled) << month;
    TickMonth(session_, form_, month, false);
    EXPECT_FALSE(form_.cmdRunReport.enabled) << month;
  }
  TickMonth(session_, form_, 0, true);
  TickMonth(session_, form_, 11, true);
  TickMonth(session_, form_, 0, false);
  EXPECT_TRUE(form_.cmdRunReport.enabled) << "December is still ticked";
}

TEST_F(FrmmonthTest, AllTicksTheTwelve) {
  TickMonth(session_, form_, 4, true);
  ClickAll(session_, form_);
  EXPECT_TRUE(std::all_of(form_.chkMonths.begin(), form_.chkMonths.end(), [](const auto& box) { return box.checked; }));
  EXPECT_TRUE(form_.cmdRunReport.enabled);
}

TEST_F(FrmmonthTest, RunReportSetsEachMonthAndOpensTheTanksInFrontOfIt) {
  session_.MonthSelected.fill(true);
  TickMonth(session_, form_, 0, true);
  TickMonth(session_, form_, 7, true);
  const std::array<bool, 12> january_and_august = {true,  false, false, false, false, false,
                                                   false, true,  false, false, false, false};
  test_.host.WhenShown("Frmtankrep", [&] {
    EXPECT_EQ(session_.MonthSelected, january_and_august);
    EXPECT_FALSE(form_.window.closed);
  });
  ClickRunReport(session_, form_);
  EXPECT_EQ(test_.host.windows, Names{"Frmtankrep"});
  EXPECT_FALSE(form_.window.closed);
}

TEST_F(FrmmonthTest, CloseLeavesTheChosenMonthsAsTheyWere) {
  session_.MonthSelected[2] = true;
  const auto before = session_.MonthSelected;
  ClickAll(session_, form_);
  ClickClose(session_, form_);
  EXPECT_TRUE(form_.window.closed);
  EXPECT_EQ(session_.MonthSelected, before);
  EXPECT_TRUE(test_.host.windows.empty());
}

TEST_F(FrmmonthTest, HelpShowsItsTopic) {
  ClickHelp(session_, form_);
  EXPECT_EQ(test_.host.help, Names{"choose_months"});
}

TEST_F(FrmmonthTest, AFailureIsReportedUnderTheWindowsName) {
  test_.host.WhenShown("Frmtankrep",
                       [] { throw store::RunTimeError(store::ErrorNumber::kDiskFailure, "The disk is gone."); });
  test_.host.ExpectMessage("The following Error occurred:\r\n\r\nThe disk is gone.\r\nNumber: 3043\r\n in frmMonth.",
                           "ORVEX", shell::Buttons::kOk, shell::Icon::kNone);
  ClickRunReport(session_, form_);
  EXPECT_EQ(test_.host.pointers.back(), shell::Pointer::kDefault);
  EXPECT_EQ(test_.host.status.back(), "Ready");
}

}  // namespace
}  // namespace orvex::reports
