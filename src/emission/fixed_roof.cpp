#include "emission/fixed_roof.h"

#include <optional>

#include "emission/arithmetic.h"
#include "emission/constants.h"
#include "shell/tank_types.h"

namespace orvex::emission {
namespace {

constexpr double kPi = 3.14159265;  // to as many places as the vapor space volume is computed with

double ConeOutage(const RoofShape& shape, double effective_diameter) {
  if (shape.roof_height > 0) return shape.roof_height / 3;
  return (shape.cone_slope * effective_diameter / 2) / 3;
}

double DomeOutage(const RoofShape& shape, double effective_diameter, double& dome_radius) {
  const double shell_radius = effective_diameter / 2;
  double height = shape.roof_height;
  if (!(height > 0)) {
    if (dome_radius == 0) dome_radius = effective_diameter;
    height = dome_radius - SquareRoot(SquareOf(dome_radius) - SquareOf(shell_radius));
  }
  return height * (1.0 / 2 + (1.0 / 6) * SquareOf(Divide(height, shell_radius)));
}

/// The outage under the roof of a vertical tank; none for a roof type that is not known.
std::optional<double> RoofOutage(const RoofShape& shape, double effective_diameter, double& dome_radius) {
  if (shape.roof_type == "Cone") return ConeOutage(shape, effective_diameter);
  if (shape.roof_type == "Dome") return DomeOutage(shape, effective_diameter, dome_radius);
  return std::nullopt;
}

}  // namespace

double EffDiam(double diameter, double length, std::string_view tank_type) {
  if (tank_type == shell::kVerticalFixedRoof) return diameter;
  return SquareRoot(length * diameter / 0.785);
}

double HRO(const RoofShape& shape, double effective_diameter, double& dome_radius) {
  if (shape.tank_type != shell::kVerticalFixedRoof) return 0;
  return Finite(RoofOutage(shape, effective_diameter, dome_radius).value_or(0));
}

double HVO(const RoofShape& shape, double effective_diameter, double& dome_radius, double diameter) {
  if (shape.tank_type != shell::kVerticalFixedRoof) return diameter / 2;
  const auto roof_outage = RoofOutage(shape, effective_diameter, dome_radius);
  if (!roof_outage) return 0;
  return Finite(shape.shell_height - shape.average_liquid_height + *roof_outage);
}

double VaporVolume(double outage_ft, double diameter_ft) {
  return Finite(((kPi / 4) * SquareOf(diameter_ft)) * outage_ft);
}

double VaporSaturation(double vapor_pressure_psia, double outage_ft) {
  return Divide(1, 1 + 0.053 * vapor_pressure_psia * outage_ft);
}

double VaporTemperatureRange(const ExpansionInputs& inputs) {
  const double ambient_range = inputs.ambient_max_r - inputs.ambient_min_r;
  if (inputs.heated) return ambient_range;
  return 0.72 * ambient_range + 0.028 * inputs.absorptance * inputs.insolation;
}

double VaporExpansion(const ExpansionInputs& inputs) {
  const double pressure_range = inputs.maximum_psia - inputs.minimum_psia;
  const double vent_range = inputs.vent_pressure_psig - inputs.vent_vacuum_psig;
  const double factor = Finite(Divide(VaporTemperatureRange(inputs), inputs.average_surface_r) +
                               Divide(pressure_range - vent_range, inputs.atmospheric_psia - inputs.average_psia));
  return factor < 0 ? 0 : factor;
}

double KP(std::string_view category) { return category == shell::kCrudeOils ? 0.75 : 1; }

double TurnoverFactor(double turnovers) {
  if (turnovers <= 36) return 1;
  return Divide(180 + turnovers, 6 * turnovers);
}

double WorkingLoss(double vapor_molecular_weight, double vapor_pressure_psia, double throughput_gal,
                   double turnover_factor, double product_factor) {
  return Finite(0.001 * vapor_molecular_weight * vapor_pressure_psia * (throughput_gal / kGallonsPerBarrel) *
                turnover_factor * product_factor);
}

}  // namespace orvex::emission
