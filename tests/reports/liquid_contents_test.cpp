#include "reports/liquid_contents.h"

#include <gtest/gtest.h>

#include "reports/detail_fixture.h"
#include "shell/tank_types.h"

namespace orvex::reports {
namespace {

using store::Value;
using test::kNbsp;
using test::Strings;

class LiquidContentsTest : public test::DetailPages {
 protected:
  LiquidContentsTest() { test::AddSampleReference(test_.reference()); }

  pugi::xml_node Page(const DetailTank& tank) {
    DetailReportPage2(test_.session, tank, page_);
    return page_.child("LiquidContents");
  }
  /// "month name" of each row, in order.
  Strings Rows(const DetailTank& tank) {
    Page(tank);
    Strings rows;
    for (const auto& row : page_.children("LiquidContents"))
      rows.push_back(std::string(row.child_value("Month")) + " " + row.child_value("MixtureComponent"));
    return rows;
  }
};

TEST_F(LiquidContentsTest, TellsAMixtureInDegreesFahrenheit) {
  // 519.67 R is 60 deg F, 509.67 is 50, 529.92 is 70.25, 517.67 is 58.
  AddEmission(1, shell::kVerticalFixedRoof,
              {{"ALS_TEMP", 519.67},
               {"MLS_TEMP", 509.67},
               {"XLS_TEMP", 529.92},
               {"BULK_T", 517.67},
               {"A_VP", 1.23456},
               {"M_VP", 1.0},
               {"X_VP", 1.5},
               {"VP_MOLWT", 78.11},
               {"MOLWT", 1078.115}});
  EXPECT_EQ(
      Texts(Page(Annual(1))),
      (Strings{"MixtureComponent=Benzene", "Month=All", "AveDailyTemp=60.00", "MinDailyTemp=50.00",
               "MaxDailyTemp=70.25", "BulkTemp=58.00", "AvePressure=1.2346", "MinPressure=1.0000", "MaxPressure=1.5000",
               "VapMolWeight=78.1100", "LiquidMassFraction=" + kNbsp, "VaporMassFraction=" + kNbsp,
               "MolWeight=1,078.12", "Basis=Option 2: A=6.905, B=1211.033, C=220.79"}));
}

TEST_F(LiquidContentsTest, TellsAComponentIndentedAndWithoutTemperatures) {
  AddEmission(1, shell::kVerticalFixedRoof,
              {{"PRIMARY", false},
               {"NAME", "Toluene"},
               {"ALS_TEMP", 519.67},
               {"A_VP", 0.3},
               {"L_WT_FRACT", 0.25},
               {"V_WT_FRACT", 0.125},
               {"VP_MOLWT", 92.13},
               {"MOLWT", 92.13}});
  EXPECT_EQ(
      Texts(Page(Annual(1))),
      (Strings{"MixtureComponent=" + test::Nbsp(2) + "Toluene", "Month=" + kNbsp, "AveDailyTemp=" + kNbsp,
               "MinDailyTemp=" + kNbsp, "MaxDailyTemp=" + kNbsp, "BulkTemp=" + kNbsp, "AvePressure=0.3000",
               "MinPressure=" + kNbsp, "MaxPressure=" + kNbsp, "VapMolWeight=92.1300", "LiquidMassFraction=0.2500",
               "VaporMassFraction=0.1250", "MolWeight=92.13", "Basis=Option 2: A=6.954, B=1344.8, C=219.48"}));
}

TEST_F(LiquidContentsTest, APressureOfZeroIsBlank) {
  AddEmission(1, shell::kVerticalFixedRoof);
  EXPECT_EQ(std::string(Page(Annual(1)).child_value("AvePressure")), kNbsp);
}

TEST_F(LiquidContentsTest, APressureThatRoundsToZeroIsNotBlank) {
  AddEmission(1, shell::kVerticalFixedRoof, {{"A_VP", 0.00001}});
  EXPECT_STREQ(Page(Annual(1)).child_value("AvePressure"), "0.0000");
}

TEST_F(LiquidContentsTest, UnderAFloatingRoofMinimumAndMaximumDoNotApply) {
  AddEmission(1, shell::kExternalFloatingRoof, {{"A_VP", 1.0}, {"M_VP", 2.0}, {"X_VP", 3.0}});
  const auto row = Page(Annual(1));
  EXPECT_STREQ(row.child_value("AvePressure"), "1.0000");
  EXPECT_STREQ(row.child_value("MinPressure"), "N/A");
  EXPECT_STREQ(row.child_value("MaxPressure"), "N/A");
}

TEST_F(LiquidContentsTest, AnAnnualReportSaysAll) {
  AddEmission(1, shell::kVerticalFixedRoof);
  EXPECT_EQ(Rows(Annual(1)), (Strings{"All Benzene"}));
}

TEST_F(LiquidContentsTest, MonthsComeInTheOrderOfTheCalendarWithTheirComponents) {
  for (const auto* month : {"December", "April", "January"}) {
    AddEmission(1, shell::kVerticalFixedRoof, {{"MONTH", month}, {"PRIMARY", false}, {"NAME", "Toluene"}});
    AddEmission(1, shell::kVerticalFixedRoof, {{"MONTH", month}, {"PRIMARY", false}, {"NAME", "Benzene"}});
    AddEmission(1, shell::kVerticalFixedRoof, {{"MONTH", month}, {"NAME", "Mix"}});
  }
  const auto component = [](const char* name) { return kNbsp + " " + test::Nbsp(2) + name; };
  EXPECT_EQ(Rows(Monthly(1)),
            (Strings{"Jan Mix", component("Benzene"), component("Toluene"), "Apr Mix", component("Benzene"),
                     component("Toluene"), "Dec Mix", component("Benzene"), component("Toluene")}));
}

TEST_F(LiquidContentsTest, EachOfTwelveMonthsHasItsMixtureAndItsComponents) {
  for (const auto& month : shell::kMonths) {
    AddEmission(1, shell::kVerticalFixedRoof, {{"MONTH", month.name}, {"PRIMARY", false}, {"NAME", "Toluene"}});
    AddEmission(1, shell::kVerticalFixedRoof, {{"MONTH", month.name}, {"NAME", "Mix"}});
  }
  Strings expected;
  for (const auto* month : {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"}) {
    expected.push_back(month + std::string(" Mix"));
    expected.push_back(kNbsp + " " + test::Nbsp(2) + "Toluene");
  }
  EXPECT_EQ(Rows(Monthly(1)), expected);
}

TEST_F(LiquidContentsTest, TheBasisIsThatAtTheTemperatureInDegreesFahrenheit) {
  test::AddRow(test_.reference(), "chemical", {{"NAME", "Stuff"}, {"CATEGORY", "Organic Liquids"}});
  for (const auto* point : {"VP_40", "VP_50", "VP_60", "VP_70", "VP_80", "VP_90", "VP_100"})
    test::ChangeRow(test_.reference(), "chemical", "chemname", {"Stuff"}, {{point, 0.5}});
  // 504.67 R is 45 deg F.
  AddEmission(1, shell::kVerticalFixedRoof, {{"NAME", "Stuff"}, {"ALS_TEMP", 504.67}});
  EXPECT_STREQ(Page(Annual(1)).child_value("Basis"), "Option 1: VP40 = 0.5 VP50 = 0.5");
}

TEST_F(LiquidContentsTest, AHorizontalTankHasMinimumAndMaximum) {
  AddEmission(1, shell::kHorizontal, {{"M_VP", 2.0}, {"X_VP", 3.0}});
  const auto row = Page(Annual(1));
  EXPECT_STREQ(row.child_value("MinPressure"), "2.0000");
  EXPECT_STREQ(row.child_value("MaxPressure"), "3.0000");
}

TEST_F(LiquidContentsTest, MixturesOfAMonthComeByTheirNumbers) {
  AddEmission(1, shell::kVerticalFixedRoof, {{"MONTH", "May"}, {"MIX ID", 2}, {"NAME", "A"}});
  AddEmission(1, shell::kVerticalFixedRoof, {{"MONTH", "May"}, {"MIX ID", 1}, {"NAME", "B"}});
  EXPECT_EQ(Rows(Monthly(1)), (Strings{"May B", "May A"}));
}

TEST_F(LiquidContentsTest, RowsOfOtherTanksAreNotShown) {
  AddEmission(2, shell::kVerticalFixedRoof);
  EXPECT_FALSE(Page(Annual(1)));
}

TEST_F(LiquidContentsTest, ANullIsReportedForThePage) {
  AddEmission(1, shell::kVerticalFixedRoof, {{"A_VP", Value()}});
  test_.host.ExpectError(94, "frmPreview.DetailReportPage2");
  EXPECT_FALSE(Page(Annual(1)).child("AvePressure"));
}

}  // namespace
}  // namespace orvex::reports
