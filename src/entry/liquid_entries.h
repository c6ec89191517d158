#pragma once

#include "entry/entry_makers.h"
#include "shell/choices.h"

namespace orvex::entry {

/// What every liquid has.
inline constexpr EntryInfo kMixtureEntries[] = {
    makers::Choice(Section::kMixture, "Liquid", "C_CATEGORY", "cboChemCat", "Chemical Category of Liquid:",
                   "Kind of the liquid; the list of names follows it", shell::kCategories),
    makers::Choice(Section::kMixture, "Liquid", "COMPONENT", "cboSingleMultiple", "Single or Multi-Component Liquid:",
                   "Whether the liquid is one chemical or made of several", kComponentKinds),
    makers::Choice(Section::kMixture, "Liquid", "SPEC_OPT", "cboSpecOpt",
                   "Speciation Option:", "By what the loss is divided between the components"),
};

/// A single chemical.
inline constexpr EntryInfo kSingleEntries[] = {
    makers::Choice(Section::kSingle, "Chemical", "MIX NAME", "dbcboChemName",
                   "Chemical Name:", "The chemical; type a part of its name to find it"),
    makers::Choice(Section::kSingle, "Chemical", "CAS", "dbcboCAS",
                   "CAS Number:", "Its number in the registry; type a part of it to find it"),
    makers::Number(
        Section::kSingle, "Liquid Temperatures", "ALS_TEMP", "txtALSSingle",
        "Average Liquid Surface Temperature (F):", "Average temperature of the surface of the liquid, T_LA (F)"),
    makers::Number(Section::kSingle, "Liquid Temperatures", "MLS_TEMP", "txtMLSSingle",
                   "Minimum Liquid Surface Temperature (F):", "Average of the coldest surface of the days, T_LN (F)",
                   Roofs::kFixed),
    makers::Number(Section::kSingle, "Liquid Temperatures", "XLS_TEMP", "txtXLSSingle",
                   "Maximum Liquid Surface Temperature (F):", "Average of the warmest surface of the days, T_LX (F)",
                   Roofs::kFixed),
    makers::Number(Section::kSingle, "Liquid Temperatures", "BULK_TEMP", "txtBulkSingle",
                   "Bulk Liquid Temperature (F):", "Temperature of the liquid below its surface, T_B (F)",
                   Roofs::kFixed),
    makers::Number(Section::kSingle, "Properties", "VP", "txtVPSingle",
                   "Vapor Pressure (psia):", "True vapor pressure at the average surface temperature, P_VA (psia)"),
    makers::Number(Section::kSingle, "Properties", "MOLWT", "txtMolWtSingle",
                   "Liquid Molecular Weight:", "Molecular weight of the liquid, M_L (lb/lb-mole)"),
    makers::Number(Section::kSingle, "Properties", "VP_MOLWT", "txtVPMolWtSingle",
                   "Vapor Molecular Weight:", "Molecular weight of the vapor, M_V (lb/lb-mole)"),
    makers::Number(Section::kSingle, "Properties", "L_DENS", "txtLDensSingle",
                   "Liquid Density (lb/gal):", "Density of the liquid at 60 F, W_L (lb/gal)", Roofs::kFloating),
};

/// A mixture of which a part of the components, or none, is known.
inline constexpr EntryInfo kPartialEntries[] = {
    makers::TypedChoice(Section::kPartial, "Mixture", "MIX NAME", "dbcboMixNamePartial", "Mixture Name:",
                        "Name of the mixture; choose a liquid of the category or type one of your own"),
    makers::Number(
        Section::kPartial, "Liquid Temperatures", "ALS_TEMP", "txtALSPartial",
        "Average Liquid Surface Temperature (F):", "Average temperature of the surface of the liquid, T_LA (F)"),
    makers::Number(Section::kPartial, "Liquid Temperatures", "MLS_TEMP", "txtMLSPartial",
                   "Minimum Liquid Surface Temperature (F):", "Average of the coldest surface of the days, T_LN (F)",
                   Roofs::kFixed),
    makers::Number(Section::kPartial, "Liquid Temperatures", "XLS_TEMP", "txtXLSPartial",
                   "Maximum Liquid Surface Temperature (F):", "Average of the warmest surface of the days, T_LX (F)",
                   Roofs::kFixed),
    makers::Number(Section::kPartial, "Liquid Temperatures", "BULK_TEMP", "txtBulkPartial",
                   "Bulk Liquid Temperature (F):", "Temperature of the liquid below its surface, T_B (F)",
                   Roofs::kFixed),
    makers::Number(Section::kPartial, "Properties", "VP", "txtVPPartial",
                   "Vapor Pressure (psia):", "True vapor pressure at the average surface temperature, P_VA (psia)"),
    makers::Number(Section::kPartial, "Properties", "VP_MIN", "txtVPMinPartial", "Minimum Vapor Pressure (psia):",
                   "True vapor pressure at the minimum surface temperature, P_VN (psia)", Roofs::kFixed),
    makers::Number(Section::kPartial, "Properties", "VP_MAX", "txtVPMaxPartial", "Maximum Vapor Pressure (psia):",
                   "True vapor pressure at the maximum surface temperature, P_VX (psia)", Roofs::kFixed),
    makers::Number(Section::kPartial, "Properties", "MOLWT", "txtMolWtPartial",
                   "Liquid Molecular Weight:", "Molecular weight of the liquid, M_L (lb/lb-mole)"),
    makers::Number(Section::kPartial, "Properties", "VP_MOLWT", "txtVPMolWtPartial",
                   "Vapor Molecular Weight:", "Molecular weight of the vapor, M_V (lb/lb-mole)"),
    makers::Number(Section::kPartial, "Properties", "L_DENS", "txtLDensPartial",
                   "Liquid Density (lb/gal):", "Density of the liquid at 60 F, W_L (lb/gal)", Roofs::kFloating),
};

/// A mixture of which all components are known.
inline constexpr EntryInfo kFullEntries[] = {
    makers::TypedChoice(Section::kFull, "Mixture", "MIX NAME", "dbcboMixNameFull", "Mixture Name:",
                        "Name of the mixture; choose a liquid of the category or type one of your own"),
    makers::Number(
        Section::kFull, "Liquid Temperatures", "ALS_TEMP", "txtALSFull",
        "Average Liquid Surface Temperature (F):", "Average temperature of the surface of the liquid, T_LA (F)"),
    makers::Number(Section::kFull, "Liquid Temperatures", "MLS_TEMP", "txtMLSFull",
                   "Minimum Liquid Surface Temperature (F):", "Average of the coldest surface of the days, T_LN (F)",
                   Roofs::kFixed),
    makers::Number(Section::kFull, "Liquid Temperatures", "XLS_TEMP", "txtXLSFull",
                   "Maximum Liquid Surface Temperature (F):", "Average of the warmest surface of the days, T_LX (F)",
                   Roofs::kFixed),
    makers::Number(Section::kFull, "Liquid Temperatures", "BULK_TEMP", "txtBulkFull", "Bulk Liquid Temperature (F):",
                   "Temperature of the liquid below its surface, T_B (F)", Roofs::kFixed),
    makers::Number(Section::kFull, "Properties", "VP", "txtVPFull",
                   "Vapor Pressure (psia):", "True vapor pressure at the average surface temperature, P_VA (psia)"),
    makers::Number(Section::kFull, "Properties", "MOLWT", "txtMolWtFull",
                   "Liquid Molecular Weight:", "Molecular weight of the liquid, M_L (lb/lb-mole)"),
    makers::Number(Section::kFull, "Properties", "VP_MOLWT", "txtVPMolWtFull",
                   "Vapor Molecular Weight:", "Molecular weight of the vapor, M_V (lb/lb-mole)"),
    makers::Number(Section::kFull, "Properties", "L_DENS", "txtLDensFull",
                   "Liquid Density (lb/gal):", "Density of the liquid at 60 F, W_L (lb/gal)", Roofs::kFloating),
};

}  // namespace orvex::entry
