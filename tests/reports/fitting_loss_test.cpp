#include "reports/fitting_loss.h"

#include <gtest/gtest.h>

#include "reports/detail_fixture.h"
#include "shell/tank_types.h"

namespace orvex::reports {
namespace {

class FittingLossTest : public test::DetailPages {
 protected:
  FittingLossTest() {
    test::AddFitting(test_.client(), 1, 1, {{"QUANTITY", 3.0}, {"K_FA", 1.5}, {"K_FB", 0.5}, {"K_M", 2.0}});
  }
  void AddPeriod(std::string_view type, std::string_view month, double wind_mph) {
    AddEmission(1, type, {{"MONTH", month}, {"M_V", wind_mph}, {"M_P", 0.25}, {"VP_MOLWT", 40.0}, {"M_KC", 0.5}});
  }
  double Loss(bool monthly) {
    auto fitting = test_.client().OpenTable("fittings");
    auto emission = test_.client().OpenQuery("SELECT * FROM emission");
    return OneFit(test_.session, fitting, emission, monthly);
  }
  void ChangeFitting(std::string_view field, const store::Value& value) {
    test::ChangeRow(test_.client(), "fittings", "fitid", {1}, {{field, value}});
  }
};

TEST_F(FittingLossTest, AnExternalRoofLosesByTheWind) {
  AddPeriod(shell::kExternalFloatingRoof, "Annual", 10);
  // F = 3 (1.5 + 0.5 (0.7 x 10)^2) = 3 (1.5 + 24.5) = 78; 78 x 0.25 x 40 x 0.5 = 390.
  EXPECT_NEAR(Loss(false), 390, 1e-9);
}

TEST_F(FittingLossTest, UnderARoofOnlyTheFirstFactorCounts) {
  for (const auto type : {shell::kInternalFloatingRoof, shell::kDomedExternalFloatingRoof}) {
    test_.client().Execute("DELETE * FROM emission");
    AddPeriod(type, "Annual", 10);
    // F = 1.5 x 3 = 4.5; 4.5 x 0.25 x 40 x 0.5 = 22.5.
    EXPECT_NEAR(Loss(false), 22.5, 1e-9) << type;
  }
}

TEST_F(FittingLossTest, MonthsCountByTheirDaysAndTheirOwnWind) {
  AddPeriod(shell::kExternalFloatingRoof, "January", 10);
  AddPeriod(shell::kExternalFloatingRoof, "April", 0);
  // January: 390 x 31/365 = 33.12329. April: F = 3 x 1.5 = 4.5, 22.5 x 30/365 = 1.84932.
  EXPECT_NEAR(Loss(true), 34.97260, 1e-5);
}

TEST_F(FittingLossTest, AnotherTypeLosesNothing) {
  AddPeriod("Sphere", "Annual", 10);
  EXPECT_EQ(Loss(false), 0);
}

TEST_F(FittingLossTest, WithoutRowsThereIsNoLoss) {
  EXPECT_EQ(Loss(false), 0);
  EXPECT_EQ(Loss(true), 0);
}

TEST_F(FittingLossTest, ANullFactorLeavesOutItsStep) {
  AddPeriod(shell::kInternalFloatingRoof, "Annual", 0);
  ChangeFitting("K_FA", store::Value());
  EXPECT_EQ(Loss(false), 0);
}

TEST_F(FittingLossTest, ANullInOneMonthLeavesOutThatMonth) {
  AddPeriod(shell::kInternalFloatingRoof, "January", 0);
  AddPeriod(shell::kInternalFloatingRoof, "February", 0);
  test::ChangeRow(test_.client(), "emission", "COMPID", {1, 1, "Benzene", "January"}, {{"M_P", store::Value()}});
  // February alone: 22.5 x 28/365 = 1.72603.
  EXPECT_NEAR(Loss(true), 1.72603, 1e-5);
}

TEST_F(FittingLossTest, ANullWindInOneMonthKeepsTheFactorOfTheMonthBefore) {
  AddPeriod(shell::kExternalFloatingRoof, "January", 10);
  AddPeriod(shell::kExternalFloatingRoof, "February", 0);
  test::ChangeRow(test_.client(), "emission", "COMPID", {1, 1, "Benzene", "February"}, {{"M_V", store::Value()}});
  // F = 78 in both: 390 x (31 + 28)/365 = 63.04110.
  EXPECT_NEAR(Loss(true), 63.04110, 1e-5);
}

TEST_F(FittingLossTest, APowerWithoutAValueIsReported) {
  AddPeriod(shell::kExternalFloatingRoof, "Annual", 0);
  ChangeFitting("K_M", -1.0);
  test_.host.ExpectError(5, "frmPreview.OneFit");
  EXPECT_EQ(Loss(false), 0);
}

}  // namespace
}  // namespace orvex::reports
