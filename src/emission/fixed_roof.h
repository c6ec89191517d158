#pragma once

#include <string_view>

/// The fixed-roof equations as functions of numbers. Lengths in feet, temperatures in Rankine, pressures in psia (vents
/// in psig), losses in pounds. Failures are thrown (`arithmetic.h`). Source: KV-58 Section 7.1.
namespace orvex::emission {

/// A tank's shape as the outage routines take it.
struct RoofShape {
  std::string_view tank_type;
  std::string_view roof_type;    ///< "Cone", "Dome"
  double cone_slope;             ///< ft/ft
  double shell_height;           ///< ft
  double average_liquid_height;  ///< ft
  double roof_height;            ///< ft; 0 where it follows from slope or radius
};

/// Effective diameter D_E {ft}; `length` is the shell height or, of a horizontal tank, its length.
double EffDiam(double diameter, double length, std::string_view tank_type);

/// Roof outage H_RO {ft}, 0 for a roof type that is not known. A dome without roof height and radius takes the
/// effective diameter as its radius, and `dome_radius` then holds it. Error 5 for a dome radius shorter than the
/// tank's, 11 for a dome on a tank without diameter.
double HRO(const RoofShape& shape, double effective_diameter, double& dome_radius);

/// Vapor space outage H_VO {ft}, 0 for a roof type that is not known; `diameter` is the tank's actual one. Changes
/// `dome_radius` and fails as `HRO` does.
double HVO(const RoofShape& shape, double effective_diameter, double& dome_radius, double diameter);

/// Vapor space volume V_V {ft3}.
double VaporVolume(double outage_ft, double diameter_ft);

/// Vented vapor saturation factor K_S {-}.
double VaporSaturation(double vapor_pressure_psia, double outage_ft);

/// What the vapor space expansion factor depends on.
struct ExpansionInputs {
  double ambient_max_r, ambient_min_r;  ///< T_AX, T_AN {R}
  double absorptance, insolation;       ///< {-}, {Btu/(ft2 day)}
  double average_surface_r;             ///< T_LA {R}
  double atmospheric_psia;              ///< P_A
  double vent_pressure_psig, vent_vacuum_psig;
  double average_psia, maximum_psia, minimum_psia;  ///< P_VA, P_VX, P_VN
  bool heated;
};

/// Daily vapor temperature range {R}.
double VaporTemperatureRange(const ExpansionInputs& inputs);

/// Vapor space expansion factor K_E {-}; 0 where it would be below 0. Error 11 for a surface temperature of 0, or a
/// vapor pressure equal to the atmospheric.
double VaporExpansion(const ExpansionInputs& inputs);

/// Working loss product factor K_P {-}.
double KP(std::string_view category);

/// Turnover factor K_N {-} for turnovers a year.
double TurnoverFactor(double turnovers);

/// Working loss {lb} for a throughput {gal}.
double WorkingLoss(double vapor_molecular_weight, double vapor_pressure_psia, double throughput_gal,
                   double turnover_factor, double product_factor);

}  // namespace orvex::emission
