#pragma once

#include <string_view>

#include "refdata/entry.h"
#include "shell/choices.h"

/// The entries of the rim seal editor.
namespace orvex::refdata {

inline constexpr std::string_view kRimSeal = "Rim Seal";
inline constexpr std::string_view kApplicability = "Applicability of Factors: ";

inline constexpr EntryInfo kRimSealEntries[] = {
    {{"dbcboPrimSeal", "&Primary Seal:", "The primary seal; type a part of its name to find it"},
     EntryKind::kName,
     "PRIM_SEAL",
     ""},
    {{"cboSecSeal", "S&econdary Seal:", "The secondary seal, of those that the primary one has; None without one"},
     EntryKind::kName,
     "SECND_SEAL",
     ""},
    {{"cboConstruct", "Applicable Tank &Construction:", "The shell for which the factors hold"},
     EntryKind::kFinder,
     "",
     "",
     shell::kConstructions},
    {{"txtAPI_CERT", "API Certification Number:", "Number of the certificate from which the factors are"},
     EntryKind::kText,
     "API_CERT",
     kRimSeal},
    {{"txtK_RA", "K-ra (lb-mole/(mph)^N-ft-yr):", "Zero wind speed loss factor, K_Ra (lb-mole/ft-yr)"},
     EntryKind::kNumber,
     "K_RA",
     kRimSeal},
    {{"txtK_RB", "K-rb (lb-mole/(mph)^N-ft-yr):", "Wind speed dependent loss factor, K_Rb (lb-mole/(mph)^n-ft-yr)"},
     EntryKind::kNumber,
     "K_RB",
     kRimSeal},
    {{"txtN_FACTOR", "N (dimensionless):", "Exponent of the wind speed, n (dimensionless)"},
     EntryKind::kNumber,
     "N_FACTOR",
     kRimSeal},
    {{"cboEFRT", "External Floating Roof Tanks:", "Whether such tanks are offered the seal"},
     EntryKind::kYesNo,
     "EFLT",
     kApplicability,
     shell::kYesOrNo},
    {{"cboDEFRT", "Domed External Floating Roof Tanks:", "Whether such tanks are offered the seal"},
     EntryKind::kYesNo,
     "DEFT",
     kApplicability,
     shell::kYesOrNo},
    {{"cboIFRT", "Internal Floating Roof Tanks:", "Whether such tanks are offered the seal"},
     EntryKind::kYesNo,
     "IFLT",
     kApplicability,
     shell::kYesOrNo},
};

}  // namespace orvex::refdata
