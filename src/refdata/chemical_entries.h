#pragma once

#include <string_view>

#include "refdata/entry.h"
#include "shell/choices.h"

/// The entries of the chemical editor. The captions of an option's fields stand under its heading.
namespace orvex::refdata {

inline constexpr std::string_view kIdentity = "Chemical";
inline constexpr std::string_view kOption1 = "Option 1: Enter Vapor Pressure (psia) for each temperature:";
inline constexpr std::string_view kOption2 = "Option 2: Constants for Antoine's Equation (using C)";
inline constexpr std::string_view kOption3 = "Option 3: Constants for Antoine's Equation (using K)";
inline constexpr std::string_view kOption4 = "Option 4";

inline constexpr EntryInfo kChemicalEntries[] = {
    {{"dbcboChemName", "Chemical &Name:", "The chemical; type a part of its name to find it"},
     EntryKind::kName,
     "NAME",
     ""},
    {{"dbcboCAS", "CAS N&umber:", "Its number in the registry; type a part of it to find it"},
     EntryKind::kName,
     "CAS",
     ""},
    {{"cboCategory", "Ca&tegory:", "The kind of liquid, which decides what option 4 needs"},
     EntryKind::kChoice,
     "CATEGORY",
     kIdentity,
     shell::kCategories},
    {{"txtMOLWT", "Liq. Mol. Weight:", "Molecular weight of the liquid (lb/lb-mole)"},
     EntryKind::kNumber,
     "MOLWT",
     kIdentity},
    {{"txtVP_MOLWT", "Vapor Molecular Weight:", "Molecular weight of the vapor, M_V (lb/lb-mole)"},
     EntryKind::kNumber,
     "VP_MOLWT",
     kIdentity},
    {{"txtL_DENS", "Liquid Density (lb/gal @ 60F):", "Density of the liquid at 60 F, W_L (lb/gal)"},
     EntryKind::kNumber,
     "L_DENS",
     kIdentity},
    {{"txtVP_40", "40F:", "Vapor pressure at 40 F (psia)"}, EntryKind::kNumber, "VP_40", kOption1},
    {{"txtVP_50", "50F:", "Vapor pressure at 50 F (psia)"}, EntryKind::kNumber, "VP_50", kOption1},
    {{"txtVP_60", "60F:", "Vapor pressure at 60 F (psia)"}, EntryKind::kNumber, "VP_60", kOption1},
    {{"txtVP_70", "70F:", "Vapor pressure at 70 F (psia)"}, EntryKind::kNumber, "VP_70", kOption1},
    {{"txtVP_80", "80F:", "Vapor pressure at 80 F (psia)"}, EntryKind::kNumber, "VP_80", kOption1},
    {{"txtVP_90", "90F:", "Vapor pressure at 90 F (psia)"}, EntryKind::kNumber, "VP_90", kOption1},
    {{"txtVP_100", "100F:", "Vapor pressure at 100 F (psia)"}, EntryKind::kNumber, "VP_100", kOption1},
    {{"txtVP_COEF_A", "A:", "Constant A, for degrees C and mm Hg"}, EntryKind::kNumber, "VP_COEF_A", kOption2},
    {{"txtVP_COEF_B", "B:", "Constant B, for degrees C and mm Hg"}, EntryKind::kNumber, "VP_COEF_B", kOption2},
    {{"txtVP_COEF_C", "C:", "Constant C, for degrees C and mm Hg"}, EntryKind::kNumber, "VP_COEF_C", kOption2},
    {{"txtVP_2_A", "A:", "Constant A, for kelvins and mm Hg"}, EntryKind::kNumber, "VP_2_A", kOption3},
    {{"txtVP_2_B", "B:", "Constant B, for kelvins and mm Hg"}, EntryKind::kNumber, "VP_2_B", kOption3},
    {{"txtREID", "Option 4: Reid Vapor Pressure (psia): (Distillates, Crude Oil)",
      "Reid vapor pressure, RVP (psia), of a petroleum distillate or a crude oil"},
     EntryKind::kNumber,
     "REID",
     kOption4},
    {{"txtASTM_SLOPE", "ASTM Slope: (Distillates Only)",
      "Slope of the distillation curve at 10 percent, S (F per percent), of a petroleum distillate"},
     EntryKind::kNumber,
     "ASTM_SLOPE",
     kOption4},
};

}  // namespace orvex::refdata
