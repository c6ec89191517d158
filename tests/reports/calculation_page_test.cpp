#include "reports/calculation_page.h"

#include <gtest/gtest.h>

#include "reports/calculation_lines.h"
#include "reports/detail_fixture.h"
#include "shell/tank_types.h"

namespace orvex::reports {
namespace {

using test::kNbsp;
using test::Strings;

class CalculationPageTest : public test::DetailPages {
 protected:
  pugi::xml_node Page(const DetailTank& tank) {
    DetailReportPage3(test_.session, tank, page_);
    return page_.child("Detail");
  }
  /// The cells of one line made by its field word alone.
  Strings Cells(std::string_view field, bool monthly) {
    auto rows = test_.client().OpenQuery("SELECT * FROM emission WHERE PRIMARY");
    auto value = document_.append_child("Value");
    AddCells(test_.session, field, rows, monthly, value);
    return Attributes(value);
  }
  void AddMonth(std::string_view month, double diameter, std::int32_t mix_id = 1) {
    AddEmission(1, shell::kInternalFloatingRoof, {{"MONTH", month}, {"DIAMETER", diameter}, {"MIX ID", mix_id}});
  }
  pugi::xml_node Line(std::string_view label) {
    return page_.child("Detail").child("Data").find_child_by_attribute("label", std::string(label).c_str());
  }
};

TEST_F(CalculationPageTest, TellsTheTankAndItsTimeBasis) {
  const auto ID = test::AddVerticalTank(test_);
  AddEmission(ID, shell::kVerticalFixedRoof);
  const auto detail = Page(Annual(ID));
  const auto texts = Texts(detail);
  ASSERT_EQ(texts.size(), 4U);
  EXPECT_EQ(texts[0], "ReportUnit=Annual");
  EXPECT_EQ(texts[1], "TankName=T   -   Tank");
  EXPECT_EQ(texts[2], "TankLocation=Springfield, OH");
  EXPECT_EQ(Attributes(detail.child("Data")), (Strings{"Type=Vertical Fixed Roof Tank", "Unit=Annual"}));
  EXPECT_EQ(Count(detail.child("Data"), "Value"), 71);
}

TEST_F(CalculationPageTest, AnAnnualLineHasOneCell) {
  AddEmission(1, shell::kVerticalFixedRoof, {{"DIAMETER", 2469.0}, {"S_LOSS", 1000.5}, {"W_LOSS", 2.25}});
  EXPECT_EQ(Cells("DIAMETER", false), (Strings{"month_0=2,469.0000"}));
  EXPECT_EQ(Cells("RADIUS", false), (Strings{"month_0=1,234.5000"}));
  EXPECT_EQ(Cells("TOTAL_LOSS", false), (Strings{"month_0=1,002.7500"}));
  EXPECT_EQ(Cells("", false), (Strings{"month_0=" + kNbsp}));
  EXPECT_EQ(Cells("|_10.731", false), (Strings{"month_0=10.731"}));
}

TEST_F(CalculationPageTest, TheTotalOfAFloatingRoofAddsFourLosses) {
  AddEmission(1, shell::kInternalFloatingRoof,
              {{"RIM_LOSS", 1.0}, {"WD_LOSS", 20.0}, {"DECKF_LOSS", 300.0}, {"DECKS_LOSS", 4000.0}, {"S_LOSS", 7.0}});
  EXPECT_EQ(Cells("TOTAL_LOSS2", false), (Strings{"month_0=4,321.0000"}));
}

TEST_F(CalculationPageTest, ThreeMonthsHaveCellsUpToTheLastAndBlanksBetween) {
  AddMonth("February", 2);
  AddMonth("March", 3);
  AddMonth("May", 5);
  EXPECT_EQ(Cells("DIAMETER", true),
            (Strings{"month_1=" + kNbsp, "month_2=2.0000", "month_3=3.0000", "month_4=" + kNbsp, "month_5=5.0000"}));
}

TEST_F(CalculationPageTest, EveryLineOfAnInternalRoofEndsWithTheLastOfThreeMonths) {
  const auto ID = test::AddInternalTank(test_);
  for (const auto* month : {"February", "April", "May"})
    AddEmission(ID, shell::kInternalFloatingRoof, {{"MONTH", month}, {"DIAMETER", 100.0}});
  const auto data = Page(Monthly(ID)).child("Data");
  EXPECT_EQ(Attributes(Line(test::Nbsp(3) + "Tank Diameter (ft):")),
            (Strings{"label=" + test::Nbsp(3) + "Tank Diameter (ft):", "month_1=" + kNbsp, "month_2=100.0000",
                     "month_3=" + kNbsp, "month_4=100.0000", "month_5=100.0000"}));
  for (const auto& value : data.children("Value")) {
    EXPECT_EQ(Attributes(value).size(), 6U) << value.attribute("label").value();
    EXPECT_EQ(value.attribute("month_1").value(), kNbsp);
    EXPECT_EQ(value.attribute("month_3").value(), kNbsp);
  }
}

TEST_F(CalculationPageTest, MonthsComeInTheOrderOfTheCalendar) {
  const auto ID = test::AddInternalTank(test_);
  for (const auto* month : {"May", "January"})
    AddEmission(ID, shell::kInternalFloatingRoof, {{"MONTH", month}, {"RIM_LOSS", *month == 'M' ? 5.0 : 1.0}});
  Page(Monthly(ID));
  EXPECT_EQ(Attributes(Line("Rim Seal Losses (lb):")),
            (Strings{"label=Rim Seal Losses (lb):", "month_1=1.0000", "month_2=" + kNbsp, "month_3=" + kNbsp,
                     "month_4=" + kNbsp, "month_5=5.0000"}));
}

TEST_F(CalculationPageTest, AllMonthsHaveTwelveCells) {
  for (const auto& month : shell::kMonths) AddMonth(month.name, month.days);
  const auto cells = Cells("DIAMETER", true);
  ASSERT_EQ(cells.size(), 12U);
  EXPECT_EQ(cells.front(), "month_1=31.0000");
  EXPECT_EQ(cells[1], "month_2=28.0000");
  EXPECT_EQ(cells.back(), "month_12=31.0000");
}

TEST_F(CalculationPageTest, ASecondMixtureInAMonthHoldsUpTheLine) {
  AddMonth("January", 1);
  AddMonth("January", 11, 2);
  AddMonth("February", 2);
  Strings expected = {"month_1=1.0000"};
  for (int month = 2; month <= 12; ++month) expected.push_back("month_" + std::to_string(month) + "=" + kNbsp);
  EXPECT_EQ(Cells("DIAMETER", true), expected);
}

TEST_F(CalculationPageTest, ABlankLineIsBlankInItsLabelAndItsCells) {
  const auto ID = test::AddVerticalTank(test_);
  AddEmission(ID, shell::kVerticalFixedRoof, {{"MONTH", "February"}});
  Page(Monthly(ID));
  EXPECT_EQ(Attributes(Line(kNbsp)), (Strings{"label=" + kNbsp, "month_1=" + kNbsp, "month_2=" + kNbsp}));
}

TEST_F(CalculationPageTest, TheConstantOfAMonthlyReportIsJoinedByBars) {
  for (const auto* month : {"January", "March"}) AddMonth(month, 1);
  auto rows = test_.client().OpenQuery("SELECT * FROM emission");
  EXPECT_EQ(DetCalcHCLine(test_.session, "10.731", rows, true), "10.731||10.731|");
  EXPECT_EQ(DetCalcHCLine(test_.session, "10.731", rows, false), "10.731");
}

TEST_F(CalculationPageTest, AFailureInTheConstantIsReportedForItsRoutine) {
  AddMonth("January", 1);
  auto rows = test_.client().OpenQuery("SELECT ID FROM emission");
  test_.host.ExpectError(3265, "frmPreview.DetCalcHCLine");
  EXPECT_EQ(DetCalcHCLine(test_.session, "10.731", rows, true), "");
}

TEST_F(CalculationPageTest, EveryMonthOfTheConstantLineHoldsTheJoinedText) {
  const auto ID = test::AddVerticalTank(test_);
  for (const auto* month : {"January", "March"}) AddEmission(ID, shell::kVerticalFixedRoof, {{"MONTH", month}});
  Page(Monthly(ID));
  const auto label = test::Nbsp(7) + "(psia cuft / (lb-mol-deg R)):";
  EXPECT_EQ(Attributes(Line(label)),
            (Strings{"label=" + label, "month_1=10.731||10.731|", "month_2=" + kNbsp, "month_3=10.731||10.731|"}));
}

TEST_F(CalculationPageTest, WithoutRowsLinesHaveNoCells) {
  const auto ID = test::AddExternalTank(test_);
  for (const auto& tank : {Annual(ID), Monthly(ID)}) {
    page_ = document_.append_child("Tank");
    const auto detail = Page(tank);
    EXPECT_EQ(Count(detail.child("Data"), "Value"), 27);
    for (const auto& value : detail.child("Data").children("Value")) EXPECT_EQ(Attributes(value).size(), 1U);
    EXPECT_STREQ(detail.child("RoofStatus").child("Value").attribute("losses").value(), "0.0000");
  }
}

TEST_F(CalculationPageTest, ComponentRowsAreNotShown) {
  const auto ID = test::AddVerticalTank(test_);
  AddEmission(ID, shell::kVerticalFixedRoof, {{"PRIMARY", false}, {"NAME", "A"}, {"S_LOSS", 9.0}});
  AddEmission(ID, shell::kVerticalFixedRoof, {{"S_LOSS", 1.0}});
  Page(Annual(ID));
  EXPECT_STREQ(Line("Standing Losses (lb):").attribute("month_0").value(), "1.0000");
}

TEST_F(CalculationPageTest, AFixedRoofHasNoRoofStatus) {
  const auto ID = test::AddHorizontalTank(test_);
  EXPECT_FALSE(Page(Annual(ID)).child("RoofStatus"));
}

TEST_F(CalculationPageTest, AnExternalRoofListsItsFittingsBehindTheLines) {
  const auto ID = test::AddExternalTank(test_);
  test::ChangeRow(
      test_.client(), "fittings", "fitid", {ID},
      {{"FIT_TYPE", "Leg"}, {"COVR_TYPE", "Open"}, {"QUANTITY", 1200.0}, {"K_FA", 1.5}, {"K_FB", 0.5}, {"K_M", 2.0}});
  AddEmission(ID, shell::kExternalFloatingRoof, {{"M_V", 10.0}, {"M_P", 0.25}, {"VP_MOLWT", 40.0}, {"M_KC", 0.5}});
  const auto detail = Page(Annual(ID));
  EXPECT_EQ(Texts(detail).back(), "RoofStatus=");
  // 1200 (1.5 + 0.5 x 7^2) x 0.25 x 40 x 0.5 = 1200 x 26 x 5 = 156,000.
  EXPECT_EQ(Attributes(detail.child("RoofStatus").child("Value")),
            (Strings{"label=Leg/Open", "quantity=1,200", "KFa=1.50", "KFb=0.50", "m=2.00", "losses=156,000.0000"}));
}

TEST_F(CalculationPageTest, InternalAndDomedRoofsListWindFactorsThatDoNotCount) {
  for (const bool domed : {false, true}) {
    const auto ID = domed ? test::AddDomedTank(test_) : test::AddInternalTank(test_);
    test::ChangeRow(test_.client(), "fittings", "fitid", {ID},
                    {{"QUANTITY", 3.0}, {"K_FA", 1.5}, {"K_FB", 0.5}, {"K_M", 2.0}});
    AddEmission(ID, domed ? shell::kDomedExternalFloatingRoof : shell::kInternalFloatingRoof,
                {{"M_V", 10.0}, {"M_P", 0.25}, {"VP_MOLWT", 40.0}, {"M_KC", 0.5}});
    page_ = document_.append_child("Tank");
    const auto fitting = Page(Annual(ID)).child("RoofStatus").child("Value");
    EXPECT_STREQ(fitting.attribute("KFb").value(), "0.50");
    EXPECT_STREQ(fitting.attribute("m").value(), "2.00");
    // 1.5 x 3 x 0.25 x 40 x 0.5 = 22.5.
    EXPECT_STREQ(fitting.attribute("losses").value(), "22.5000");
  }
}

TEST_F(CalculationPageTest, FittingsComeInTheOrderOfTheirNumbers) {
  const auto ID = test::AddExternalTank(test_);
  test::AddFitting(test_.client(), ID, 3, {{"FIT_TYPE", "Leg"}, {"COVR_TYPE", "Open"}});
  test::AddFitting(test_.client(), ID, 2, {{"FIT_TYPE", "Drain"}, {"COVR_TYPE", store::Value()}});
  Page(Annual(ID));
  Strings labels;
  for (const auto& fitting : page_.child("Detail").child("RoofStatus").children("Value"))
    labels.emplace_back(fitting.attribute("label").value());
  EXPECT_EQ(labels, (Strings{"Access Hatch (24-in. Diam.)/Bolted Cover, Gasketed", "Drain/", "Leg/Open"}));
}

TEST_F(CalculationPageTest, ANullFactorOfAFittingIsReportedForThePageAndEndsIt) {
  const auto ID = test::AddExternalTank(test_);
  test::ChangeRow(test_.client(), "fittings", "fitid", {ID}, {{"K_FB", store::Value()}});
  test_.host.ExpectError(94, "frmPreview.DetailReportPage3");
  EXPECT_EQ(Count(Page(Annual(ID)).child("Data"), "Value"), 0);
}

TEST_F(CalculationPageTest, AnAnnualLineTellsTheFirstMixture) {
  const auto ID = test::AddVerticalTank(test_);
  AddEmission(ID, shell::kVerticalFixedRoof, {{"MIX ID", 2}, {"S_LOSS", 2.0}});
  AddEmission(ID, shell::kVerticalFixedRoof, {{"MIX ID", 1}, {"S_LOSS", 1.0}});
  Page(Annual(ID));
  EXPECT_STREQ(Line("Standing Losses (lb):").attribute("month_0").value(), "1.0000");
}

TEST_F(CalculationPageTest, ShowsThatItIsBusyAndThatItIsDone) {
  Page(Annual(test::AddVerticalTank(test_)));
  EXPECT_EQ(test_.host.status, (Strings{"Processing report, please wait...", "Ready"}));
  EXPECT_EQ(test_.host.pointers, (std::vector{shell::Pointer::kBusy, shell::Pointer::kDefault}));
}

TEST_F(CalculationPageTest, AFailureInALineIsShownAndTheNextLineWritten) {
  const auto ID = test::AddVerticalTank(test_);
  AddEmission(ID, shell::kVerticalFixedRoof, {{"S_LOSS", store::Value()}, {"W_LOSS", 2.0}});
  const std::string failure = "error: Invalid use of Null in the field 'S_LOSS' of the table 'emission'.";
  const auto expect_box = [&] { test_.host.ExpectMessage(failure, "ORVEX", shell::Buttons::kOk, shell::Icon::kNone); };
  expect_box();
  expect_box();  // the total at the end
  Page(Annual(ID));
  EXPECT_EQ(Attributes(Line("Standing Losses (lb):")), (Strings{"label=Standing Losses (lb):"}));
  EXPECT_STREQ(Line("Working Losses (lb):").attribute("month_0").value(), "2.0000");
}

TEST_F(CalculationPageTest, AFailureInAMonthLeavesOutItsCellAndTheLaterOnes) {
  for (const auto* month : {"January", "February", "March"}) AddMonth(month, 1);
  test::ChangeRow(test_.client(), "emission", "COMPID", {1, 1, "Benzene", "February"}, {{"DIAMETER", store::Value()}});
  auto rows = test_.client().OpenQuery("SELECT * FROM emission");
  auto failing = document_.append_child("Value"), next = document_.append_child("Value");
  test_.host.ExpectMessage("error: Invalid use of Null in the field 'DIAMETER' of the table 'emission'.");
  AddCells(test_.session, "DIAMETER", rows, true, failing);
  AddCells(test_.session, "M_P", rows, true, next);
  EXPECT_EQ(Attributes(failing), (Strings{"month_1=1.0000"}));
  EXPECT_EQ(Attributes(next), (Strings{"month_1=0.0000", "month_2=0.0000", "month_3=0.0000"}));
}

TEST_F(CalculationPageTest, AMonthThatIsNoneIsReportedForThePage) {
  const auto ID = test::AddVerticalTank(test_);
  AddEmission(ID, shell::kVerticalFixedRoof);
  test_.host.ExpectError(13, "frmPreview.DetailReportPage3");
  EXPECT_FALSE(Page(Monthly(ID)));
}

TEST_F(CalculationPageTest, ATankThatIsNotThereHasNoLines) {
  const auto detail = Page(Annual(77));
  EXPECT_EQ(Xml(detail),
            "<ReportUnit>Annual</ReportUnit><TankName>T   -   Tank</TankName>"
            "<TankLocation>Springfield, OH</TankLocation><Data Type=\"\" Unit=\"Annual\"/>");
}

}  // namespace
}  // namespace orvex::reports
