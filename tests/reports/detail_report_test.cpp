#include "reports/detail_report.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <algorithm>
#include <cmath>

#include "reports/detail_fixture.h"
#include "reports/random_reports.h"
#include "shell/tank_types.h"
#include "store/number_text.h"
#include "support/file_content.h"
#include "support/random_tanks.h"

namespace orvex::reports {
namespace {

using store::Value;
using test::Strings;

class DetailReportTest : public test::DetailPages {
 protected:
  std::int32_t AddTank(std::string_view user_id) {
    const auto ID = test::AddVerticalTank(test_, {{"USER ID", user_id}, {"CITY", "Enid"}, {"STATE", "Oklahoma"}});
    AddEmission(ID, shell::kVerticalFixedRoof, {{"USER ID", user_id}, {"S_LOSS", 1.5}});
    return ID;
  }
  /// The element `REPORT` of the saved file.
  pugi::xml_node Report(std::initializer_list<std::string> tanks) {
    test_.session.TankList = tanks;
    DetailReport(test_.session);
    document_.load_file((test_.folder.Path() / "summarydata.xml").c_str());
    return document_.child("REPORT");
  }
  /// Names of the elements under a node, one a kind.
  static Strings Names(pugi::xml_node node) {
    Strings names;
    for (const auto& child : node.children())
      if (child.type() == pugi::node_element && (names.empty() || names.back() != child.name()))
        names.emplace_back(child.name());
    return names;
  }
};

TEST_F(DetailReportTest, BeginsAsAllReportsDo) {
  AddTank("V");
  Report({"V"});
  const auto file = test::FileContent(test_.folder.Path() / "summarydata.xml");
  EXPECT_TRUE(
      file.starts_with("<?xml version=\"1.0\"?><REPORT>\r\n<TYPE>Detail</TYPE>\r\n"
                       "<Tank><TimePeriod>Annual</TimePeriod>\r\n<Location>Enid, Oklahoma</Location>\r\n"
                       "<TankName>V   -   Vertical Fixed Roof Tank</TankName>\r\n"))
      << file.substr(0, 200);
  EXPECT_TRUE(file.ends_with("</EmissionTotals>\r\n</Tank>\r\n</REPORT>"));
}

TEST_F(DetailReportTest, ASummaryLeavesOutTheCalculationPage) {
  AddTank("V");
  const auto detail = Names(Report({"V"}).child("Tank"));
  EXPECT_EQ(detail, (Strings{"TimePeriod", "Location", "TankName", "TankType", "PhysicalChar", "LiquidContents",
                             "Detail", "EmissionTotals"}));
  test_.session.ReportType = "Summary";
  const auto report = Report({"V"});
  EXPECT_STREQ(report.child_value("TYPE"), "Summary");
  EXPECT_EQ(Names(report.child("Tank")), (Strings{"TimePeriod", "Location", "TankName", "TankType", "PhysicalChar",
                                                  "LiquidContents", "EmissionTotals"}));
}

TEST_F(DetailReportTest, OneTankHasNoSummary) {
  AddTank("V");
  EXPECT_EQ(Names(Report({"V"})), (Strings{"TYPE", "Tank"}));
}

TEST_F(DetailReportTest, TwoTanksHaveOneSummaryAfterTheLast) {
  AddTank("A");
  AddTank("B");
  const auto report = Report({"B", "A"});
  EXPECT_EQ(Names(report), (Strings{"TYPE", "Tank", "Summary"}));
  EXPECT_EQ(Count(report, "Tank"), 2);
  EXPECT_EQ(Count(report, "Summary"), 1);
  EXPECT_EQ(Attributes(report.child("Summary")), (Strings{"months=Annual"}));
  EXPECT_STREQ(report.child("Summary").child_value("Total"), "3.00");
  EXPECT_STREQ(report.child("Tank").child_value("TankName"), "B   -   Vertical Fixed Roof Tank");
}

TEST_F(DetailReportTest, TheTimePeriodNamesTheMonths) {
  for (const auto* user_id : {"A", "B"})
    test::ChangeRow(test_.client(), "emission", "COMPID", {AddTank(user_id)}, {{"MONTH", "March"}});
  test_.session.ReportTime = "Monthly";
  test_.session.MonthSelected[0] = test_.session.MonthSelected[2] = true;
  const auto report = Report({"A", "B"});
  EXPECT_STREQ(report.child("Tank").child_value("TimePeriod"), "January, March");
  EXPECT_EQ(Attributes(report.child("Summary")), (Strings{"months=January, March"}));
}

TEST_F(DetailReportTest, EveryMonthTickedDiffersFromAnnualInPeriodAndCells) {
  const auto ID = AddTank("V");
  const auto annual = Report({"V"}).child("Tank");
  EXPECT_STREQ(annual.child_value("TimePeriod"), "Annual");
  EXPECT_TRUE(annual.first_element_by_path("Detail/Data/Value").attribute("month_0"));
  test_.client().Execute("DELETE * FROM emission");
  for (const auto& month : shell::kMonths) AddEmission(ID, shell::kVerticalFixedRoof, {{"MONTH", month.name}});
  test_.session.ReportTime = "Monthly";
  test_.session.MonthSelected.fill(true);
  const auto monthly = Report({"V"}).child("Tank");
  EXPECT_STREQ(monthly.child_value("TimePeriod"),
               "January, February, March, April, May, June, July, August, September, October, November, December");
  const auto value = monthly.first_element_by_path("Detail/Data/Value");
  EXPECT_FALSE(value.attribute("month_0"));
  EXPECT_TRUE(value.attribute("month_12"));
}

TEST_F(DetailReportTest, AnAnnualReportOnTwoMixturesIsShownByMonths) {
  const auto ID = AddTank("V");
  test::ChangeRow(test_.client(), "emission", "COMPID", {ID}, {{"MONTH", "May"}});
  test::AddMixture(test_.client(), ID, 2);
  const auto tank = Report({"V"}).child("Tank");
  EXPECT_STREQ(tank.child_value("TimePeriod"), "Annual");
  EXPECT_STREQ(tank.child("Detail").child_value("ReportUnit"), "Monthly");
  EXPECT_STREQ(tank.child("Detail").child("Data").attribute("Unit").value(), "Monthly");
}

TEST_F(DetailReportTest, EachTankHasItsOwnTimeBasis) {
  const auto first = AddTank("A");
  AddTank("B");
  test::ChangeRow(test_.client(), "emission", "COMPID", {first}, {{"MONTH", "May"}});
  test::AddMixture(test_.client(), first, 2);
  Strings units;
  for (const auto& tank : Report({"A", "B"}).children("Tank"))
    units.emplace_back(tank.child("Detail").child_value("ReportUnit"));
  EXPECT_EQ(units, (Strings{"Monthly", "Annual"}));
}

TEST_F(DetailReportTest, ALocationNeedsCityAndState) {
  const auto ID = AddTank("V");
  test::ChangeTank(test_.client(), ID, {{"CITY", Value()}});
  EXPECT_STREQ(Report({"V"}).child("Tank").child_value("Location"), "");
  test::ChangeTank(test_.client(), ID, {{"CITY", "Enid"}, {"STATE", Value()}});
  const auto tank = Report({"V"}).child("Tank");
  EXPECT_STREQ(tank.child_value("Location"), "");
  EXPECT_STREQ(tank.child("Detail").child_value("TankLocation"), "");
}

TEST_F(DetailReportTest, AnEmptyEmissionTableGivesSkeletons) {
  test::AddVerticalTank(test_, {{"USER ID", "V"}});
  const auto tank = Report({"V"}).child("Tank");
  EXPECT_EQ(Names(tank),
            (Strings{"TimePeriod", "Location", "TankName", "TankType", "PhysicalChar", "Detail", "EmissionTotals"}));
  EXPECT_FALSE(tank.child("EmissionTotals").child("COMPONENT"));
}

TEST_F(DetailReportTest, ATankThatIsNotThereAnyMoreHasNoPages) {
  AddTank("V");
  const auto report = Report({"V", "Gone"});
  ASSERT_EQ(Count(report, "Tank"), 2);
  EXPECT_EQ(Texts(report.child("Tank").next_sibling("Tank")), (Strings{"TimePeriod=Annual", "Location="}));
  EXPECT_STREQ(report.child("Summary").child_value("Total"), "1.50");
}

TEST_F(DetailReportTest, AFailingPageLeavesTheOthersStanding) {
  AddTank("V");
  test_.client().DeleteTable("fittings");
  test::ChangeTank(test_.client(), 1, {{"TANK_TYPE", "Internal Floating Roof Tank"}});
  test_.host.ExpectError(3011, "frmPreview.DetailReportPage1");
  test_.host.ExpectError(3011, "frmPreview.DetailReportPage3");
  EXPECT_TRUE(Report({"V"}).child("Tank").child("EmissionTotals").child("COMPONENT"));
}

TEST_F(DetailReportTest, AReportThatFailsAsAWholeLeavesTheFileOfTheLastOne) {
  AddTank("V");
  Report({"V"});
  const auto last = test::FileContent(test_.folder.Path() / "summarydata.xml");
  test_.client().DeleteTable("mixtures");
  test_.host.ExpectError(3011, "frmPreview.DetailReport");
  Report({"V", "V"});
  EXPECT_EQ(test::FileContent(test_.folder.Path() / "summarydata.xml"), last);
  EXPECT_EQ(test_.host.pages.size(), 1U);
}

TEST_F(DetailReportTest, NamesAreData) {
  const std::string name = "<img src=x onerror=\"alert('1')\"> & co";
  AddTank(name);
  EXPECT_EQ(
      std::string(Report({name}).child("Tank").child("PhysicalChar").child("Identification").child_value("UserID")),
      name);
}

TEST_F(DetailReportTest, ASecondReportOverwritesTheFileAndOpensAnotherBrowser) {
  AddTank("A");
  AddTank("B");
  Report({"A", "B"});
  EXPECT_EQ(Count(Report({"B"}), "Tank"), 1);
  const auto page = (test_.folder.Path() / "summarydisplay.htm").string();
  EXPECT_EQ(test_.host.pages, (Strings{page, page}));
}

TEST_F(DetailReportTest, ShowsThatItIsBusyAndThatItIsDone) {
  AddTank("A");
  Report({"A"});
  EXPECT_EQ(test_.host.status.front(), "Processing report, please wait...");
  EXPECT_EQ(test_.host.status.back(), "Ready");
  EXPECT_EQ(test_.host.pointers.front(), shell::Pointer::kBusy);
  EXPECT_EQ(test_.host.pointers.back(), shell::Pointer::kDefault);
}

TEST_F(DetailReportTest, AFolderThatIsMissingIsReportedAndNoBrowserOpened) {
  AddTank("A");
  test_.session.application_folder = test_.folder.Path() / "missing";
  test_.host.ExpectError(3044, "frmPreview.DetailReport");
  Report({"A"});
  EXPECT_TRUE(test_.host.pages.empty());
  EXPECT_EQ(test_.host.status.back(), "Ready");
}

double Number(std::string text) {
  text.erase(std::remove(text.begin(), text.end(), ','), text.end());
  const auto number = store::ParseNumber(text);
  RC_ASSERT(number.has_value());
  return *number;
}

TEST(DetailTotals, TheRollUpIsTheSumOfATanksPrimaryLines) {
  test::TestSession test;
  test::AddRandomTankReference(test.reference());
  EXPECT_TRUE(rc::check("a tank's figure is the same in its totals and in the roll-up", [&] {
    const store::Transaction of_client(test.client()), of_reference(test.reference());
    test::RunOnTwoRandomTanks(test);
    test.session.ReportType = *rc::gen::element("Summary", "Detail");
    DetailReport(test.session);
    pugi::xml_document document;
    RC_ASSERT(document.load_file((test.folder.Path() / kSummaryData).c_str()));
    const auto report = document.child("REPORT");
    for (const auto& tank : report.children("Tank")) {
      double sum = 0;
      int lines = 0;
      for (const auto& line : tank.child("EmissionTotals").children("COMPONENT")) {
        if (std::string(line.child_value("NAME")).starts_with(test::kNbsp)) continue;
        sum += Number(line.child_value("TotalEmissions"));
        ++lines;
      }
      RC_ASSERT(lines > 0);
      const auto* user_id = tank.child("PhysicalChar").child("Identification").child_value("UserID");
      const double rolled_up =
          Number(report.child("Summary").find_child_by_attribute("id", user_id).attribute("loss").value());
      RC_ASSERT(std::abs(sum - rolled_up) <= 0.005 * (lines + 1) + 1e-9 * sum);
    }
  }));
}

}  // namespace
}  // namespace orvex::reports
