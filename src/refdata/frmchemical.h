#pragma once

#include "refdata/chemical_entries.h"
#include "refdata/record_editor.h"

/// The editor of the table `chemical`.
namespace orvex::refdata {

inline constexpr auto kFrmchemicalControls = EditorControls(
    kChemicalEntries,
    {"picChem", "Vapor Pressure Information (fill in one or more options completely)", "The data of the chemical"});
inline constexpr shell::WindowText kFrmchemicalText = {"frmchemical", "Chemical", "chemicals_edit",
                                                       kFrmchemicalControls};

RecordEditor OpenFrmchemical(shell::Session& session);

}  // namespace orvex::refdata
