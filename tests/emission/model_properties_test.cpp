#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "emission/fitting_counts.h"
#include "emission/fixed_roof.h"
#include "emission/floating_roof.h"
#include "emission/liquid_temperature.h"
#include "emission/solar.h"
#include "emission/vapor_pressure_forms.h"

namespace orvex::emission {
namespace {

/// A number between two bounds, in thousandths of the way; all of them equally likely in every case of a property.
double Between(double low, double high) {
  return low + (high - low) * *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(0, 1001)) / 1000.0;
}

/// Two temperatures {R} between 0 and 150 deg F, the first not above the second.
std::array<double, 2> TwoTemperatures() {
  const double one = FahrenheitToRankine(Between(0, 150));
  const double other = FahrenheitToRankine(Between(0, 150));
  return {std::min(one, other), std::max(one, other)};
}

RC_GTEST_PROP(ModelProperties, TheExpansionFactorIsNeverNegative, ()) {
  const double atmospheric = Between(11, 15);
  const double minimum = Between(0, 9), range = Between(0, 1.5);
  const double low_r = FahrenheitToRankine(Between(-40, 60));
  const ExpansionInputs inputs = {
      .ambient_max_r = low_r + Between(0, 40),
      .ambient_min_r = low_r,
      .absorptance = Between(0, 0.91),
      .insolation = Between(0, 2500),
      .average_surface_r = low_r + Between(0, 40),
      .atmospheric_psia = atmospheric,
      .vent_pressure_psig = Between(-1, 5),
      .vent_vacuum_psig = Between(-5, 1),
      .average_psia = minimum + range / 2,
      .maximum_psia = minimum + range,
      .minimum_psia = minimum,
      .heated = *rc::gen::arbitrary<bool>(),
  };
  RC_ASSERT(VaporExpansion(inputs) >= 0);
}

RC_GTEST_PROP(ModelProperties, TheSaturationFactorStaysBetweenZeroAndOne, ()) {
  const double factor = VaporSaturation(Between(0, 15), Between(0, 100));
  RC_ASSERT(factor > 0);
  RC_ASSERT(factor <= 1);
}

RC_GTEST_PROP(ModelProperties, TheTurnoverFactorFallsFromOneTowardsASixth, ()) {
  const double fewer = Between(0, 1000), more = fewer + Between(0, 1000);
  RC_ASSERT(TurnoverFactor(more) <= TurnoverFactor(fewer));
  RC_ASSERT(TurnoverFactor(fewer) <= 1);
  RC_ASSERT(TurnoverFactor(more) > 1.0 / 6);
}

RC_GTEST_PROP(ModelProperties, AConeOrDomeAddsItsOutageToThatOfTheShell, ()) {
  const double diameter = Between(5, 200), shell = Between(10, 60), liquid = shell * Between(0, 1);
  const RoofShape shape = {
      "Vertical Fixed Roof Tank", *rc::gen::element("Cone", "Dome"), Between(0, 0.3), shell, liquid, Between(0, 10)};
  double radius = 0, radius_again = 0;
  const double roof = HRO(shape, diameter, radius);
  RC_ASSERT(roof >= 0);
  RC_ASSERT(HVO(shape, diameter, radius_again, diameter) == shell - liquid + roof);
  RC_ASSERT(radius == radius_again);
}

RC_GTEST_PROP(ModelProperties, SurfaceTemperaturesLieAroundTheirAverage, ()) {
  const double average = Between(480, 560), low = Between(450, 520), high = low + Between(0, 40);
  const double absorptance = Between(0, 0.91), insolation = Between(0, 2500);
  const double maximum = MaxLiquidTemp(average, high, low, absorptance, insolation);
  const double minimum = MinLiquidTemp(average, high, low, absorptance, insolation);
  RC_ASSERT(minimum <= average);
  RC_ASSERT(average <= maximum);
  RC_ASSERT(std::abs((maximum + minimum) / 2 - average) < 1e-9);
}

RC_GTEST_PROP(ModelProperties, FahrenheitAndRankineAreEachOthersInverse, ()) {
  const double fahrenheit = Between(-100, 300);
  RC_ASSERT(std::abs(RankineToFahrenheit(FahrenheitToRankine(fahrenheit)) - fahrenheit) < 1e-9);
}

RC_GTEST_PROP(ModelProperties, NoTankIsDarkerThanItsDarkestPaint, (std::string shell, std::string condition)) {
  const double absorptance = Solar(shell, condition, *rc::gen::element("Red/Primer", "Gray/Light"), "Poor");
  RC_ASSERT(absorptance >= 0);
  RC_ASSERT(absorptance <= 0.91);
}

RC_GTEST_PROP(ModelProperties, EveryVaporPressureFormRisesWithTheTemperature, ()) {
  const auto [cooler, warmer] = TwoTemperatures();
  const double b = Between(800, 2000), c = Between(180, 260);
  RC_ASSERT(AntoineVaporPressure(7, b, c, cooler) <= AntoineVaporPressure(7, b, c, warmer));
  const double a = Between(20000, 60000);
  RC_ASSERT(KelvinVaporPressure(a, 8, cooler) <= KelvinVaporPressure(a, 8, warmer));
  const double reid = Between(1, 15), slope = Between(0, 6);
  RC_ASSERT(CrudeOilVaporPressure(reid, cooler) <= CrudeOilVaporPressure(reid, warmer));
  RC_ASSERT(DistillateVaporPressure(reid, slope, cooler) <= DistillateVaporPressure(reid, slope, warmer));
}

RC_GTEST_PROP(ModelProperties, ATabulatedVaporPressureRisesWithItsTable, ()) {
  std::array<double, 7> table{};
  for (double& pressure : table) pressure = Between(0.01, 14);
  std::sort(table.begin(), table.end());
  const auto [cooler, warmer] = TwoTemperatures();
  // The straight line is computed band by band, so a border may be off by the last bits.
  RC_ASSERT(TabulatedVaporPressure(table, cooler) <= TabulatedVaporPressure(table, warmer) + 1e-12);
  RC_ASSERT(TabulatedVaporPressure(table, cooler) >= table.front());
  RC_ASSERT(TabulatedVaporPressure(table, warmer) <= table.back() + 1e-12);
}

RC_GTEST_PROP(ModelProperties, ATabulatedVaporPressureHasNoStepAtABandBorder, ()) {
  std::array<double, 7> table{};
  for (double& pressure : table) pressure = Between(0.01, 14);
  const double border = FahrenheitToRankine(40 + 10 * *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(0, 7)));
  // A band of 10 deg F is at most 14 psia high, so a millionth of a degree moves the pressure by 1.4e-6 psia at most.
  const double at = TabulatedVaporPressure(table, border);
  RC_ASSERT(std::abs(TabulatedVaporPressure(table, border - 1e-6) - at) < 2e-6);
  RC_ASSERT(std::abs(TabulatedVaporPressure(table, border + 1e-6) - at) < 2e-6);
}

RC_GTEST_PROP(ModelProperties, ThePressureFunctionRisesFromZeroToOne, ()) {
  const double atmospheric = Between(11, 15);
  const double lower = atmospheric * Between(0, 1);
  const double higher = std::min(atmospheric, lower + (atmospheric - lower) * Between(0, 1));
  RC_ASSERT(P(lower, atmospheric) >= 0);
  RC_ASSERT(P(lower, atmospheric) <= P(higher, atmospheric));
  RC_ASSERT(P(higher, atmospheric) <= 1);
}

RC_GTEST_PROP(ModelProperties, ColumnsNeverLowerTheWithdrawalLoss, ()) {
  const double diameter = Between(20, 400), throughput = Between(0, 1e6);
  RC_ASSERT(WithDrawalLoss(throughput, 6.1, diameter, 0.0015, Columns(diameter), 1) >=
            WithDrawalLoss(throughput, 6.1, diameter, 0.0015, 0, 0));
}

RC_GTEST_PROP(ModelProperties, ALargerTankHasNoFewerFittings, ()) {
  const double smaller = Between(0, 450), larger = smaller + Between(0, 100);
  RC_ASSERT(Columns(smaller) <= Columns(larger));
  RC_ASSERT(StubDrains(smaller, "Bolted") <= StubDrains(larger, "Bolted"));
  RC_ASSERT(LegsIFRT(smaller) <= LegsIFRT(larger));
  RC_ASSERT(RoofDrains(smaller, "Double Deck") <= RoofDrains(larger, "Double Deck"));
  for (const char* deck : {"Pontoon", "Double Deck"}) RC_ASSERT(Breakers(smaller, deck) <= Breakers(larger, deck));
  RC_ASSERT(PontoonRoofLegs(smaller) <= PontoonRoofLegs(larger));
  RC_ASSERT(CenterRoofLegs(smaller) <= CenterRoofLegs(larger));
  RC_ASSERT(DoubleDeckRoofLegs(smaller) <= DoubleDeckRoofLegs(larger));
}

RC_GTEST_PROP(ModelProperties, AFormulaCountIsWithinHalfAFittingOfItsFormula, ()) {
  const double diameter = Between(0, 450);
  RC_ASSERT(std::abs(StubDrains(diameter, "Bolted") - (diameter * diameter / 125 + 0.49)) <= 0.5 + 1e-9);
  RC_ASSERT(std::abs(LegsIFRT(diameter) - (diameter / 10 + 5 + diameter * diameter / 600 + 0.49)) <= 0.5 + 1e-9);
}

}  // namespace
}  // namespace orvex::emission
