#pragma once

#include "entry/entry_makers.h"
#include "shell/choices.h"

namespace orvex::entry {

/// An internal floating roof tank.
inline constexpr EntryInfo kInternalEntries[] = {
    makers::Number(Section::kInternal, "Dimensions", "DIAMETER", "txtDiameterIT",
                   "Diameter (ft):", "Diameter of the shell, D (ft)"),
    makers::Number(Section::kInternal, "Throughput", "VOLUME", "txtVolumeIT",
                   "Tank Volume (gal):", "Volume that the liquid can fill, V (gal)"),
    makers::Number(Section::kInternal, "Throughput", "TURNOVER", "txtTurnoverIT", "Turnovers per Year:",
                   "How often a year the tank is filled, N (per year): net throughput over volume"),
    makers::Number(Section::kInternal, "Throughput", "Q_NET", "txtThroughputIT",
                   "Net Throughput (gal/yr):", "Liquid pumped in over a year, Q (gal/yr)"),
    makers::YesNo(Section::kInternal, "Columns", "SELF_SUP", "cboSelfSupIT", "Self Supporting Roof?",
                  "Whether the fixed roof stands without columns"),
    makers::Number(Section::kInternal, "Columns", "COL_NO", "txtColumnsIT",
                   "Number of Columns:", "Columns that bear the fixed roof, N_C; press Enter for an estimate"),
    makers::TypedChoice(Section::kInternal, "Columns", "COL_DIAM", "cboColumnDiamIT", "Effective Column Diameter (ft):",
                        "Diameter that stands for the form of the columns, F_C (ft); choose one or type a number",
                        kColumnDiameters),
    makers::Choice(Section::kInternal, "Paint", "SHL_COND", "cboInternalCondIT",
                   "Internal Shell Condition:", "What clings to the wetted shell: rust or lining", kShellInsides),
    makers::Choice(Section::kInternal, "Paint", "SHL COLSHD", "cboShellColorIT", "Shell Color/Shade:",
                   "Paint of the shell; with its condition it gives the solar absorptance", kColors),
    makers::Choice(Section::kInternal, "Paint", "PT_COND", "cboShellCondIT",
                   "Shell Condition:", "Condition of the paint of the shell", kConditions),
    makers::Choice(Section::kInternal, "Paint", "RF_COLSHD", "cboRoofColorIT", "Roof Color/Shade:",
                   "Paint of the roof; with its condition it gives the solar absorptance", kColors),
    makers::Choice(Section::kInternal, "Paint", "RF_COND", "cboRoofCondIT",
                   "Roof Condition:", "Condition of the paint of the roof", kConditions),
    makers::Choice(Section::kInternal, "Rim Seal System", "RIM_PRIM", "cboPrimaryIT",
                   "Primary Seal:", "Lower seal between the floating roof and the shell"),
    makers::Choice(Section::kInternal, "Rim Seal System", "RIM_SEC", "cboSecondaryIT",
                   "Secondary Seal:", "Seal above the primary one; the list follows the primary seal"),
    makers::Choice(Section::kInternal, "Deck", "DECK_TYPE", "cboDeckTypeIT",
                   "Deck Type:", "How the parts of the deck are joined; a welded deck has no seam loss", kDeckTypes),
    makers::Choice(Section::kInternal, "Deck", "FITTING", "cboFittingIT", "Deck Fitting Category:",
                   "Whether the fittings are the typical ones of such a tank or your own", kFittingCategories),
    makers::Choice(Section::kInternal, "Deck", "DECK_CONSTRUCT", "cboDeckConstructIT", "Deck Construction:",
                   "Whether the bolted deck is made of sheets or panels", shell::kDeckConstructions),
    makers::Choice(Section::kInternal, "Deck", "DECK_SEAM", "cboDeckSeamIT",
                   "Deck Seam:", "Width of the sheets, or size of the panels"),
    makers::Number(Section::kInternal, "Deck", "DECK_SEAM_LENGTH", "txtDeckSeamLengthIT",
                   "Deck Seam Length (ft):", "Length of all seams of the deck, L_SEAM (ft)"),
    makers::Number(Section::kInternal, "Deck", "SD", "txtSDIT", "Deck Seam Factor (ft/sq ft):",
                   "Length of seam on a square foot of deck, S_D (ft/sq ft); comes with the deck seam"),
};

/// An external or domed external floating roof tank.
inline constexpr EntryInfo kExternalEntries[] = {
    makers::Number(Section::kExternal, "Dimensions", "DIAMETER", "txtDiameterET",
                   "Diameter (ft):", "Diameter of the shell, D (ft)"),
    makers::Number(Section::kExternal, "Throughput", "VOLUME", "txtVolumeET",
                   "Tank Volume (gal):", "Volume that the liquid can fill, V (gal)"),
    makers::Number(Section::kExternal, "Throughput", "TURNOVER", "txtTurnoverET", "Turnovers per Year:",
                   "How often a year the tank is filled, N (per year): net throughput over volume"),
    makers::Number(Section::kExternal, "Throughput", "Q_NET", "txtThroughputET",
                   "Net Throughput (gal/yr):", "Liquid pumped in over a year, Q (gal/yr)"),
    makers::Choice(Section::kExternal, "Paint", "SHL_COND", "cboInternalCondET",
                   "Internal Shell Condition:", "What clings to the wetted shell: rust or lining", kShellInsides),
    makers::Choice(Section::kExternal, "Paint", "SHL COLSHD", "cboShellColorET", "Shell Color/Shade:",
                   "Paint of the shell; with its condition it gives the solar absorptance", kColors),
    makers::Choice(Section::kExternal, "Paint", "PT_COND", "cboShellCondET",
                   "Shell Condition:", "Condition of the paint of the shell", kConditions),
    makers::Choice(Section::kExternal, "Roof", "RF_TYPE", "cboRoofTypeET", "Roof Type:", "Form of the floating roof",
                   kFloatingRoofTypes),
    makers::Choice(Section::kExternal, "Roof", "FITTING", "cboFittingET", "Roof Fitting Category:",
                   "Whether the fittings are the typical ones of such a tank or your own", kFittingCategories),
    makers::Choice(Section::kExternal, "Rim Seal System", "TANK_CONSTRUCT", "cboConstructET",
                   "Tank Construction:", "How the plates of the shell are joined", shell::kConstructions),
    makers::Choice(Section::kExternal, "Rim Seal System", "RIM_PRIM", "cboPrimaryET",
                   "Primary Seal:", "Lower seal between the floating roof and the shell"),
    makers::Choice(Section::kExternal, "Rim Seal System", "RIM_SEC", "cboSecondaryET",
                   "Secondary Seal:", "Seal above the primary one; the list follows the primary seal"),
};

}  // namespace orvex::entry
