#pragma once

#include "entry/entry_makers.h"

namespace orvex::entry {

/// A vertical fixed roof tank.
inline constexpr EntryInfo kVerticalEntries[] = {
    makers::Number(Section::kVertical, "Dimensions", "HEIGHT S", "txtShellHeightVT",
                   "Shell Height (ft):", "Height of the shell, H_S (ft), from 5 to 65"),
    makers::Number(Section::kVertical, "Dimensions", "DIAMETER", "txtDiameterVT",
                   "Shell Diameter (ft):", "Diameter of the shell, D (ft)"),
    makers::Number(Section::kVertical, "Dimensions", "HEIGHT ML", "txtMaxLiquidHeightVT",
                   "Maximum Liquid Height (ft):", "Height of the liquid in the full tank, H_LX (ft)"),
    makers::Number(Section::kVertical, "Dimensions", "HEIGHT AL", "txtAvgLiquidHeightVT",
                   "Average Liquid Height (ft):", "Height of the liquid on the average, H_L (ft)"),
    makers::Number(Section::kVertical, "Throughput", "VOLUME", "txtVolumeVT",
                   "Working Volume (gal):", "Volume that the liquid can fill, V (gal)"),
    makers::Number(Section::kVertical, "Throughput", "TURNOVER", "txtTurnoverVT", "Turnovers per Year:",
                   "How often a year the tank is filled, N (per year): net throughput over volume"),
    makers::Number(Section::kVertical, "Throughput", "Q_NET", "txtThroughputVT",
                   "Net Throughput (gal/yr):", "Liquid pumped in over a year, Q (gal/yr)"),
    makers::YesNo(Section::kVertical, "Throughput", "HEATED", "cboHeatedVT", "Is Tank Heated?",
                  "Whether the liquid is kept warm, so that its temperatures are entered by hand"),
    makers::Choice(Section::kVertical, "Paint", "SHL COLSHD", "cboShellColorVT", "Shell Color/Shade:",
                   "Paint of the shell; with its condition it gives the solar absorptance", kColors),
    makers::Choice(Section::kVertical, "Paint", "PT_COND", "cboShellCondVT",
                   "Shell Condition:", "Condition of the paint of the shell", kConditions),
    makers::Choice(Section::kVertical, "Roof", "RF_TYPE", "cboRoofTypeVT",
                   "Roof Type:", "Form of the roof: a cone or a dome", kFixedRoofTypes),
    makers::Number(Section::kVertical, "Roof", "RF_HEIGHT", "txtRoofHeightVT",
                   "Roof Height (ft):", "Height of the roof above the shell, H_R (ft)"),
    makers::Number(Section::kVertical, "Roof", "C_SLOPE", "txtConeSlopeVT",
                   "Cone Slope (ft/ft):", "Slope of a cone roof, S_R (ft/ft); 0.0625 is usual"),
    makers::Number(Section::kVertical, "Roof", "D_RADIUS", "txtDomeRadiusVT",
                   "Dome Radius (ft):", "Radius of a dome roof, R_R (ft); the diameter of the shell is usual"),
    makers::Choice(Section::kVertical, "Paint", "RF_COLSHD", "cboRoofColorVT", "Roof Color/Shade:",
                   "Paint of the roof; with its condition it gives the solar absorptance", kColors),
    makers::Choice(Section::kVertical, "Paint", "RF_COND", "cboRoofCondVT",
                   "Roof Condition:", "Condition of the paint of the roof", kConditions),
    makers::Number(Section::kVertical, "Breather Vent Settings", "VENT_V", "txtVacuumVT",
                   "Vacuum Setting (psig):", "Vacuum at which the vent opens, P_BV (psig), from -1 to 0"),
    makers::Number(Section::kVertical, "Breather Vent Settings", "VENT_P", "txtPressureVT",
                   "Pressure Setting (psig):", "Pressure at which the vent opens, P_BP (psig), from 0 to 1"),
};

/// A horizontal tank.
inline constexpr EntryInfo kHorizontalEntries[] = {
    makers::Number(Section::kHorizontal, "Dimensions", "HEIGHT S", "txtLengthHT",
                   "Shell Length (ft):", "Length of the shell, L (ft), from 5 to 75"),
    makers::Number(Section::kHorizontal, "Dimensions", "DIAMETER", "txtDiameterHT",
                   "Shell Diameter (ft):", "Diameter of the shell, D (ft), from 3 to 20"),
    makers::Number(Section::kHorizontal, "Throughput", "VOLUME", "txtVolumeHT",
                   "Working Volume (gal):", "Volume that the liquid can fill, V (gal)"),
    makers::Number(Section::kHorizontal, "Throughput", "TURNOVER", "txtTurnoverHT", "Turnovers per Year:",
                   "How often a year the tank is filled, N (per year): net throughput over volume"),
    makers::Number(Section::kHorizontal, "Throughput", "Q_NET", "txtThroughputHT",
                   "Net Throughput (gal/yr):", "Liquid pumped in over a year, Q (gal/yr)"),
    makers::YesNo(Section::kHorizontal, "Throughput", "HEATED", "cboHeatedHT", "Is Tank Heated?",
                  "Whether the liquid is kept warm, so that its temperatures are entered by hand"),
    makers::YesNo(Section::kHorizontal, "Throughput", "UNDER", "cboUndergroundHT", "Is the Tank Underground?",
                  "Whether the ground keeps the sun from the tank"),
    makers::Choice(Section::kHorizontal, "Paint", "SHL COLSHD", "cboShellColorHT", "Shell Color/Shade:",
                   "Paint of the shell; with its condition it gives the solar absorptance", kColors),
    makers::Choice(Section::kHorizontal, "Paint", "PT_COND", "cboShellCondHT",
                   "Shell Condition:", "Condition of the paint of the shell", kConditions),
    makers::Number(Section::kHorizontal, "Breather Vent Settings", "VENT_V", "txtVacuumHT",
                   "Vacuum Setting (psig):", "Vacuum at which the vent opens, P_BV (psig), from -1 to 0"),
    makers::Number(Section::kHorizontal, "Breather Vent Settings", "VENT_P", "txtPressureHT",
                   "Pressure Setting (psig):", "Pressure at which the vent opens, P_BP (psig), from 0 to 1"),
};

}  // namespace orvex::entry
