#pragma once

#include <string_view>

/// The floating-roof equations as functions of numbers. Lengths in feet, wind in mph, pressures in psia, losses in
/// pounds. Failures are thrown (`arithmetic.h`). Source: KV-58 Section 7.1.
namespace orvex::emission {

/// Product factor K_C {-}.
double KC(std::string_view category);

/// Vapor pressure function P* {-}. Error 11 for an atmospheric pressure of 0, 5 for a vapor pressure above it.
double P(double vapor_pressure_psia, double atmospheric_psia);

/// Clingage factor C {bbl per 1000 ft2}; 0 for an unknown category or condition.
double Clingage(std::string_view category, std::string_view shell_condition);

/// Rim seal loss factor K_R {lb-mole/(ft yr)} at a wind {mph}.
double RimSealFactor(double k_ra, double k_rb, double exponent, double wind_mph);

/// Withdrawal loss {lb} of a throughput {bbl}, liquid density {lb/gal}, diameter {ft}, clingage {bbl per 1000 ft2},
/// columns {-} and effective column diameter {ft}. Error 11 for a diameter of 0.
double WithDrawalLoss(double throughput_bbl, double liquid_density, double diameter_ft, double clingage, double columns,
                      double column_diameter_ft);

/// Loss factor {lb-mole/yr} of one fitting at a wind {mph}, times its quantity.
double DeckFittingFactor(double quantity, double k_fa, double k_fb, double exponent, double wind_mph);

/// Deck seam loss {lb/yr}. A seam length {ft} above 0 replaces the seam length factor S_D {ft/ft2}.
double DeckSeamLoss(double diameter_ft, double pressure_function, double vapor_molecular_weight, double product_factor,
                    double k_d, double& s_d, double seam_length_ft);

}  // namespace orvex::emission
