#pragma once

#include "entry/entry_infos.h"
#include "entry/month_entries.h"

namespace orvex::entry {

inline constexpr shell::ControlText kFrmTankCommands[] = {
    {"tabPages", "", "The pages of the tank"},
    {"cmdSave", "&Save", "Store the tank as it stands"},
    {"cmdAbandon", "&Abandon Record", "Remove the tank, which has never been saved"},
    {"cmdCopy", "&Copy", "Take over the data of another tank of this type"},
    {"cmdRunReport", "&Run Report", "Save the tank, compute it and report on it"},
    {"cmdHelp", "&Help", "What this page is about"},
    {"cmdClose", "C&lose", "Leave the tank"},
    {"cmdSpecFitIT", "&View/Add Fittings", "The fittings of the deck, one by one"},
    {"cmdSpecFitET", "&View/Add Fittings", "The fittings of the roof, one by one"},
    {"lblMixtureXofX", "", "The mixture shown, of the tank's mixtures"},
    {"cmdCalcProp", "Calculate Mixture &Properties", "Compute temperatures, pressures, weights and density"},
    {"cmdAdd", "Add &Mixture", "Go on to the next mixture, making it if there is none"},
    {"cmdPrevMix", "Pr&evious", "Show the mixture before this one"},
    {"cmdNextMix", "&Next", "Show the mixture behind this one"},
    {"cmdDelete", "&Delete Mixture", "Remove the mixture shown"},
    {"cmdSpecCompPartial", "&View/Add Components", "The components of the mixture, one by one"},
    {"cmdSpecCompFull", "&View/Add Components", "The components of the mixture, one by one"},
    {"cmdCopySpecPartial", "C&opy Speciation Profile", "Take the components from a stored profile"},
    {"cmdCopySpecFull", "C&opy Speciation Profile", "Take the components from a stored profile"},
    {"txtThruSpec", "Annual Throughput Specified", "Net throughput of the physical page (gal/yr)"},
    {"txtTotalMonths", "Total for Months", "Sum of the twelve months (gal)"},
    {"cmdDistribute", "&Distribute Throughtput", "Give each month in use the same part of the annual throughput"},
    {"cmdFillMixName", "&Fill Mixture Names With First Mixture Name", "Give each month in use the first mixture"},
};

/// The entries, the months, and what is left.
constexpr auto FrmTankControls() {
  std::array<shell::ControlText, kEntryInfos.size() + 3 * kMonthTexts.size() + std::size(kFrmTankCommands)> all{};
  std::size_t at = 0;
  for (const auto& entry : kEntryInfos) all[at++] = entry.text;
  for (const auto& month : kMonthTexts)
    for (const auto& text : {month.chk, month.txtThru, month.cboMix}) all[at++] = text;
  for (const auto& text : kFrmTankCommands) all[at++] = text;
  return all;
}
inline constexpr auto kFrmTankControls = FrmTankControls();

/// The title is the tank's type while the window is open.
inline constexpr shell::WindowText kFrmTankText = {"frmTank", "Tank", "tank_entry", kFrmTankControls};

/// Topics of the help, in the order of `Page`.
inline constexpr std::string_view kPageTopics[] = {"tank_identification", "tank_physical", "tank_site", "tank_liquid",
                                                   "tank_months"};
/// Captions of the pages, in the order of `Page`.
inline constexpr std::string_view kPageCaptions[] = {"&Identification", "Ph&ysical Characteristics", "Si&te",
                                                     "Li&quid Contents", "Monthly Thro&ughput"};

}  // namespace orvex::entry
