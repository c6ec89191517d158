#include "reports/chem_opt.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "shell/number_format.h"
#include "shell/tank_types.h"
#include "shell/trap.h"
#include "store/record_set.h"

namespace orvex::reports {
namespace {

using store::RecordSet;

constexpr std::array<std::string_view, 7> kTablePoints = {"VP_40", "VP_50", "VP_60", "VP_70",
                                                          "VP_80", "VP_90", "VP_100"};

/// Which points of the table by temperature are told up to a temperature.
struct TemperatureBand {
  double up_to_f;
  std::string_view low_point, low_label;
  std::string_view high_point, high_label;
};

/// In order; the first band that holds the temperature counts. None tells the point at 100 deg F.
constexpr TemperatureBand kBands[] = {
    {40, "VP_40", "VP40", "", ""},          {50, "VP_40", "VP40", "VP_50", "VP50"},
    {60, "VP_50", "VP50", "VP_60", "VP60"}, {70, "VP_60", "VP60", "VP_70", "VP70"},
    {90, "VP_70", "VP70", "VP_80", "VP80"}, {100, "VP_80", "VP80", "VP_90", "VP90"},
};

std::string Number(RecordSet& chemical, std::string_view field) { return shell::PlainDecimal(chemical.Double(field)); }

bool IsGiven(RecordSet& chemical, std::string_view field) { return chemical.DoubleOrZero(field) != 0; }

std::string TableText(RecordSet& chemical, double temperature_f) {
  for (const auto& band : kBands) {
    if (temperature_f > band.up_to_f) continue;
    auto text = fmt::format("Option 1: {} = {}", band.low_label, Number(chemical, band.low_point));
    if (!band.high_point.empty()) text += fmt::format(" {} = {}", band.high_label, Number(chemical, band.high_point));
    return text;
  }
  return {};
}

/// What all categories have in common.
std::string CoefficientsOrTable(RecordSet& chemical, double temperature_f) {
  if (IsGiven(chemical, "VP_COEF_B"))
    return fmt::format("Option 2: A={}, B={}, C={}", Number(chemical, "VP_COEF_A"), Number(chemical, "VP_COEF_B"),
                       Number(chemical, "VP_COEF_C"));
  if (IsGiven(chemical, "VP_2_A") && IsGiven(chemical, "VP_2_B"))
    return fmt::format("Option 3: A={}, B={}", Number(chemical, "VP_2_A"), Number(chemical, "VP_2_B"));
  if (std::ranges::all_of(kTablePoints, [&](auto point) { return IsGiven(chemical, point); }))
    return TableText(chemical, temperature_f);
  return {};
}

std::string BasisText(RecordSet& chemical, double temperature_f) {
  const auto category = chemical.TextOrEmpty("CATEGORY");
  const bool has_reid = chemical.DoubleOrZero("REID") > 0;
  if (category == shell::kCrudeOils) {
    if (has_reid) return "Option 4: RVP=" + Number(chemical, "REID");
  } else if (category == shell::kPetroleumDistillates) {
    if (has_reid && chemical.DoubleOrZero("ASTM_SLOPE") > 0)
      return fmt::format("Option 4: RVP={}, ASTM Slope={}", Number(chemical, "REID"), Number(chemical, "ASTM_SLOPE"));
  } else if (category != shell::kOrganicLiquids) {
    return {};
  }
  return CoefficientsOrTable(chemical, temperature_f);
}

}  // namespace

std::string ChemOpt(shell::Session& session, std::string_view name, double temperature_f) {
  return shell::Trapped(session, "frmPreview.ChemOpt", std::string(), [&]() -> std::string {
    auto chemical = session.ReferenceDb->OpenTable("chemical");
    chemical.SetIndex("chemname");
    chemical.Seek({name});
    return chemical.NoMatch() ? std::string() : BasisText(chemical, temperature_f);
  });
}

}  // namespace orvex::reports
