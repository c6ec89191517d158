#pragma once

#include <string_view>

#include "refdata/entry.h"
#include "shell/choices.h"

/// The entries of the deck seam editor.
namespace orvex::refdata {

inline constexpr std::string_view kDeckSeam = "Deck Seam";
inline constexpr std::string_view kSeamConstructions[] = {shell::kPanel, shell::kSheet};

inline constexpr EntryInfo kDeckSeamEntries[] = {
    {{"dbcboName", "&Name:", "The seam, named by its construction and size; type a part of the name to find it"},
     EntryKind::kFinder,
     "NAME",
     ""},
    {{"cboConstruct", "&Construction:", "Whether the deck is of panels or of sheets"},
     EntryKind::kChoice,
     "CONSTRUC",
     kDeckSeam,
     kSeamConstructions},
    {{"txtPLENGTH", "Panel Length (ft): ", "Length of a panel (ft)"}, EntryKind::kNumber, "PLENGTH", kDeckSeam},
    {{"txtPWIDTH", "Panel Width (ft):", "Width of a panel (ft)"}, EntryKind::kNumber, "PWIDTH", kDeckSeam},
    {{"txtSWIDTH", "Sheet Width (ft):", "Width of a sheet (ft)"}, EntryKind::kNumber, "SWIDTH", kDeckSeam},
    {{"txtKD", "KD (lb-mole/ft-yr):", "Loss per length of seam, K_D (lb-mole/ft-yr)"},
     EntryKind::kNumber,
     "KD",
     kDeckSeam},
    {{"txtSD", "Default SD (ft/ft^2): ", "Length of seam per area of deck, S_D (ft/ft^2), as it follows from the size"},
     EntryKind::kTwoDecimals,
     "SD",
     kDeckSeam},
    {{"txtAPICERT", "API Certification Number:", "Number of the certificate from which the factors are"},
     EntryKind::kText,
     "APICERT",
     kDeckSeam},
};

}  // namespace orvex::refdata
