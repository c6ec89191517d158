#include "reports/report_text.h"

#include <gtest/gtest.h>

#include "support/scripted_host.h"

namespace orvex::reports {
namespace {

TEST(ReportText, NoBreakSpacesAreCharacter160) { EXPECT_EQ(NoBreakSpaces(2), "\xC2\xA0\xC2\xA0"); }

TEST(ReportText, TankNameIsTrimmedOnBothSides) {
  EXPECT_EQ(ReportTankName(" T 1  ", " Horizontal Tank "), "T 1   -   Horizontal Tank");
  EXPECT_EQ(ReportTankName("   ", ""), "   -   ");
}

TEST(ReportText, PeriodNamesTheChosenMonthsInOrderOfTheYear) {
  test::ScriptedHost host;
  shell::Session session(host);
  session.MonthSelected[11] = session.MonthSelected[0] = session.MonthSelected[4] = true;
  session.ReportTime = "Monthly";
  EXPECT_EQ(PeriodText(session), "January, May, December");
  session.ReportTime = "Annual";
  EXPECT_EQ(PeriodText(session), "Annual");
  session.ReportTime = "";
  EXPECT_EQ(PeriodText(session), "Annual");
}

}  // namespace
}  // namespace orvex::reports
