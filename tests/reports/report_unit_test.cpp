#include "reports/report_unit.h"

#include <gtest/gtest.h>

#include "support/sample_tanks.h"
#include "support/test_databases.h"

namespace orvex::reports {
namespace {

class ReportUnitTest : public testing::Test {
 protected:
  std::string Unit(std::int32_t ID, const std::string& report_time) {
    test_.session.ReportTime = report_time;
    auto mixtures = OpenMixtures(test_.session);
    return ReportUnit(test_.session, mixtures, ID);
  }

  test::TestSession test_;
};

TEST_F(ReportUnitTest, OneMixtureForTheWholeYearIsAnnual) {
  test::AddMixture(test_.client(), 1, 1);
  EXPECT_EQ(Unit(1, "Annual"), "Annual");
}

TEST_F(ReportUnitTest, TwoMixturesAreShownAsTheSumOfTheirMonths) {
  test::AddMixture(test_.client(), 1, 1);
  test::AddMixture(test_.client(), 1, 2);
  test::AddMixture(test_.client(), 2, 1);
  EXPECT_EQ(Unit(1, "Annual"), "Monthly");
  EXPECT_EQ(Unit(2, "Annual"), "Annual");
}

TEST_F(ReportUnitTest, AMixtureThatIsMissingInOneMonthIsMonthly) {
  test::AddMixture(test_.client(), 1, 1, {{"DECEMBER", false}});
  EXPECT_EQ(Unit(1, "Annual"), "Monthly");
}

TEST_F(ReportUnitTest, AMixtureWithoutAnyMonthHasEqualMonths) {
  test::AddMixture(test_.client(), 1, 1);
  test::SetMonths(test_.client(), 1, 1, false);
  EXPECT_EQ(Unit(1, "Annual"), "Annual");
}

TEST_F(ReportUnitTest, AMonthlyReportIsMonthlyForEveryTank) {
  test::AddMixture(test_.client(), 1, 1);
  EXPECT_EQ(Unit(1, "Monthly"), "Monthly");
}

TEST_F(ReportUnitTest, ATankWithoutMixturesFollowsTheReport) { EXPECT_EQ(Unit(7, "Annual"), "Annual"); }

}  // namespace
}  // namespace orvex::reports
