#include <gtest/gtest.h>

#include <algorithm>
#include <pugixml.hpp>
#include <string>
#include <vector>

#include "reports/frmmonth.h"
#include "reports/frmprintrep.h"
#include "reports/frmreptyp.h"
#include "reports/frmtankrep.h"
#include "reports/report_commands.h"
#include "support/file_content.h"
#include "support/sample_tanks.h"
#include "support/test_databases.h"

/// Whole ways from the menu to the report, through the windows as a person goes.
namespace orvex::reports {
namespace {

using Names = std::vector<std::string>;
using Rows = std::vector<std::size_t>;

class ReportWalk : public testing::Test {
 protected:
  ReportWalk() {
    for (const auto* user_id : {"A", "B"})
      test::AddVerticalTank(test_, {{"USER ID", user_id}, {"CITY", "Enid"}, {"STATE", "Oklahoma"}});
  }

  /// In the window of the months: ticks them (January is 0) and runs the report.
  void WhenMonthsAreAsked(const Rows& months) {
    test_.host.WhenShown("Frmmonth", [this, months] {
      auto form = OpenFrmmonth(session_);
      for (const auto month : months) TickMonth(session_, form, month, true);
      ASSERT_TRUE(form.cmdRunReport.enabled);
      ClickRunReport(session_, form);
      ClickClose(session_, form);
    });
  }
  /// In the window of the tanks: selects these rows of the list and runs the report.
  void WhenTanksAreAsked(const Rows& rows) {
    test_.host.WhenShown("Frmtankrep", [this, rows] {
      auto form = OpenFrmtankrep(session_);
      form.lstTanks.selected = rows;
      ClickSelect(session_, form);
      ASSERT_TRUE(form.cmdRunReport.enabled);
      ClickRunReport(session_, form);
      ClickClose(session_, form);
    });
  }
  /// In the window that puts the report out: OK, and then Close.
  void WhenTheReportIsThere() {
    test_.host.WhenShown("frmprintrep", [this] {
      auto form = OpenFrmprintrep(session_);
      ClickOK(session_, form);
      ClickClose(session_, form);
    });
    test_.host.ExpectMessage("Please set your Page Setup to Landscape before printing these reports.", "Use Landscape!",
                             shell::Buttons::kOk, shell::Icon::kNone);
  }

  pugi::xml_node Annual(void (*command)(shell::Session&), const Rows& tanks) {
    WhenTanksAreAsked(tanks);
    WhenTheReportIsThere();
    command(session_);
    return Report();
  }
  pugi::xml_node Monthly(void (*command)(shell::Session&), const Rows& months, const Rows& tanks) {
    WhenMonthsAreAsked(months);
    WhenTanksAreAsked(tanks);
    WhenTheReportIsThere();
    command(session_);
    return Report();
  }

  /// The element `REPORT` of the file that the last report wrote.
  pugi::xml_node Report() {
    const char* file = session_.ReportType == "Brief" ? "briefdata.xml" : "summarydata.xml";
    EXPECT_TRUE(document_.load_file((test_.folder.Path() / file).c_str()));
    return document_.child("REPORT");
  }
  /// Names of the elements in a node, in their order.
  static Names Elements(pugi::xml_node node) {
    Names names;
    for (const auto& child : node.children())
      if (child.type() == pugi::node_element) names.emplace_back(child.name());
    return names;
  }
  static Names TimePeriods(pugi::xml_node brief) {
    Names periods;
    for (const auto& period : brief.children("TimePeriod")) periods.emplace_back(period.child_value("Value"));
    return periods;
  }
  /// Columns of the first tank's calculation page.
  static Names Columns(pugi::xml_node detail_report) {
    Names columns;
    for (const auto& cell : detail_report.child("Tank").first_element_by_path("Detail/Data/Value").attributes())
      if (std::string_view(cell.name()).starts_with("month_")) columns.emplace_back(cell.name());
    return columns;
  }

  static inline const Rows kEveryMonth = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
  test::TestSession test_;
  shell::Session& session_ = test_.session;
  pugi::xml_document document_;
};

TEST_F(ReportWalk, AnnualBriefOverTwoTanks) {
  const auto report = Annual(AnnualBrief, {1, 0});
  EXPECT_EQ(session_.TankList, (Names{"B", "A"}));
  EXPECT_EQ(test_.host.windows, (Names{"Frmtankrep", "frmprintrep"}));
  EXPECT_EQ(Elements(report), (Names{"TYPE", "TimePeriod", "Tank", "Tank", "Summary"}));
  EXPECT_EQ(test_.host.pages, Names{(test_.folder.Path() / "briefdisplay.htm").string()});
  EXPECT_EQ(test_.host.pointers.back(), shell::Pointer::kDefault);
  EXPECT_EQ(test_.host.status.back(), "Ready");
}

TEST_F(ReportWalk, MonthlyDetailFromTheMonths) {
  const auto report = Monthly(MonthlyDetail, {0, 6}, {0});
  EXPECT_EQ(test_.host.windows, (Names{"Frmmonth", "Frmtankrep", "frmprintrep"}));
  EXPECT_STREQ(report.child_value("TYPE"), "Detail");
  EXPECT_STREQ(report.child("Tank").child_value("TimePeriod"), "January, July");
  EXPECT_EQ(Columns(report).size(), 7U) << "up to the last month, those between empty";
}

TEST_F(ReportWalk, OneChosenTankHasNoSummaryAndTwoHaveOneAfterTheLast) {
  for (const auto command : {AnnualBrief, AnnualSummary, AnnualDetail}) {
    EXPECT_FALSE(Annual(command, {0}).child("Summary"));
    const auto elements = Elements(Annual(command, {0, 1}));
    EXPECT_EQ(std::count(elements.begin(), elements.end(), "Summary"), 1);
    EXPECT_EQ(elements.back(), "Summary");
  }
}

TEST_F(ReportWalk, MonthlyWithEveryMonthDiffersFromAnnualInPeriodAndMonthAttributes) {
  EXPECT_EQ(TimePeriods(Annual(AnnualBrief, {0})), Names{"Annual"});
  const auto months = TimePeriods(Monthly(MonthlyBrief, kEveryMonth, {0}));
  EXPECT_EQ(months.size(), 12U);
  EXPECT_EQ(months.front(), "January");
  EXPECT_EQ(months.back(), "December");

  const auto year = Annual(AnnualDetail, {0});
  EXPECT_STREQ(year.child("Tank").child_value("TimePeriod"), "Annual");
  EXPECT_EQ(Columns(year), Names{"month_0"});
  const auto every_month = Monthly(MonthlyDetail, kEveryMonth, {0});
  EXPECT_STREQ(every_month.child("Tank").child_value("TimePeriod"),
               "January, February, March, April, May, June, July, August, September, October, November, December");
  EXPECT_EQ(Columns(every_month).size(), 12U);
  EXPECT_EQ(Columns(every_month).front(), "month_1");
}

TEST_F(ReportWalk, AnAnnualReportOnTwoMixturesIsShownByMonthsUnderAnAnnualPeriod) {
  auto& client = test_.client();
  test::AddMixture(client, 1, 2);
  for (std::int32_t MixID = 1; MixID <= 2; ++MixID) {
    for (std::size_t i = 0; i < shell::kMonths.size(); ++i) {
      const bool stored = (i % 2 == 0) == (MixID == 1);
      test::ChangeMixture(client, 1, MixID, {{shell::kMonths[i].name, stored}});
      test::ChangeMixture(client, 1, MixID, {{shell::kMonths[i].throughput, stored ? 35000.0 : 0.0}});
    }
  }
  const auto tank = Annual(AnnualDetail, {0}).child("Tank");
  EXPECT_STREQ(tank.child_value("TimePeriod"), "Annual");
  EXPECT_EQ(Columns(tank.parent()).size(), 12U);
  EXPECT_STREQ(tank.child("Detail").child_value("ReportUnit"), "Monthly");
}

TEST_F(ReportWalk, OKPressedTwiceOverwritesTheFileAndOpensASecondBrowser) {
  WhenTanksAreAsked({0});
  test_.host.WhenShown("frmprintrep", [this] {
    auto form = OpenFrmprintrep(session_);
    const auto path = test_.folder.Path() / "briefdata.xml";
    ClickOK(session_, form);
    const auto first = test::FileContent(path);
    test::WriteFile(path, "changed meanwhile");
    ClickOK(session_, form);
    EXPECT_EQ(test::FileContent(path), first);
    EXPECT_FALSE(form.window.closed);
  });
  for (int i = 0; i < 2; ++i)
    test_.host.ExpectMessage("Please set your Page Setup to Landscape before printing these reports.");
  AnnualBrief(session_);
  EXPECT_EQ(test_.host.pages.size(), 2U);
}

TEST_F(ReportWalk, FromTheTankAtHandThroughKindAndTime) {
  session_.TankList = {"B"};
  WhenTheReportIsThere();
  auto form = OpenFrmreptyp(session_);
  ChangeRepType(session_, form, "Summary");
  ChangeRepTime(session_, form, "Monthly");
  EXPECT_FALSE(form.cmdOK.enabled) << "no month is ticked";
  TickMonth(session_, form, 11, true);
  EXPECT_TRUE(form.cmdOK.enabled);
  ClickOK(session_, form);
  const auto report = Report();
  EXPECT_STREQ(report.child_value("TYPE"), "Summary");
  EXPECT_STREQ(report.child("Tank").child_value("TimePeriod"), "December");
  TickMonth(session_, form, 11, false);
  EXPECT_FALSE(form.cmdOK.enabled);
}

TEST_F(ReportWalk, AFaultyTankIsToldInsteadOfReported) {
  test::ChangeTank(test_.client(), 2, {{"DIAMETER", 0.0}});
  WhenTanksAreAsked({0, 1});
  std::string told;
  test_.host.WhenShown("frmprintrep", [&] {
    auto form = OpenFrmprintrep(session_);
    auto errors = test_.client().OpenTable("error");
    told = errors.Text("USER ID") + ": " + errors.Text("error") + " Please correct and rerun the report.";
    test_.host.ExpectMessage(told, "ORVEX", shell::Buttons::kOk, shell::Icon::kNone);
    ClickOK(session_, form);
  });
  AnnualDetail(session_);
  EXPECT_TRUE(told.starts_with("B: ")) << told;
  EXPECT_TRUE(test_.host.pages.empty());
  EXPECT_FALSE(std::filesystem::exists(test_.folder.Path() / "summarydata.xml"));
}

TEST_F(ReportWalk, ATankDeletedBehindTheOpenWindowEndsInAReportOrInErrorsNeverInSilence) {
  test_.host.WhenShown("Frmtankrep", [this] {
    auto form = OpenFrmtankrep(session_);
    ClickSelectAll(session_, form);
    test_.client().Execute("DELETE * FROM tank WHERE [USER ID] = 'B'");
    ClickRunReport(session_, form);
    EXPECT_TRUE(form.cmdRunReport.enabled);
  });
  WhenTheReportIsThere();
  AnnualDetail(session_);
  EXPECT_EQ(session_.PrintMode, "Report");
  EXPECT_EQ(Elements(Report()), (Names{"TYPE", "Tank", "Tank", "Summary"}));
}

}  // namespace
}  // namespace orvex::reports
