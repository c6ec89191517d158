#include "emission/fitting_counts.h"

#include <cstddef>
#include <limits>

#include "emission/arithmetic.h"

namespace orvex::emission {
namespace {

constexpr double kAbove = std::numeric_limits<double>::infinity();
constexpr double kBelow = -kAbove;

// Column bands are closed above: a band holds for diameters up to and with its bound.
struct ColumnBand {
  double up_to_ft;
  int count;
};

constexpr ColumnBand kColumns[] = {
    {85, 1},   {100, 6},  {120, 7},  {135, 8},  {150, 9},  {170, 16}, {190, 19},    {220, 22},
    {235, 31}, {270, 37}, {275, 43}, {290, 49}, {330, 61}, {360, 71}, {kAbove, 81},
};

// All other bands are closed below: a band holds from its bound up to below the next one's.
struct DrainBand {
  double from_ft;
  int count;
};

constexpr DrainBand kRoofDrains[] = {{kBelow, 1}, {125, 2}, {175, 3}, {225, 5}, {275, 7}};

struct BreakerBand {
  double from_ft;
  int pontoon;
  int other;
};

constexpr BreakerBand kBreakers[] = {
    {kBelow, 1, 1}, {125, 2, 2}, {175, 3, 2}, {225, 4, 3}, {275, 5, 3}, {325, 6, 4}, {375, 7, 4},
};

struct LegBand {
  double from_ft;
  int pontoon;
  int center;
  int double_deck;
};

constexpr LegBand kRoofLegs[] = {
    {kBelow, 4, 2, 6},   {35, 4, 4, 7},       {45, 6, 6, 8},       {55, 9, 7, 10},      {65, 13, 9, 13},
    {75, 15, 10, 16},    {85, 16, 12, 20},    {95, 17, 16, 25},    {105, 18, 20, 29},   {115, 19, 24, 34},
    {125, 20, 28, 40},   {135, 21, 33, 46},   {145, 23, 38, 52},   {155, 26, 42, 58},   {165, 27, 49, 66},
    {175, 28, 56, 74},   {185, 29, 62, 82},   {195, 30, 69, 90},   {205, 31, 77, 98},   {215, 32, 83, 107},
    {225, 33, 92, 115},  {235, 34, 101, 127}, {245, 35, 109, 138}, {255, 36, 118, 149}, {265, 36, 128, 162},
    {275, 37, 138, 173}, {285, 38, 148, 186}, {295, 38, 156, 200}, {305, 39, 168, 213}, {315, 39, 179, 226},
    {325, 40, 190, 240}, {335, 41, 202, 255}, {345, 42, 213, 270}, {355, 44, 226, 285}, {365, 45, 238, 300},
    {375, 46, 252, 315}, {385, 47, 266, 330}, {395, 48, 281, 345},
};

template <typename Band, std::size_t kSize>
const Band& BandOf(const Band (&bands)[kSize], double diameter_ft) {
  const Band* found = bands;
  for (const Band& band : bands)
    if (diameter_ft >= band.from_ft) found = &band;
  return *found;
}

/// Whole fittings for a fraction of one: 0.49 before the rounding lifts nearly every broken number to the next one.
int RoundedUp(double fittings) { return RoundToWhole(fittings + 0.49); }

}  // namespace

int StubDrains(double diameter_ft, std::string_view deck_construction) {
  if (deck_construction != "Bolted") return 0;
  return RoundedUp(SquareOf(diameter_ft) / 125);
}

int LegsIFRT(double diameter_ft) { return RoundedUp((diameter_ft / 10 + 5) + SquareOf(diameter_ft) / 600); }

int Columns(double diameter_ft) {
  const ColumnBand* band = kColumns;
  while (diameter_ft > band->up_to_ft) ++band;
  return band->count;
}

int RoofDrains(double diameter_ft, std::string_view deck_type) {
  if (deck_type == "Pontoon") return 0;
  return BandOf(kRoofDrains, diameter_ft).count;
}

int Breakers(double diameter_ft, std::string_view deck_type) {
  const BreakerBand& band = BandOf(kBreakers, diameter_ft);
  return deck_type == "Pontoon" ? band.pontoon : band.other;
}

int PontoonRoofLegs(double diameter_ft) { return BandOf(kRoofLegs, diameter_ft).pontoon; }
int CenterRoofLegs(double diameter_ft) { return BandOf(kRoofLegs, diameter_ft).center; }
int DoubleDeckRoofLegs(double diameter_ft) { return BandOf(kRoofLegs, diameter_ft).double_deck; }

}  // namespace orvex::emission
