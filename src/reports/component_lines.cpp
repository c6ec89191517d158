#include "reports/component_lines.h"

#include "reports/report_document.h"
#include "reports/report_text.h"
#include "shell/number_format.h"
#include "shell/tank_types.h"

namespace orvex::reports {
namespace {

/// A loss element and where its number comes from.
struct LossElement {
  const char* name;
  double Losses::*loss;
};

constexpr LossElement kFixedRoofElements[] = {{"WorkingLoss", &Losses::working}, {"BreathingLoss", &Losses::standing}};
constexpr LossElement kFloatingRoofElements[] = {{"RimSealLoss", &Losses::rim_seal},
                                                 {"WithdrawlLoss", &Losses::withdrawal},
                                                 {"DeckFittingLoss", &Losses::deck_fitting},
                                                 {"DeckSeamLoss", &Losses::deck_seam}};

}  // namespace

void AddComponent(pugi::xml_node parent, std::string_view tank_type, const EmissionLine& line, int indent) {
  const bool fixed_roof = shell::IsFixedRoof(tank_type);
  auto component = AddElement(parent, "COMPONENT");
  AddAttribute(component, "Type", tank_type);
  AddElement(component, "NAME", line.primary ? line.name : NoBreakSpaces(indent) + line.name);
  const auto add_losses = [&](const auto& elements) {
    for (const auto& element : elements)
      AddElement(component, element.name, shell::FormatTwoDecimals(line.losses.*element.loss));
  };
  if (fixed_roof) {
    add_losses(kFixedRoofElements);
  } else {
    add_losses(kFloatingRoofElements);
  }
  const double total = fixed_roof ? line.losses.FixedRoofTotal() : line.losses.FloatingRoofTotal();
  AddElement(component, "TotalEmissions", shell::FormatTwoDecimals(total));
}

}  // namespace orvex::reports
