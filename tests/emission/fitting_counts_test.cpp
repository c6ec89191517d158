#include "emission/fitting_counts.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <vector>

#include "support/expect_error.h"

namespace orvex::emission {
namespace {

double JustBelow(double diameter_ft) { return std::nextafter(diameter_ft, 0.0); }
double JustAbove(double diameter_ft) { return std::nextafter(diameter_ft, 1e9); }

TEST(Columns, OfEveryDiameterBand) {
  // Lower bound (not in the band), upper bound (in it), count.
  const std::vector<std::array<double, 3>> bands = {
      {0, 85, 1},     {85, 100, 6},   {100, 120, 7},  {120, 135, 8},  {135, 150, 9},
      {150, 170, 16}, {170, 190, 19}, {190, 220, 22}, {220, 235, 31}, {235, 270, 37},
      {270, 275, 43}, {275, 290, 49}, {290, 330, 61}, {330, 360, 71}, {360, 5000, 81},
  };
  for (const auto& [above, up_to, count] : bands) {
    EXPECT_EQ(Columns(JustAbove(above)), count) << above;
    EXPECT_EQ(Columns((above + up_to) / 2), count) << above;
    EXPECT_EQ(Columns(up_to), count) << up_to;
  }
  EXPECT_EQ(Columns(0), 1);
  EXPECT_EQ(Columns(std::numeric_limits<double>::max()), 81);
}

TEST(Columns, At85FeetOneStandsAndAHundredthMoreNeedsSix) {
  EXPECT_EQ(Columns(85), 1);
  EXPECT_EQ(Columns(85.01), 6);
  EXPECT_EQ(PontoonRoofLegs(85), 16) << "bands of legs hold their lower bound, bands of columns their upper one";
  EXPECT_EQ(PontoonRoofLegs(84.99), 15);
}

TEST(Columns, At90FeetSixStand) { EXPECT_EQ(Columns(90), 6); }

TEST(RoofDrains, OfEveryDiameterBand) {
  for (const std::string_view deck : {"Double Deck", "", "pontoon"}) {
    SCOPED_TRACE(deck);
    const std::vector<std::array<double, 3>> bands = {
        {0, 125, 1}, {125, 175, 2}, {175, 225, 3}, {225, 275, 5}, {275, 5000, 7}};
    for (const auto& [from, below, count] : bands) {
      EXPECT_EQ(RoofDrains(from, deck), count) << from;
      EXPECT_EQ(RoofDrains((from + below) / 2, deck), count) << from;
      EXPECT_EQ(RoofDrains(JustBelow(below), deck), count) << below;
    }
  }
}

TEST(RoofDrains, APontoonRoofHasNone) {
  for (double diameter = 0; diameter <= 500; diameter += 12.5) EXPECT_EQ(RoofDrains(diameter, "Pontoon"), 0);
}

TEST(Breakers, OfEveryDiameterBandAndDeck) {
  // From, below, on a pontoon roof, on any other.
  const std::vector<std::array<double, 4>> bands = {
      {0, 125, 1, 1},   {125, 175, 2, 2}, {175, 225, 3, 2},  {225, 275, 4, 3},
      {275, 325, 5, 3}, {325, 375, 6, 4}, {375, 5000, 7, 4},
  };
  for (const auto& [from, below, pontoon, other] : bands) {
    for (const double diameter : {from, (from + below) / 2, JustBelow(below)}) {
      EXPECT_EQ(Breakers(diameter, "Pontoon"), pontoon) << diameter;
      EXPECT_EQ(Breakers(diameter, "Double Deck"), other) << diameter;
      EXPECT_EQ(Breakers(diameter, ""), other) << diameter;
      EXPECT_EQ(Breakers(diameter, "PONTOON"), other) << diameter;
    }
  }
}

TEST(RoofLegs, OfEveryDiameterBand) {
  // Column by column, a value for each band: below 35, then every 10 ft from 35 to 395.
  const std::vector<int> pontoon = {4,  4,  6,  9,  13, 15, 16, 17, 18, 19, 20, 21, 23, 26, 27, 28, 29, 30, 31,
                                    32, 33, 34, 35, 36, 36, 37, 38, 38, 39, 39, 40, 41, 42, 44, 45, 46, 47, 48};
  const std::vector<int> center = {2,   4,   6,   7,   9,   10,  12,  16,  20,  24,  28,  33,  38,
                                   42,  49,  56,  62,  69,  77,  83,  92,  101, 109, 118, 128, 138,
                                   148, 156, 168, 179, 190, 202, 213, 226, 238, 252, 266, 281};
  const std::vector<int> double_deck = {6,   7,   8,   10,  13,  16,  20,  25,  29,  34,  40,  46,  52,
                                        58,  66,  74,  82,  90,  98,  107, 115, 127, 138, 149, 162, 173,
                                        186, 200, 213, 226, 240, 255, 270, 285, 300, 315, 330, 345};
  ASSERT_EQ(pontoon.size(), 38u);
  ASSERT_EQ(center.size(), 38u);
  ASSERT_EQ(double_deck.size(), 38u);
  for (std::size_t band = 0; band < pontoon.size(); ++band) {
    const double from = band == 0 ? 0 : 25 + 10 * static_cast<double>(band);
    const double below = band + 1 == pontoon.size() ? 5000 : 35 + 10 * static_cast<double>(band);
    for (const double diameter : {from, (from + below) / 2, JustBelow(below)}) {
      EXPECT_EQ(PontoonRoofLegs(diameter), pontoon[band]) << diameter;
      EXPECT_EQ(CenterRoofLegs(diameter), center[band]) << diameter;
      EXPECT_EQ(DoubleDeckRoofLegs(diameter), double_deck[band]) << diameter;
    }
  }
}

TEST(StubDrains, OfABoltedDeckGrowWithItsArea) {
  // 100^2 / 125 + 0.49 = 80.49; 90^2 / 125 + 0.49 = 65.29; 85^2 / 125 + 0.49 = 58.29; 99^2 / 125 + 0.49 = 78.898
  EXPECT_EQ(StubDrains(100, "Bolted"), 80);
  EXPECT_EQ(StubDrains(90, "Bolted"), 65);
  EXPECT_EQ(StubDrains(85, "Bolted"), 58);
  EXPECT_EQ(StubDrains(99, "Bolted"), 79);
  // 12.5^2 / 125 + 0.49 = 1.74
  EXPECT_EQ(StubDrains(12.5, "Bolted"), 2);
  EXPECT_EQ(StubDrains(0, "Bolted"), 0);
}

TEST(StubDrains, HalfwayBetweenTwoCountsTakeTheEvenOne) {
  // Diameters whose D^2 / 125 + 0.49 is 60.5, 61.5, 65.5 and 66.5 to the last bit.
  EXPECT_EQ(StubDrains(86.60975695613052, "Bolted"), 60);
  EXPECT_EQ(StubDrains(87.32840316872856, "Bolted"), 62);
  EXPECT_EQ(StubDrains(90.14571537239027, "Bolted"), 66);
  EXPECT_EQ(StubDrains(90.8363913858317, "Bolted"), 66);
}

TEST(StubDrains, OfAnyOtherDeckAreNone) {
  for (const std::string_view deck : {"Welded", "", "bolted"}) EXPECT_EQ(StubDrains(100, deck), 0) << deck;
}

TEST(LegsIFRT, GrowWithDiameterAndArea) {
  // (100 / 10 + 5) + 10000 / 600 + 0.49 = 32.1567; (60 / 10 + 5) + 3600 / 600 + 0.49 = 17.49
  EXPECT_EQ(LegsIFRT(100), 32);
  EXPECT_EQ(LegsIFRT(60), 17);
  // (90 / 10 + 5) + 8100 / 600 + 0.49 = 27.99; (30 / 10 + 5) + 900 / 600 + 0.49 = 9.99
  EXPECT_EQ(LegsIFRT(90), 28);
  EXPECT_EQ(LegsIFRT(30), 10);
  EXPECT_EQ(LegsIFRT(0), 5);
}

TEST(FormulaCounts, MoreThanALongCanHoldIsError6) {
  EXPECT_RUN_TIME_ERROR(StubDrains(1e6, "Bolted"), 6);
  EXPECT_RUN_TIME_ERROR(LegsIFRT(1e7), 6);
  EXPECT_RUN_TIME_ERROR(LegsIFRT(1e200), 6);
}

}  // namespace
}  // namespace orvex::emission
