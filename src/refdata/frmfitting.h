#pragma once

#include "refdata/fitting_entries.h"
#include "refdata/record_editor.h"

/// The editor of the table `fitting`.
namespace orvex::refdata {

inline constexpr auto kFrmFittingControls =
    EditorControls(kFittingEntries, {"picFit", "", "The factors of the fitting"});
inline constexpr shell::WindowText kFrmFittingText = {"frmFitting", "Fitting Factor", "fittings_edit",
                                                      kFrmFittingControls};

RecordEditor OpenFrmFitting(shell::Session& session);

}  // namespace orvex::refdata
