#include "emission/fitting_factor.h"

#include "emission/emiss_float.h"
#include "emission/loss_fixture.h"

namespace orvex::emission {
namespace {

class FittingFactorTest : public LossTest {
 protected:
  static constexpr std::int32_t kTank = 7;
  double Factor(double wind_mph) { return FittingFactor(test.session, kTank, wind_mph); }
};

TEST_F(FittingFactorTest, AddsAllFittingsOfTheTankAtSevenTenthsOfTheWind) {
  AddFitting(client, kTank, 1, {{"K_FA", 1.6}, {"QUANTITY", 3.0}});
  AddFitting(client, kTank, 2, {{"K_FA", 2.0}, {"K_FB", 0.5}, {"K_M", 2.0}, {"QUANTITY", 2.0}});
  AddFitting(client, kTank + 1, 1, {{"K_FA", 1000.0}});
  // 3 x 1.6 + 2 x (2 + 0.5 x 7^2)
  ExpectClose(Factor(10), 57.8, "10 mph");
  ExpectClose(Factor(0), 8.8, "no wind");
}

TEST_F(FittingFactorTest, FittingWithoutExponentCountsItsSecondFactorInStillAir) {
  AddFitting(client, kTank, 1, {{"K_FA", 1.5}, {"K_FB", 0.25}, {"K_M", 0.0}, {"QUANTITY", 2.0}});
  EXPECT_EQ(Factor(0), 3.5);  // 2 x (1.5 + 0.25 x 0^0)
}

TEST_F(FittingFactorTest, TankWithoutFittingsHasNone) { EXPECT_EQ(Factor(10), 0); }

TEST_F(FittingFactorTest, ExponentBelowZeroHasNoValueInStillAir) {
  AddFitting(client, kTank, 1, {{"K_M", -1.0}});
  test.host.ExpectError(5, "modEmission.FittingFactor");
  EXPECT_EQ(Factor(0), 0);
}

class FittingFactorNeeds : public FittingFactorTest, public ::testing::WithParamInterface<NeededField> {};

TEST_P(FittingFactorNeeds, ThisFieldOrCountsNoFittingAtAll) {
  const auto ID = AddExternalTank(test);
  AddFitting(client, ID, 2, {{GetParam().field, kNull}});
  test.host.ExpectError(94, "modEmission.FittingFactor");
  EmissFloat(test.session, ID, 1, "Annual");
  EXPECT_EQ(Number(ID, "M_FF"), 0);
  EXPECT_EQ(Number(ID, "DECKF_LOSS"), 0);
  EXPECT_GT(Number(ID, "RIM_LOSS"), 0);
}

INSTANTIATE_TEST_SUITE_P(Fields, FittingFactorNeeds,
                         ::testing::Values(NeededField{"fittings", "QUANTITY"}, NeededField{"fittings", "K_FA"},
                                           NeededField{"fittings", "K_FB"}, NeededField{"fittings", "K_M"}),
                         NameOf);

}  // namespace
}  // namespace orvex::emission
