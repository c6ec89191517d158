#include "emission/floating_roof.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "emission/fitting_counts.h"
#include "support/expect_error.h"

namespace orvex::emission {
namespace {

TEST(KC, IsLowerForCrudeOils) {
  EXPECT_EQ(KC("Crude Oils"), 0.4);
  for (const std::string_view other : {"Organic Liquids", "Petroleum Distillates", "", "Crude oils"})
    EXPECT_EQ(KC(other), 1) << other;
}

TEST(VaporPressureFunction, GrowsWithTheVaporPressure) {
  // r = 1.5 / 14.7 = 0.102040816; 0.102040816 / (1 + root of 0.897959184)^2 = 0.102040816 / 3.79317930
  EXPECT_NEAR(P(1.5, 14.7), 0.026901174009760845, 1e-16);
  EXPECT_EQ(P(0, 14.7), 0);
}

TEST(VaporPressureFunction, AtAtmosphericPressureIsOne) { EXPECT_EQ(P(14.7, 14.7), 1); }

TEST(VaporPressureFunction, WithoutAtmosphereIsError11) {
  EXPECT_RUN_TIME_ERROR(P(1.5, 0), 11);
  EXPECT_RUN_TIME_ERROR(P(0, 0), 11);
}

TEST(VaporPressureFunction, AboveAtmosphericPressureIsError5) { EXPECT_RUN_TIME_ERROR(P(15, 14.7), 5); }

TEST(Clingage, OfEveryCategoryAndShellCondition) {
  const std::vector<std::tuple<std::string, std::string, double>> table = {
      {"Petroleum Distillates", "Light Rust", 0.0015},
      {"Petroleum Distillates", "Dense Rust", 0.0075},
      {"Petroleum Distillates", "Gunite Lining", 0.15},
      {"Organic Liquids", "Light Rust", 0.0015},
      {"Organic Liquids", "Dense Rust", 0.0075},
      {"Organic Liquids", "Gunite Lining", 0.15},
      {"Crude Oils", "Light Rust", 0.006},
      {"Crude Oils", "Dense Rust", 0.03},
      {"Crude Oils", "Gunite Lining", 0.6},
  };
  for (const auto& [category, condition, factor] : table)
    EXPECT_EQ(Clingage(category, condition), factor) << category << ", " << condition;
}

TEST(Clingage, OfAnUnknownCategoryOrConditionIsNothing) {
  EXPECT_EQ(Clingage("", "Light Rust"), 0);
  EXPECT_EQ(Clingage("Gasoline", "Light Rust"), 0);
  EXPECT_EQ(Clingage("Crude Oils", ""), 0);
  EXPECT_EQ(Clingage("Crude Oils", "Medium Rust"), 0);
  EXPECT_EQ(Clingage("Crude Oils", "light rust"), 0);
  EXPECT_EQ(Clingage("crude oils", "Light Rust"), 0);
}

TEST(RimSealFactor, GrowsWithTheWind) {
  // 5.8 + 0.3 * 10^2.1 = 5.8 + 0.3 * 125.892541
  EXPECT_NEAR(RimSealFactor(5.8, 0.3, 2.1, 10), 43.567762353825016, 1e-13);
}

TEST(RimSealFactor, WithoutWindIsTheConstantPartAlone) { EXPECT_EQ(RimSealFactor(5.8, 0.3, 2.1, 0), 5.8); }

TEST(RimSealFactor, WithoutWindAndExponentIsTheSumOfBothParts) { EXPECT_EQ(RimSealFactor(5.5, 0.25, 0, 0), 5.75); }

TEST(RimSealFactor, OfANegativeExponentWithoutWindIsError5) {
  EXPECT_RUN_TIME_ERROR(RimSealFactor(5.8, 0.3, -1, 0), 5);
}

TEST(RimSealFactor, OutsideTheRangeIsError6) { EXPECT_RUN_TIME_ERROR(RimSealFactor(5.8, 0.3, 400, 10), 6); }

TEST(WithDrawalLoss, GrowsWithColumns) {
  // 0.943 * 10000 * 0.0015 * 6.1 / 90 = 86.2845 / 90 = 0.958716667; (1 + 6 * 1 / 90) = 1.06666667
  EXPECT_DOUBLE_EQ(WithDrawalLoss(10000, 6.1, 90, 0.0015, 6, 1), 1.0226311111111111);
}

TEST(WithDrawalLoss, WithoutColumnsIsThatOfTheShell) {
  EXPECT_DOUBLE_EQ(WithDrawalLoss(10000, 6.1, 90, 0.0015, 0, 0), 0.95871666666666667);
}

TEST(WithDrawalLoss, OfABareInternalRoofAt90FeetHasSixColumns) {
  EXPECT_DOUBLE_EQ(WithDrawalLoss(10000, 6.1, 90, 0.0015, Columns(90), 1), 1.0226311111111111);
}

TEST(WithDrawalLoss, KeepsTheOrderOfItsArithmetic) {
  // IEEE doubles, (0.943 * Q * C * W_L / D) * (1 + N_C * F_C / D) from the left; other groupings end in ...26a, ...26b.
  EXPECT_EQ(WithDrawalLoss(23054, 7.98, 59.5, 0.0015, 7, 1.4), 0x1.4602a75596269p+2);
}

TEST(WithDrawalLoss, OfATankWithoutDiameterIsError11) {
  EXPECT_RUN_TIME_ERROR(WithDrawalLoss(10000, 6.1, 0, 0.0015, 6, 1), 11);
  EXPECT_RUN_TIME_ERROR(WithDrawalLoss(0, 6.1, 0, 0.0015, 0, 0), 11);
}

TEST(DeckFittingFactor, SeesSevenTenthsOfTheWind) {
  // 2 * (4.3 + 17 * (0.7 * 10)^0.38) = 2 * (4.3 + 17 * 2.09477439)
  EXPECT_NEAR(DeckFittingFactor(2, 4.3, 17, 0.38, 10), 79.822329174771392, 1e-12);
}

TEST(DeckFittingFactor, WithoutWindIsTheConstantPartAlone) { EXPECT_EQ(DeckFittingFactor(2, 4.25, 17, 0.38, 0), 8.5); }

TEST(DeckFittingFactor, WithoutWindAndExponentIsTheSumOfBothParts) {
  // 0 to the power 0 is 1: 2 * (4.25 + 17)
  EXPECT_EQ(DeckFittingFactor(2, 4.25, 17, 0, 0), 42.5);
}

TEST(DeckFittingFactor, OfANegativeExponentWithoutWindIsError5) {
  EXPECT_RUN_TIME_ERROR(DeckFittingFactor(1, 4.3, 17, -1, 0), 5);
}

TEST(DeckSeamLoss, WithoutSeamLengthKeepsTheLengthFactor) {
  // 8100 * (0.14 * 0.2) * 0.0275 * 68 = 226.8 * 1.87
  double s_d = 0.2;
  EXPECT_DOUBLE_EQ(DeckSeamLoss(90, 0.0275, 68, 1, 0.14, s_d, 0), 424.116);
  EXPECT_EQ(s_d, 0.2);
}

TEST(DeckSeamLoss, ASeamLengthReplacesTheLengthFactor) {
  // S_D = 4 * 1200 / (8100 * 3.14159) = 4800 / 25446.879 = 0.188628240
  // 8100 * (0.14 * 0.188628240) * 0.0275 * 68 = 213.904424 * 1.87
  double s_d = 0.2;
  EXPECT_DOUBLE_EQ(DeckSeamLoss(90, 0.0275, 68, 1, 0.14, s_d, 1200), 400.00127324062020);
  EXPECT_DOUBLE_EQ(s_d, 0.18862824002896387);
}

TEST(DeckSeamLoss, AShortSeamStillReplacesTheLengthFactor) {
  // S_D = 4 * 0.5 / (8100 * 3.14159) = 2 / 25446.879
  double s_d = 0.2;
  (void)DeckSeamLoss(90, 0.0275, 68, 1, 0.14, s_d, 0.5);
  EXPECT_DOUBLE_EQ(s_d, 7.8595100012068278e-05);
}

TEST(DeckSeamLoss, ANegativeSeamLengthIsNone) {
  double s_d = 0.2;
  EXPECT_DOUBLE_EQ(DeckSeamLoss(90, 0.0275, 68, 1, 0.14, s_d, -1), 424.116);
  EXPECT_EQ(s_d, 0.2);
}

TEST(DeckSeamLoss, KeepsTheOrderOfItsArithmetic) {
  // IEEE doubles, D squared * (K_D * S_D) * P * M * K_C from the left; other groupings end in ...fc8, ...fc9, ...fcc.
  double s_d = 0.171;
  EXPECT_EQ(DeckSeamLoss(75.2, 0.1899, 45.93, 0.4, 0.15, s_d, 0), 0x1.fa101690cfcfap+8);
  // (4 * length) / (D squared * 3.14159); dividing twice ends in ...0cb.
  (void)DeckSeamLoss(125.4, 0.1899, 45.93, 0.4, 0.15, s_d, 1653.3);
  EXPECT_EQ(s_d, 0x1.1227d1a4c20cap-3);
}

TEST(DeckSeamLoss, ASeamOnATankWithoutDiameterIsError11) {
  double s_d = 0.2;
  EXPECT_RUN_TIME_ERROR(DeckSeamLoss(0, 0.0275, 68, 1, 0.14, s_d, 1200), 11);
  EXPECT_EQ(s_d, 0.2);
}

}  // namespace
}  // namespace orvex::emission
