#include "emission/liquid_temperature.h"

#include "emission/arithmetic.h"

namespace orvex::emission {
namespace {

constexpr double kRankineOfZeroFahrenheit = 459.67;

/// A quarter of the daily vapor temperature range {R}: how far the surface swings to either side of its mean.
double SurfaceSwing(double ambient_max_r, double ambient_min_r, double absorptance, double insolation) {
  return 0.25 * (0.72 * (ambient_max_r - ambient_min_r) + 0.028 * absorptance * insolation);
}

}  // namespace

double BulkTemperature(double ambient_r, double absorptance) { return ambient_r + 6 * absorptance - 1; }

double ALST(double annual_ambient_r, double period_ambient_r, double absorptance, double insolation) {
  const double bulk_r = BulkTemperature(annual_ambient_r, absorptance);
  return Finite(0.44 * period_ambient_r + 0.56 * bulk_r + 0.0079 * absorptance * insolation);
}

double MaxLiquidTemp(double average_surface_r, double ambient_max_r, double ambient_min_r, double absorptance,
                     double insolation) {
  return average_surface_r + SurfaceSwing(ambient_max_r, ambient_min_r, absorptance, insolation);
}

double MinLiquidTemp(double average_surface_r, double ambient_max_r, double ambient_min_r, double absorptance,
                     double insolation) {
  return average_surface_r - SurfaceSwing(ambient_max_r, ambient_min_r, absorptance, insolation);
}

double FahrenheitToRankine(double fahrenheit) { return fahrenheit + kRankineOfZeroFahrenheit; }

double RankineToFahrenheit(double rankine) { return rankine - kRankineOfZeroFahrenheit; }

double RankineToCelsius(double rankine) { return (rankine - kRankineOfZeroFahrenheit - 32) / 1.8; }

double RankineToKelvin(double rankine) { return RankineToCelsius(rankine) + 273.15; }

}  // namespace orvex::emission
