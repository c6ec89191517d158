#pragma once

#include "refdata/record_editor.h"
#include "refdata/rim_seal_entries.h"

/// The editor of the table `rimseal`.
namespace orvex::refdata {

inline constexpr auto kFrmRimSealControls =
    EditorControls(kRimSealEntries, {"picRim", "", "The factors of the rim seal"});
inline constexpr shell::WindowText kFrmRimSealText = {"frmRimSeal", "Rim Seal", "rim_seals_edit", kFrmRimSealControls};

RecordEditor OpenFrmRimSeal(shell::Session& session);

}  // namespace orvex::refdata
