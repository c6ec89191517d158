#pragma once

#include <string_view>

#include "refdata/entry.h"

/// The entries of the fitting editor.
namespace orvex::refdata {

inline constexpr std::string_view kFittingFactor = "Fitting Factor";

inline constexpr EntryInfo kFittingEntries[] = {
    {{"dbcboFitType", "Fitting &Type:", "The kind of fitting; type a part of its name to find it"},
     EntryKind::kName,
     "FIT_TYPE",
     ""},
    {{"cboStatus", "Stat&us:", "The fitting's cover or state, of those that the type has; may be empty"},
     EntryKind::kName,
     "COVR_TYPE",
     ""},
    {{"txtAPI_CERT", "API Certification Number:", "Number of the certificate from which the factors are"},
     EntryKind::kText,
     "API_CERT",
     kFittingFactor},
    {{"txtK_FA", "K-fa (lb-mole/yr):", "Zero wind speed loss factor, K_Fa (lb-mole/yr)"},
     EntryKind::kNumber,
     "K_FA",
     kFittingFactor},
    {{"txtK_FB", "K-fb (lb-mole/(mph)^M-yr):", "Wind speed dependent loss factor, K_Fb (lb-mole/(mph)^m-yr)"},
     EntryKind::kNumber,
     "K_FB",
     kFittingFactor},
    {{"txtK_M", "M (dimensionless):", "Exponent of the wind speed, m (dimensionless)"},
     EntryKind::kNumber,
     "K_M",
     kFittingFactor},
    {{"txtQUANTITY", "Default Quantity:", "How many of them a tank has unless somebody counts"},
     EntryKind::kNumber,
     "QUANTITY",
     kFittingFactor},
};

}  // namespace orvex::refdata
