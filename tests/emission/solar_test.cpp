#include "emission/solar.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

namespace orvex::emission {
namespace {

const std::vector<std::tuple<std::string, std::string, double>> kEveryPaint = {
    {"White/White", "Good", 0.17},       {"White/White", "Poor", 0.34},     {"Aluminum/Specular", "Good", 0.39},
    {"Aluminum/Specular", "Poor", 0.49}, {"Aluminum/Diffuse", "Good", 0.6}, {"Aluminum/Diffuse", "Poor", 0.68},
    {"Gray/Light", "Good", 0.54},        {"Gray/Light", "Poor", 0.63},      {"Gray/Medium", "Good", 0.68},
    {"Gray/Medium", "Poor", 0.74},       {"Red/Primer", "Good", 0.89},      {"Red/Primer", "Poor", 0.91},
};

TEST(Paint, EveryColourAndConditionHasItsAbsorptanceOnShellAndRoof) {
  for (const auto& [colour, condition, absorptance] : kEveryPaint) {
    SCOPED_TRACE(colour + ", " + condition);
    EXPECT_EQ(ShellSolar(colour, condition), absorptance);
    EXPECT_EQ(RoofSolar(colour, condition), absorptance);
  }
}

TEST(Paint, AnUnknownOrBlankColourAbsorbsNothing) {
  for (const char* colour : {"", "Blue/Light", "White", "White/White ", "Gray/Dark"}) {
    EXPECT_EQ(ShellSolar(colour, "Good"), 0) << colour;
    EXPECT_EQ(RoofSolar(colour, "Poor"), 0) << colour;
  }
}

TEST(Paint, AConditionThatIsNeitherGoodNorPoorAbsorbsNothing) {
  for (const char* condition : {"", "Fair", "Good "}) {
    EXPECT_EQ(ShellSolar("White/White", condition), 0) << condition;
    EXPECT_EQ(RoofSolar("Red/Primer", condition), 0) << condition;
  }
}

TEST(Paint, CaseMatters) {
  EXPECT_EQ(ShellSolar("white/white", "Good"), 0);
  EXPECT_EQ(ShellSolar("WHITE/WHITE", "Good"), 0);
  EXPECT_EQ(RoofSolar("White/White", "good"), 0);
}

TEST(Solar, IsTheMeanOfRoofAndShell) {
  // (0.91 + 0.17) / 2
  EXPECT_DOUBLE_EQ(Solar("White/White", "Good", "Red/Primer", "Poor"), 0.54);
}

TEST(Solar, IsTheMeanForEveryPairOfPaints) {
  for (const auto& [shell, shell_condition, shell_value] : kEveryPaint)
    for (const auto& [roof, roof_condition, roof_value] : kEveryPaint)
      EXPECT_EQ(Solar(shell, shell_condition, roof, roof_condition), (roof_value + shell_value) / 2)
          << shell << shell_condition << roof << roof_condition;
}

TEST(Solar, ATankWithoutRoofPaintTakesItsShellPaint) { EXPECT_EQ(Solar("Gray/Medium", "Good", "", ""), 0.68); }

TEST(Solar, ARoofPaintWithoutConditionCountsAsNone) { EXPECT_EQ(Solar("Gray/Medium", "Good", "Red/Primer", ""), 0.68); }

TEST(Solar, ATankWithoutShellPaintGetsHalfItsRoof) { EXPECT_EQ(Solar("", "", "Red/Primer", "Poor"), 0.455); }

TEST(Solar, AShellConditionThatIsUnknownCountsAsNoShellPaint) {
  // (0.34 + 0) / 2
  EXPECT_EQ(Solar("Gray/Medium", "Fair", "White/White", "Poor"), 0.17);
}

TEST(Solar, ABareTankAbsorbsNothing) { EXPECT_EQ(Solar("", "", "", ""), 0); }

}  // namespace
}  // namespace orvex::emission
