#include "emission/vapor_pressure.h"

#include <algorithm>
#include <array>

#include "emission/routine.h"
#include "emission/vapor_pressure_forms.h"
#include "shell/tank_types.h"

namespace orvex::emission {
namespace {

/// By the first form of an organic liquid that its row fills, in the order in which they are preferred. The Antoine
/// form is chosen by its coefficient B alone.
double OrganicLiquid(store::RecordSet& chemical, double T) {
  if (const double b = chemical.DoubleOrZero("VP_COEF_B"); b != 0) {
    if (chemical.IsNull("VP_COEF_A") || chemical.IsNull("VP_COEF_C")) return 0;
    return AntoineVaporPressure(chemical.Double("VP_COEF_A"), b, chemical.Double("VP_COEF_C"), T);
  }
  const double a2 = chemical.DoubleOrZero("VP_2_A");
  const double b2 = chemical.DoubleOrZero("VP_2_B");
  if (a2 != 0 && b2 != 0) return KelvinVaporPressure(a2, b2, T);

  static constexpr std::array<std::string_view, 7> kTableFields = {"VP_40", "VP_50", "VP_60", "VP_70",
                                                                   "VP_80", "VP_90", "VP_100"};
  std::array<double, 7> table{};
  std::transform(kTableFields.begin(), kTableFields.end(), table.begin(),
                 [&](std::string_view field) { return chemical.DoubleOrZero(field); });
  if (std::find(table.begin(), table.end(), 0.0) != table.end()) return 0;
  return TabulatedVaporPressure(table, T);
}

double FromChemical(store::RecordSet& chemical, double T) {
  const std::string category = chemical.TextOrEmpty("CATEGORY");
  if (category == shell::kOrganicLiquids) return OrganicLiquid(chemical, T);
  const double reid = chemical.DoubleOrZero("REID");
  if (reid <= 0) return 0;
  if (category == shell::kCrudeOils) return CrudeOilVaporPressure(reid, T);
  if (category == shell::kPetroleumDistillates) {
    const double slope = chemical.DoubleOrZero("ASTM_SLOPE");
    return slope > 0 ? DistillateVaporPressure(reid, slope, T) : 0;
  }
  return 0;
}

store::RecordSet SeekChemical(shell::Session& session, std::string_view name) {
  return session.ReferenceDb->OpenAt("chemical", "chemname", {name});
}

}  // namespace

bool IsChemical(shell::Session& session, std::string_view name) { return !SeekChemical(session, name).NoMatch(); }

double PVA(shell::Session& session, std::string_view Name, double T) {
  return Routine(session, "modEmission.PVA", [&] {
    auto chemical = SeekChemical(session, Name);
    return chemical.NoMatch() ? 0 : FromChemical(chemical, T);
  });
}

}  // namespace orvex::emission
