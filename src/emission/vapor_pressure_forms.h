#pragma once

#include <array>

/// The four ways in which a chemical's vapor pressure can be given, as functions of numbers. Source: KV-58 Section 7.1.
namespace orvex::emission {

/// Option 1: vapor pressures {psia} at 40, 50, ... 100 degrees F, straight lines between them, no extrapolation.
/// `surface_r` {R}.
double TabulatedVaporPressure(const std::array<double, 7>& table_psia, double surface_r);

/// Option 2: Antoine's equation with degrees C and mmHg; result {psia}. Error 11 where the temperature meets -C.
double AntoineVaporPressure(double a, double b, double c, double surface_r);

/// Option 3: two coefficients with kelvins and mmHg; result {psia}.
double KelvinVaporPressure(double a, double b, double surface_r);

/// Option 4 for crude oils, from the Reid vapor pressure {psi}; result {psia}. Error 5 for a Reid vapor pressure at or
/// below 0.
double CrudeOilVaporPressure(double reid_psi, double surface_r);

/// Option 4 for refined stocks, from the Reid vapor pressure {psi} and the ASTM distillation slope at 10 percent
/// {deg F per percent}; result {psia}. Error 5 for a Reid vapor pressure at or below 0 and a slope below 0.
double DistillateVaporPressure(double reid_psi, double astm_slope, double surface_r);

}  // namespace orvex::emission
