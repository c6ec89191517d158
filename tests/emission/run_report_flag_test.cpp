#include "emission/run_report_fixture.h"

namespace orvex::emission {
namespace {

using Lines = std::vector<std::string>;

class RunReportFlag : public RunReportTest {};

TEST_F(RunReportFlag, FaultOfAnEarlierRunStaysUpUntilATankIsChecked) {
  AddVerticalTank(test);
  test.session.ValidationFailed = true;
  Run({});
  EXPECT_EQ(test.session.PrintMode, "Error");
  Run({"Tank 1"});
  EXPECT_EQ(test.session.PrintMode, "Report");
  EXPECT_FALSE(test.session.ValidationFailed);
}

TEST_F(RunReportFlag, BoilingLiquidOfAnEarlierRunIsForgottenWhenItIsMended) {
  AddBoilingChemical();
  const auto ID = AddVerticalTank(test);
  ChangeMixture(client, ID, 1, {{"MIX NAME", "Propane"}});
  Run({"Tank 1"});
  EXPECT_TRUE(test.session.ValidationFailed);
  // The checks go by the stored pressures, which the run had refreshed.
  ChangeMixture(client, ID, 1, {{"MIX NAME", "Benzene"}, {"VP", 1.0}, {"VP_MIN", 0.9}, {"VP_MAX", 1.2}});
  Run({"Tank 1"});
  EXPECT_EQ(test.session.PrintMode, "Report");
  EXPECT_EQ(Errors(), Lines{});
  EXPECT_EQ(Rows(), Lines{"1 1 Annual Benzene"});
}

TEST_F(RunReportFlag, ErrorsAreShownWithTheReportSelectionAsItWas) {
  AddBoilingChemical();
  const auto ID = AddVerticalTank(test);
  ChangeMixture(client, ID, 1, {{"MIX NAME", "Propane"}});
  test.session.ReportFilter = "as before";
  test.session.ReportMonthText = "May";
  Run({"Tank 1"});
  EXPECT_EQ(test.session.PrintMode, "Error");
  EXPECT_EQ(test.session.ReportFilter, "as before");
  EXPECT_EQ(test.session.ReportMonthText, "");
}

// Months and types ---------------------------------------------------------------------------------------------------

TEST_F(RunReportFlag, TankComputedByMonthsNamesNoneOfThemInTheTextOfAYear) {
  const auto ID = AddVerticalTank(test);
  ChangeMixture(client, ID, 1, {{"AUGUST", false}});
  Run({"Tank 1"});
  EXPECT_EQ(Rows().size(), 11U);
  EXPECT_EQ(test.session.ReportMonthText, "");
}

TEST_F(RunReportFlag, MonthsOfAMonthlyRunAreTheChosenOnesForATankOfSeveralMixturesToo) {
  const auto ID = AddVerticalTank(test);
  AddMixture(client, ID, 2, {{"MIX NAME", "Toluene"}});
  ChangeMixture(client, ID, 2, {{"MAY", false}});
  ChooseMonths({4, 5});
  Run({"Tank 1"});
  EXPECT_EQ(Rows(), (Lines{"1 1 May Benzene", "1 1 June Benzene", "1 2 June Toluene"}));
}

TEST_F(RunReportFlag, TankOfUnknownTypeHasAFloatingRoof) {
  const auto ID = AddExternalTank(test, {{"TANK_TYPE", "Sphere"}});
  Run({"Tank 1"});
  EXPECT_EQ(Rows(), Lines{"1 1 Annual Benzene"});
  EXPECT_GT(Number(ID, "RIM_LOSS"), 0);
  EXPECT_EQ(Number(ID, "S_LOSS"), 0);
}

TEST_F(RunReportFlag, TankIsFoundWithoutRegardToCase) {
  AddVerticalTank(test, {{"USER ID", "North 7"}});
  AddVerticalTank(test);
  Run({"NORTH 7"});
  EXPECT_EQ(Rows(), Lines{"1 1 Annual Benzene"});
}

}  // namespace
}  // namespace orvex::emission
