#include "emission/run_report.h"

#include "emission/run_report_fixture.h"

namespace orvex::emission {
namespace {

using Lines = std::vector<std::string>;

/// Gives a tank two mixtures of benzene: one stored in the first half of the year, one in the second.
void SplitTheYear(store::Database& client, std::int32_t ID) {
  AddMixture(client, ID, 2);
  for (std::size_t i = 0; i < shell::kMonths.size(); ++i) {
    const auto& month = shell::kMonths[i];
    const bool first_half = i < 6;
    ChangeMixture(client, ID, 1, {{month.name, first_half}, {month.throughput, first_half ? 35000.0 : 0.0}});
    ChangeMixture(client, ID, 2, {{month.name, !first_half}, {month.throughput, first_half ? 0.0 : 35000.0}});
  }
}

// Basis of a tank ----------------------------------------------------------------------------------------------------

TEST_F(RunReportTest, YearOfOneAllYearMixtureIsOneRow) {
  AddVerticalTank(test);
  Run({"Tank 1"});
  EXPECT_EQ(Rows(), Lines{"1 1 Annual Benzene"});
  EXPECT_EQ(test.session.PrintMode, "Report");
}

TEST_F(RunReportTest, YearOfTwoMixturesIsTheMonthsThatEachOfThemHas) {
  const auto ID = AddVerticalTank(test);
  SplitTheYear(client, ID);
  Run({"Tank 1"});
  EXPECT_EQ(Rows(),
            (Lines{"1 1 January Benzene", "1 1 February Benzene", "1 1 March Benzene", "1 1 April Benzene",
                   "1 1 May Benzene", "1 1 June Benzene", "1 2 July Benzene", "1 2 August Benzene",
                   "1 2 September Benzene", "1 2 October Benzene", "1 2 November Benzene", "1 2 December Benzene"}));
}

TEST_F(RunReportTest, YearOfTwoAllYearMixturesIsTwelveMonthsOfBoth) {
  const auto ID = AddVerticalTank(test);
  AddMixture(client, ID, 2, {{"MIX NAME", "Toluene"}});
  Run({"Tank 1"});
  const Lines rows = Rows();
  ASSERT_EQ(rows.size(), 24U);
  // The months go round outside, the mixtures inside.
  EXPECT_EQ(Lines(rows.begin(), rows.begin() + 3),
            (Lines{"1 1 January Benzene", "1 2 January Toluene", "1 1 February Benzene"}));
}

TEST_F(RunReportTest, YearOfAMixtureOfElevenMonthsIsTheirRows) {
  const auto ID = AddVerticalTank(test);
  ChangeMixture(client, ID, 1, {{"AUGUST", false}});
  Run({"Tank 1"});
  Lines expected;
  for (const auto& month : shell::kMonths)
    if (month.name != "August") expected.push_back("1 1 " + std::string(month.name) + " Benzene");
  EXPECT_EQ(Rows(), expected);
}

TEST_F(RunReportTest, YearOfAnotherTankDoesNotFollowTheMonthsOfTheFirst) {
  const auto ID = AddVerticalTank(test);
  ChangeMixture(client, ID, 1, {{"AUGUST", false}});
  AddHorizontalTank(test);
  Run({"Tank 1", "Tank 2"});
  EXPECT_EQ(Rows().size(), 12U);
  EXPECT_EQ(Rows().back(), "2 1 Annual Benzene");
}

TEST_F(RunReportTest, ChosenMonthsAreThoseOfTheRows) {
  AddVerticalTank(test);
  ChooseMonths({11, 2});
  Run({"Tank 1"});
  EXPECT_EQ(Rows(), (Lines{"1 1 March Benzene", "1 1 December Benzene"}));
}

TEST_F(RunReportTest, MonthsWithoutAnyChosenDropTheOldRowsAndWriteNone) {
  const auto ID = AddVerticalTank(test);
  AddOldRow(ID, "March");
  ChooseMonths({});
  Run({"Tank 1"});
  EXPECT_EQ(Rows(), Lines{});
  EXPECT_EQ(test.session.PrintMode, "Report");
  EXPECT_EQ(test.session.ReportMonthText, "");
}

TEST_F(RunReportTest, EveryTypeHasTheLossesOfItsFamily) {
  const auto vertical = AddVerticalTank(test), horizontal = AddHorizontalTank(test), internal = AddInternalTank(test),
             external = AddExternalTank(test), domed = AddDomedTank(test);
  Run({"Tank 1", "Tank 2", "Tank 3", "Tank 4", "Tank 5"});
  for (const auto ID : {vertical, horizontal}) {
    EXPECT_GT(Number(ID, "W_LOSS"), 0);
    EXPECT_EQ(Number(ID, "RIM_LOSS"), 0);
  }
  for (const auto ID : {internal, external, domed}) {
    EXPECT_GT(Number(ID, "RIM_LOSS"), 0);
    EXPECT_EQ(Number(ID, "W_LOSS"), 0);
  }
}

TEST_F(RunReportTest, PropertiesAreRefreshedAndComponentsSplitOff) {
  const auto ID = AddVerticalTank(test);
  ChangeMixture(client, ID, 1,
                {{"MIX NAME", "Cut"}, {"COMPONENT", shell::kMultiple}, {"SPEC_OPT", shell::kFullSpeciation}});
  AddComponent(client, ID, 1, 1, {{"WT_FRACT", 100.0}, {"CAS", kNull}});
  Run({"Tank 1"});
  EXPECT_EQ(Rows(), (Lines{"1 1 Annual Cut", "- 1 1 Annual Benzene"}));
  ExpectClose(client.OpenMatching("mixtures", "IDMIX", {ID}).Double("VP"), 1.07071851847, "VP");
}

// What stays and what goes -------------------------------------------------------------------------------------------

TEST_F(RunReportTest, RowsOfOtherTanksStay) {
  const auto chosen = AddVerticalTank(test);
  const auto other = AddHorizontalTank(test);
  AddOldRow(other, "May");
  AddOldRow(chosen, "May");
  Run({"Tank 1"});
  EXPECT_EQ(Rows(), (Lines{"2 1 May Old", "1 1 Annual Benzene"}));
}

TEST_F(RunReportTest, ErrorsOfAllTanksAreDropped) {
  AddVerticalTank(test);
  AddRow(client, "error", {{"ID", 1}, {"USER ID", "Tank 1"}, {"error", "Old."}});
  AddRow(client, "error", {{"ID", 99}, {"USER ID", "Sold"}, {"error", "Old."}});
  Run({"Tank 1"});
  EXPECT_EQ(Errors(), Lines{});
}

TEST_F(RunReportTest, SecondRunOnTheSameFileGivesTheSameRows) {
  for (const auto add : {AddVerticalTank, AddHorizontalTank, AddInternalTank, AddExternalTank, AddDomedTank})
    add(test, {});
  SplitTheYear(client, 1);
  ChangeTank(client, 1, {{"Q_NET", 420000.0}});
  Run({"Tank 1", "Tank 2", "Tank 3", "Tank 4", "Tank 5"});
  EXPECT_EQ(Errors(), Lines{});
  EXPECT_EQ(RowCount(), 16);
  const auto first = Content("emission");
  Run({"Tank 1", "Tank 2", "Tank 3", "Tank 4", "Tank 5"});
  EXPECT_EQ(Content("emission"), first);
}

// Faults of the data -------------------------------------------------------------------------------------------------

TEST_F(RunReportTest, FaultOfTheLastTankStopsTheRunBeforeAnyRowIsTouched) {
  const auto ID = AddVerticalTank(test);
  AddVerticalTank(test, {{"RF_TYPE", ""}});
  AddOldRow(ID, "May");
  test.session.ReportFilter = "as before";
  test.session.ReportMonthText = "May";
  Run({"Tank 1", "Tank 2"});
  EXPECT_EQ(test.session.PrintMode, "Error");
  EXPECT_TRUE(test.session.ValidationFailed);
  EXPECT_EQ(Errors(), Lines{"2|Tank 2|Roof type must be specified."});
  EXPECT_EQ(Rows(), Lines{"1 1 May Old"});
  EXPECT_EQ(test.session.ReportFilter, "as before");
  EXPECT_EQ(test.session.ReportMonthText, "");
  EXPECT_EQ(test.host.windows, Lines{"frmprintrep"});
}

TEST_F(RunReportTest, FaultOfTheFirstOfTwoTanksIsListedButDoesNotStopTheRun) {
  AddVerticalTank(test, {{"HEIGHT AL", 19.0}});
  AddVerticalTank(test);
  Run({"Tank 1", "Tank 2"});
  EXPECT_EQ(test.session.PrintMode, "Report");
  EXPECT_FALSE(test.session.ValidationFailed);
  EXPECT_EQ(Errors(), Lines{"1|Tank 1|Average liquid height cannot exceed maximum liquid height."});
  EXPECT_EQ(Rows(), (Lines{"1 1 Annual Benzene", "2 1 Annual Benzene"}));
  EXPECT_EQ(test.host.windows, Lines{"frmprintrep"});
}

TEST_F(RunReportTest, FaultsOfSeveralTanksAreListedTogether) {
  AddVerticalTank(test, {{"RF_TYPE", ""}});
  AddVerticalTank(test);
  AddVerticalTank(test, {{"RF_TYPE", ""}});
  Run({"Tank 1", "Tank 2", "Tank 3"});
  EXPECT_EQ(Errors(), (Lines{"1|Tank 1|Roof type must be specified.", "3|Tank 3|Roof type must be specified."}));
}

TEST_F(RunReportTest, FaultOfAnEarlierRunIsForgotten) {
  const auto ID = AddVerticalTank(test, {{"RF_TYPE", ""}});
  Run({"Tank 1"});
  ChangeTank(client, ID, {{"RF_TYPE", "Cone"}});
  Run({"Tank 1"});
  EXPECT_EQ(test.session.PrintMode, "Report");
  EXPECT_EQ(Rows(), Lines{"1 1 Annual Benzene"});
}

TEST_F(RunReportTest, LiquidThatBoilsInTheSecondOfThreeTanksEndsThatTankAloneButShowsTheErrors) {
  AddBoilingChemical();
  AddVerticalTank(test);
  const auto second = AddVerticalTank(test);
  AddMixture(client, second, 2, {{"MIX NAME", "Propane"}});
  const auto third = AddVerticalTank(test);
  ChangeMixture(client, third, 1,
                {{"MIX NAME", "Cut"}, {"COMPONENT", shell::kMultiple}, {"SPEC_OPT", shell::kFullSpeciation}});
  AddComponent(client, third, 1, 1, {{"WT_FRACT", 100.0}});
  AddOldRow(second, "May");
  Run({"Tank 1", "Tank 2", "Tank 3"});
  EXPECT_EQ(test.session.PrintMode, "Error");
  EXPECT_EQ(Errors(), Lines{"2|Tank 2|Vapor pressure(s) for Propane exceed atmospheric pressure."});
  // The flag stays up, so the third tank ends behind its first loss, without its components.
  EXPECT_EQ(Rows(), (Lines{"1 1 Annual Benzene", "2 1 January Benzene", "3 1 Annual Cut"}));
  EXPECT_EQ(test.host.windows, Lines{"frmprintrep"});
}

TEST_F(RunReportTest, TankThatIsGoneLeavesTheRunAtTheTankBefore) {
  AddVerticalTank(test);
  AddHorizontalTank(test);
  Run({"Tank 1", "Sold", "Tank 2"});
  EXPECT_EQ(Errors(), Lines{});
  EXPECT_EQ(Rows(), (Lines{"1 1 Annual Benzene", "2 1 Annual Benzene"}));
  EXPECT_EQ(test.session.ReportFilter, "(emission.[ID] = 1) or (emission.[ID] = 1) or (emission.[ID] = 2)");
}

// What the report is told --------------------------------------------------------------------------------------------

TEST_F(RunReportTest, FilterPicksTheTanksInTheirOrder) {
  AddVerticalTank(test);
  AddHorizontalTank(test);
  Run({"Tank 2"});
  EXPECT_EQ(test.session.ReportFilter, "(emission.[ID] = 2)");
  Run({"Tank 2", "Tank 1"});
  EXPECT_EQ(test.session.ReportFilter, "(emission.[ID] = 2) or (emission.[ID] = 1)");
}

TEST_F(RunReportTest, MonthTextNamesTheChosenMonths) {
  AddVerticalTank(test);
  ChooseMonths({4});
  Run({"Tank 1"});
  EXPECT_EQ(test.session.ReportMonthText, "May");
  ChooseMonths({0, 4, 11});
  Run({"Tank 1"});
  EXPECT_EQ(test.session.ReportMonthText, "January , May , December");
  test.session.ReportTime = "Annual";
  test.session.MonthSelected = {};
  Run({"Tank 1"});
  EXPECT_EQ(test.session.ReportMonthText, "");
}

TEST_F(RunReportTest, EmptyListOfTanksGivesAnEmptyReport) {
  Run({});
  EXPECT_EQ(test.session.PrintMode, "Report");
  EXPECT_EQ(test.session.ReportFilter, "");
}

}  // namespace
}  // namespace orvex::emission
