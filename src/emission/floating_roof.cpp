#include "emission/floating_roof.h"

#include "emission/arithmetic.h"
#include "shell/tank_types.h"

namespace orvex::emission {
namespace {

constexpr double kPi = 3.14159;             // to as many places as the deck seam length factor is computed with
constexpr double kFittingWindFactor = 0.7;  // of the ambient wind, what reaches a deck fitting

struct ClingageRow {
  std::string_view category;
  double light_rust;
  double dense_rust;
  double gunite_lining;
};

constexpr ClingageRow kClingage[] = {
    {shell::kPetroleumDistillates, 0.0015, 0.0075, 0.15},
    {shell::kOrganicLiquids, 0.0015, 0.0075, 0.15},
    {shell::kCrudeOils, 0.006, 0.03, 0.6},
};

}  // namespace

double KC(std::string_view category) { return category == shell::kCrudeOils ? 0.4 : 1; }

double P(double vapor_pressure_psia, double atmospheric_psia) {
  const double ratio = Divide(vapor_pressure_psia, atmospheric_psia);
  return Divide(ratio, SquareOf(1 + Power(1 - ratio, 0.5)));
}

double Clingage(std::string_view category, std::string_view shell_condition) {
  for (const ClingageRow& row : kClingage) {
    if (row.category != category) continue;
    if (shell_condition == "Light Rust") return row.light_rust;
    if (shell_condition == "Dense Rust") return row.dense_rust;
    if (shell_condition == "Gunite Lining") return row.gunite_lining;
  }
  return 0;
}

double RimSealFactor(double k_ra, double k_rb, double exponent, double wind_mph) {
  return Finite(k_ra + k_rb * Power(wind_mph, exponent));
}

double WithDrawalLoss(double throughput_bbl, double liquid_density, double diameter_ft, double clingage, double columns,
                      double column_diameter_ft) {
  return Finite(Divide(0.943 * throughput_bbl * clingage * liquid_density, diameter_ft) *
                (1 + Divide(columns * column_diameter_ft, diameter_ft)));
}

double DeckFittingFactor(double quantity, double k_fa, double k_fb, double exponent, double wind_mph) {
  return Finite(quantity * (k_fa + k_fb * Power(kFittingWindFactor * wind_mph, exponent)));
}

double DeckSeamLoss(double diameter_ft, double pressure_function, double vapor_molecular_weight, double product_factor,
                    double k_d, double& s_d, double seam_length_ft) {
  if (seam_length_ft > 0) s_d = Divide(4 * seam_length_ft, SquareOf(diameter_ft) * kPi);
  return Finite(SquareOf(diameter_ft) * (k_d * s_d) * pressure_function * vapor_molecular_weight * product_factor);
}

}  // namespace orvex::emission
