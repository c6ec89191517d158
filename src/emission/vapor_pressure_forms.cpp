#include "emission/vapor_pressure_forms.h"

#include <cstddef>

#include "emission/arithmetic.h"
#include "emission/liquid_temperature.h"

namespace orvex::emission {
namespace {

constexpr double kPsiaPerMmHg = 14.696 / 760;

// The temperatures {deg F} of the tabulated form.
constexpr double kFirst = 40;
constexpr double kLast = 100;
constexpr double kStep = 10;

}  // namespace

double TabulatedVaporPressure(const std::array<double, 7>& table_psia, double surface_r) {
  const double fahrenheit = RankineToFahrenheit(Finite(surface_r));
  if (fahrenheit < kFirst) return table_psia.front();
  if (fahrenheit > kLast) return table_psia.back();
  std::size_t band = 0;
  double low = kFirst;
  while (fahrenheit > low + kStep) {
    low += kStep;
    ++band;
  }
  return table_psia[band] + ((fahrenheit - low) / kStep) * (table_psia[band + 1] - table_psia[band]);
}

double AntoineVaporPressure(double a, double b, double c, double surface_r) {
  const double mmhg = Power(10, a - Divide(b, RankineToCelsius(surface_r) + c));
  return mmhg * kPsiaPerMmHg;
}

double KelvinVaporPressure(double a, double b, double surface_r) {
  const double mmhg = Power(10, Divide(-0.05223 * a, RankineToKelvin(surface_r)) + b);
  return mmhg * kPsiaPerMmHg;
}

double CrudeOilVaporPressure(double reid_psi, double surface_r) {
  const double log_reid = NaturalLog(reid_psi);
  const double a = 12.82 - 0.9672 * log_reid;
  const double b = 7261 - 1216 * log_reid;
  return Exponential(a - Divide(b, surface_r));
}

double DistillateVaporPressure(double reid_psi, double astm_slope, double surface_r) {
  const double root = Power(astm_slope, 0.5);
  const double log_reid = NaturalLog(reid_psi);
  const double a = 15.64 - 1.854 * root - (0.8742 - 0.328 * root) * log_reid;
  const double b = 8742 - 1042 * root - (1049 - 179.4 * root) * log_reid;
  return Exponential(a - Divide(b, surface_r));
}

}  // namespace orvex::emission
