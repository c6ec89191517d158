#include "reports/brief_report.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>

#include "support/file_content.h"
#include "support/sample_tanks.h"
#include "support/test_databases.h"

namespace orvex::reports {
namespace {

using store::Value;

constexpr std::string_view kVertical = "Vertical Fixed Roof Tank";
constexpr std::string_view kExternal = "External Floating Roof Tank";
constexpr std::string_view kAnnualHead =
    "<?xml version=\"1.0\"?><REPORT>\r\n"
    "<TYPE>Brief</TYPE>\r\n"
    "<TimePeriod><Value>Annual</Value>\r\n</TimePeriod>\r\n";

class BriefReportTest : public testing::Test {
 protected:
  BriefReportTest() { test_.session.ReportTime = "Annual"; }

  /// Adds a row of `emission` for an all-year mixture or component of a tank in Springfield, OH.
  void AddEmission(std::int32_t ID, std::string_view user_id, std::string_view type, bool primary,
                   std::string_view name, test::FieldValues losses, std::string_view month = "Annual",
                   std::int32_t mix_id = 1) {
    auto rows = test_.client().OpenTable("emission");
    rows.AddNew();
    rows.Set("ID", ID);
    rows.Set("MIX ID", mix_id);
    rows.Set("USER ID", user_id);
    rows.Set("TANK_TYPE", type);
    rows.Set("PRIMARY", primary);
    rows.Set("NAME", name);
    rows.Set("MONTH", month);
    rows.Set("CITY", "Springfield");
    rows.Set("STATE", "OH");
    rows.Set("COMPANY", "Acme");
    for (const auto& [field, value] : losses) rows.Set(field, value);
    rows.Update();
  }

  void Change(std::int32_t ID, std::string_view field, const Value& value) {
    test::ChangeRow(test_.client(), "emission", "COMPID", {ID}, {{field, value}});
  }

  /// The saved file of a report on these tanks.
  std::string Report(std::initializer_list<std::string> tanks) {
    test_.session.TankList = tanks;
    BriefReport(test_.session);
    return test::FileContent(test_.folder.Path() / "briefdata.xml");
  }

  test::TestSession test_;
};

TEST_F(BriefReportTest, WritesAFixedRoofTankWithItsComponentsIndented) {
  // 12.344 + 0.004 is 12.348: the total is made of the unrounded losses, not of 12.34 and 0.00.
  AddEmission(1, " T-1 ", kVertical, false, "Benzene", {{"S_LOSS", 0.004}, {"W_LOSS", 12.344}});
  AddEmission(1, " T-1 ", kVertical, true, "Gasoline", {{"S_LOSS", 234.5}, {"W_LOSS", 1000.0}});
  test::AddMixture(test_.client(), 1, 1);
  EXPECT_EQ(Report({" T-1 "}), std::string(kAnnualHead) +
                                   "<Tank><TankName>T-1   -   Vertical Fixed Roof Tank</TankName>\r\n"
                                   "<TankType>Vertical Fixed Roof Tank</TankType>\r\n"
                                   "<COMPONENT Type=\"Vertical Fixed Roof Tank\"><NAME>Gasoline</NAME>\r\n"
                                   "<WorkingLoss>1,000.00</WorkingLoss>\r\n"
                                   "<BreathingLoss>234.50</BreathingLoss>\r\n"
                                   "<TotalEmissions>1,234.50</TotalEmissions>\r\n"
                                   "</COMPONENT>\r\n"
                                   "<COMPONENT Type=\"Vertical Fixed Roof Tank\"><NAME>"
                                   "\u00A0\u00A0\u00A0\u00A0\u00A0\u00A0Benzene</NAME>\r\n"
                                   "<WorkingLoss>12.34</WorkingLoss>\r\n"
                                   "<BreathingLoss>0.00</BreathingLoss>\r\n"
                                   "<TotalEmissions>12.35</TotalEmissions>\r\n"
                                   "</COMPONENT>\r\n"
                                   "</Tank>\r\n"
                                   "</REPORT>");
}

TEST_F(BriefReportTest, WritesAFloatingRoofTankWithItsFourLosses) {
  AddEmission(1, "E", kExternal, true, "Crude",
              {{"RIM_LOSS", 1.0}, {"WD_LOSS", 2.0}, {"DECKF_LOSS", 3.0}, {"DECKS_LOSS", 4.0}, {"W_LOSS", 50.0}});
  test::AddMixture(test_.client(), 1, 1);
  EXPECT_EQ(Report({"E"}), std::string(kAnnualHead) +
                               "<Tank><TankName>E   -   External Floating Roof Tank</TankName>\r\n"
                               "<TankType>External Floating Roof Tank</TankType>\r\n"
                               "<COMPONENT Type=\"External Floating Roof Tank\"><NAME>Crude</NAME>\r\n"
                               "<RimSealLoss>1.00</RimSealLoss>\r\n"
                               "<WithdrawlLoss>2.00</WithdrawlLoss>\r\n"
                               "<DeckFittingLoss>3.00</DeckFittingLoss>\r\n"
                               "<DeckSeamLoss>4.00</DeckSeamLoss>\r\n"
                               "<TotalEmissions>10.00</TotalEmissions>\r\n"
                               "</COMPONENT>\r\n"
                               "</Tank>\r\n"
                               "</REPORT>");
}

TEST_F(BriefReportTest, TwoTanksAreRolledUpAfterTheLastOne) {
  AddEmission(1, "V", kVertical, true, "Benzene", {{"S_LOSS", 1000.0}, {"W_LOSS", 0.25}});
  AddEmission(1, "V", kVertical, false, "Benzene", {{"S_LOSS", 500.0}, {"W_LOSS", 500.0}});
  AddEmission(2, "E", kExternal, true, "Crude",
              {{"RIM_LOSS", 1.0}, {"WD_LOSS", 2.0}, {"DECKF_LOSS", 3.0}, {"DECKS_LOSS", 4.0}});
  // 1000.25 + 10 = 1010.25: the component row is not counted beside its mixture.
  const auto report = Report({"E", "V"});
  const auto summary = report.find("<Summary");
  ASSERT_NE(summary, std::string::npos);
  EXPECT_EQ(report.substr(summary),
            "<Summary months=\"Annual\">"
            "<TankSum id=\"E\" company=\"Acme\" type=\"External Floating Roof Tank\" location=\"Springfield, OH\" "
            "loss=\"10.00\"/>\r\n"
            "<TankSum id=\"V\" company=\"Acme\" type=\"Vertical Fixed Roof Tank\" location=\"Springfield, OH\" "
            "loss=\"1,000.25\"/>\r\n"
            "<Total>1,010.25</Total>\r\n"
            "</Summary>\r\n"
            "</REPORT>");
  EXPECT_LT(report.find("<TankName>E "), report.find("<TankName>V "));
  EXPECT_LT(report.find("<TankName>V "), summary);
}

TEST_F(BriefReportTest, OneTankHasNoSummaryAndNoTotal) {
  AddEmission(1, "V", kVertical, true, "Benzene", {{"S_LOSS", 1.0}});
  const auto report = Report({"V"});
  EXPECT_EQ(report.find("Summary"), std::string::npos);
  EXPECT_EQ(report.find("<Total>"), std::string::npos);
}

TEST_F(BriefReportTest, TwoMonthsHaveTwoPeriodsAndOneLineWithTheSumOfAllStoredMonths) {
  AddEmission(1, "V", kVertical, true, "Benzene", {{"S_LOSS", 1.5}, {"W_LOSS", 10.0}}, "January");
  AddEmission(1, "V", kVertical, true, "Benzene", {{"S_LOSS", 2.25}, {"W_LOSS", 20.0}}, "March");
  test::AddMixture(test_.client(), 1, 1);
  test_.session.ReportTime = "Monthly";
  test_.session.MonthSelected[0] = test_.session.MonthSelected[2] = true;
  EXPECT_EQ(Report({"V"}),
            "<?xml version=\"1.0\"?><REPORT>\r\n"
            "<TYPE>Brief</TYPE>\r\n"
            "<TimePeriod><Value>January</Value>\r\n</TimePeriod>\r\n"
            "<TimePeriod><Value>March</Value>\r\n</TimePeriod>\r\n"
            "<Tank><TankName>V   -   Vertical Fixed Roof Tank</TankName>\r\n"
            "<TankType>Vertical Fixed Roof Tank</TankType>\r\n"
            "<COMPONENT Type=\"Vertical Fixed Roof Tank\"><NAME>Benzene</NAME>\r\n"
            "<WorkingLoss>30.00</WorkingLoss>\r\n"
            "<BreathingLoss>3.75</BreathingLoss>\r\n"
            "<TotalEmissions>33.75</TotalEmissions>\r\n"
            "</COMPONENT>\r\n"
            "</Tank>\r\n"
            "</REPORT>");
}

TEST_F(BriefReportTest, SummaryOfAMonthlyReportNamesItsMonths) {
  AddEmission(1, "A", kVertical, true, "Benzene", {{"S_LOSS", 1.0}}, "January");
  AddEmission(2, "B", kVertical, true, "Benzene", {{"S_LOSS", 2.0}}, "January");
  test_.session.ReportTime = "Monthly";
  test_.session.MonthSelected[0] = test_.session.MonthSelected[11] = true;
  EXPECT_NE(Report({"A", "B"}).find("<Summary months=\"January, December\">"), std::string::npos);
}

TEST_F(BriefReportTest, EveryMonthTickedDiffersFromAnnualInItsPeriods) {
  AddEmission(1, "V", kVertical, true, "Benzene", {{"S_LOSS", 1.0}});
  test::AddMixture(test_.client(), 1, 1);
  const auto annual = Report({"V"});
  test_.session.ReportTime = "Monthly";
  test_.session.MonthSelected.fill(true);
  const auto monthly = Report({"V"});
  const auto periods = [](const std::string& report) {
    return report.substr(0, report.find("<Tank>")).substr(report.find("<TimePeriod>"));
  };
  EXPECT_EQ(periods(annual), "<TimePeriod><Value>Annual</Value>\r\n</TimePeriod>\r\n");
  EXPECT_TRUE(periods(monthly).starts_with("<TimePeriod><Value>January</Value>\r\n</TimePeriod>\r\n"));
  EXPECT_TRUE(periods(monthly).ends_with("<TimePeriod><Value>December</Value>\r\n</TimePeriod>\r\n"));
  EXPECT_EQ(annual.substr(annual.find("<Tank>")), monthly.substr(monthly.find("<Tank>")));
}

TEST_F(BriefReportTest, AnAnnualReportOnTwoMixturesSumsTheirMonths) {
  for (const std::int32_t mix_id : {1, 2}) {
    test::AddMixture(test_.client(), 1, mix_id);
    AddEmission(1, "V", kVertical, true, "Mix", {{"W_LOSS", 10.0 * mix_id}}, "January", mix_id);
    AddEmission(1, "V", kVertical, true, "Mix", {{"W_LOSS", 1.0 * mix_id}}, "February", mix_id);
    AddEmission(1, "V", kVertical, false, "Part", {{"W_LOSS", 0.5 * mix_id}}, "January", mix_id);
  }
  // Mixture 1: 10 + 1; its component 0.5. Mixture 2: 20 + 2; its component 1. The period still is the year.
  const auto report = Report({"V"});
  EXPECT_TRUE(report.starts_with(kAnnualHead));
  std::string losses;
  for (auto at = report.find("<NAME>"); at != std::string::npos; at = report.find("<NAME>", at + 1)) {
    losses += report.substr(at, report.find("<BreathingLoss>", at) - at);
  }
  const std::string indent = "\u00A0\u00A0\u00A0\u00A0\u00A0\u00A0";
  EXPECT_EQ(losses, "<NAME>Mix</NAME>\r\n<WorkingLoss>11.00</WorkingLoss>\r\n<NAME>" + indent +
                        "Part</NAME>\r\n<WorkingLoss>0.50</WorkingLoss>\r\n"
                        "<NAME>Mix</NAME>\r\n<WorkingLoss>22.00</WorkingLoss>\r\n<NAME>" +
                        indent + "Part</NAME>\r\n<WorkingLoss>1.00</WorkingLoss>\r\n");
}

TEST_F(BriefReportTest, ALocationWithoutCityIsTheState) {
  AddEmission(1, "A", kVertical, true, "Benzene", {});
  AddEmission(2, "B", kVertical, true, "Benzene", {});
  Change(1, "CITY", Value());
  Change(2, "STATE", Value());
  const auto report = Report({"A", "B"});
  EXPECT_NE(report.find("location=\"OH\""), std::string::npos) << report;
  EXPECT_NE(report.find("location=\"Springfield, \""), std::string::npos) << report;
}

TEST_F(BriefReportTest, AMixtureWithoutSpeciationHasOneLine) {
  AddEmission(1, "V", kVertical, true, "Benzene", {{"S_LOSS", 1.0}});
  const auto report = Report({"V"});
  EXPECT_EQ(report.find("<COMPONENT"), report.rfind("<COMPONENT"));
  EXPECT_NE(report.find("<COMPONENT"), std::string::npos);
}

TEST_F(BriefReportTest, ATankWithoutEmissionRowsIsPassedOver) {
  AddEmission(2, "B", kVertical, true, "Benzene", {{"S_LOSS", 2.0}});
  const auto report = Report({"A", "B"});
  EXPECT_EQ(report.find("<Tank>"), report.rfind("<Tank>"));
  EXPECT_NE(report.find("<Total>2.00</Total>"), std::string::npos) << report;
}

TEST_F(BriefReportTest, AnEmptyEmissionTableGivesTheSkeleton) {
  EXPECT_EQ(Report({"A"}), std::string(kAnnualHead) + "</REPORT>");
  EXPECT_EQ(Report({"A", "B"}),
            std::string(kAnnualHead) + "<Summary months=\"Annual\"><Total>0.00</Total>\r\n</Summary>\r\n</REPORT>");
}

TEST_F(BriefReportTest, NullLossesCountAsZero) {
  AddEmission(1, "V", kVertical, true, "Benzene", {});
  const auto report = Report({"V"});
  EXPECT_NE(report.find("<TotalEmissions>0.00</TotalEmissions>"), std::string::npos);
}

TEST_F(BriefReportTest, FindsATankWithoutRegardToCaseButRollsItUpByItsExactName) {
  AddEmission(1, "tank a", kVertical, true, "Benzene", {{"S_LOSS", 1.0}});
  AddEmission(2, "B", kVertical, true, "Benzene", {{"S_LOSS", 2.0}});
  const auto report = Report({"TANK A", "B"});
  EXPECT_NE(report.find("<TankName>tank a "), std::string::npos);
  EXPECT_EQ(report.find("id=\"tank a\""), std::string::npos);
  EXPECT_NE(report.find("<Total>2.00</Total>"), std::string::npos);
}

TEST_F(BriefReportTest, ATypeThatIsNeitherFixedNorFloatingShowsFloatingLossesAndAddsNothing) {
  AddEmission(1, "X", "Sphere", true, "Benzene", {{"RIM_LOSS", 5.0}, {"W_LOSS", 7.0}});
  AddEmission(2, "B", kVertical, true, "Benzene", {{"S_LOSS", 2.0}});
  const auto report = Report({"X", "B"});
  EXPECT_NE(report.find("<COMPONENT Type=\"Sphere\"><NAME>Benzene</NAME>\r\n<RimSealLoss>5.00</RimSealLoss>"),
            std::string::npos);
  EXPECT_NE(report.find("type=\"Sphere\" location=\"Springfield, OH\" loss=\"0.00\"/>"), std::string::npos);
  EXPECT_NE(report.find("<Total>2.00</Total>"), std::string::npos);
}

TEST_F(BriefReportTest, NamesAreData) {
  AddEmission(1, "<T> & \"1\"", kVertical, true, "A & B\r\n<c>", {});
  const auto report = Report({"<T> & \"1\"", "x"});
  EXPECT_NE(report.find("<TankName>&lt;T&gt; &amp; &quot;1&quot;   -   "), std::string::npos) << report;
  EXPECT_NE(report.find("<NAME>A &amp; B&#13;&#10;&lt;c&gt;</NAME>"), std::string::npos) << report;
  EXPECT_NE(report.find("<TankSum id=\"&lt;T&gt; &amp; &quot;1&quot;\""), std::string::npos) << report;
}

TEST_F(BriefReportTest, ASecondReportOverwritesTheFileAndOpensAnotherBrowser) {
  AddEmission(1, "A", kVertical, true, "Benzene", {});
  AddEmission(2, "Second", kVertical, true, "Benzene", {});
  Report({"A", "Second"});
  const auto second = Report({"Second"});
  EXPECT_EQ(second.find("<TankName>A"), std::string::npos);
  EXPECT_TRUE(second.ends_with("</REPORT>"));
  const auto page = (test_.folder.Path() / "briefdisplay.htm").string();
  EXPECT_EQ(test_.host.pages, (std::vector{page, page}));
}

TEST_F(BriefReportTest, ShowsThatItIsBusyAndThatItIsDone) {
  Report({"A"});
  EXPECT_EQ(test_.host.status, (std::vector<std::string>{"Processing report, please wait...", "Ready"}));
  EXPECT_EQ(test_.host.pointers, (std::vector{shell::Pointer::kBusy, shell::Pointer::kDefault}));
}

TEST_F(BriefReportTest, AFolderThatIsMissingIsReportedAndNoBrowserOpened) {
  test_.session.application_folder = test_.folder.Path() / "missing";
  test_.host.ExpectError(3044, "frmPreview.BriefReport");
  Report({"A"});
  EXPECT_TRUE(test_.host.pages.empty());
  EXPECT_EQ(test_.host.pointers.back(), shell::Pointer::kDefault);
  EXPECT_EQ(test_.host.status.back(), "Ready");
}

}  // namespace
}  // namespace orvex::reports
